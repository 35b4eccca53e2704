#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace quorvel {

/// The content of a regular file; the empty text when the file or its folder does not exist. Nothing when the file
/// cannot be read.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::filesystem::path& file);

/// Returns the new content for the old one, or nothing to cancel the update.
using ContentChange = std::function<std::optional<std::string>(const std::string&)>;

/// Replaces a small file's content with the result of `change`; creates the file and its folders when they are missing.
/// Writers in all processes wait for each other; a reader sees the old or the new content and never a part of one. Only
/// the owner and the group can read the file (mode 0640); a narrower mode, the owner and the group are kept. An
/// unchanged content is not written. False on failure, and then the file is unchanged.
[[nodiscard]] bool UpdateFile(const std::filesystem::path& file, const ContentChange& change);

}  // namespace quorvel
