#pragma once

#include <sys/types.h>

#include <filesystem>
#include <system_error>

namespace quorvel {

/// Makes the folder and the missing ones above it with that mode, or less with a stricter umask. Existing ones are left
/// alone.
[[nodiscard]] std::error_code MakeFolders(const std::filesystem::path& folder, mode_t mode);

}  // namespace quorvel
