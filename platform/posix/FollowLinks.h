#pragma once

#include <filesystem>

namespace quorvel {

/// The file that a path names, as an absolute path. A symbolic link is followed, also when the file that it names does
/// not exist yet. Of a circle of links it is one of them.
[[nodiscard]] std::filesystem::path FollowLinks(const std::filesystem::path& path);

}  // namespace quorvel
