#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace quorvel {

/// The whole content of a regular file; the empty text when there is no such file in an existing folder or the
/// folder is missing. Nothing when it cannot be read.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::filesystem::path& file);

/// Makes the new content from the old one; nothing gives up.
using ContentChange = std::function<std::optional<std::string>(const std::string&)>;

/// Replaces a small file's content by what `change` makes of it, missing folders and file included. Writers in all
/// processes wait for each other; a reader sees the old or the new content and never a part of one. The file is
/// readable by nobody beyond its owner and group (0640), and by fewer when it was so before; owner and group stay.
/// Nothing is written when the content stays the same. False when it cannot be done, and then the file is
/// as it was.
[[nodiscard]] bool UpdateFile(const std::filesystem::path& file, const ContentChange& change);

}  // namespace quorvel
