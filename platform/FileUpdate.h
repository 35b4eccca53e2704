#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <system_error>

namespace quorvel {

/// The content of a regular file; the empty text when the file or its folder does not exist. Nothing when the file
/// cannot be read. Removes a copy that a killed writer has left, when no other writer is at work.
[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::filesystem::path& file);

/// Returns the new content for the old one, which is empty when there is no file. Nothing when the content cannot be
/// changed. A content that is not `settled` may be a part of what another program is writing: after nothing the file is
/// read again until it has stayed the same for a moment.
using ContentChange = std::function<std::optional<std::string>(const std::string& before, bool settled)>;

/// Replaces a small file's content with the result of `change`; creates the file and its folders when they are missing.
/// Writers in all processes wait for each other, for some seconds at most; a reader sees the old or the new content and
/// never a part of one. A file that another program has changed meanwhile is read again. Only the owner and the group
/// can read the file (mode 0640, or less with a stricter umask); a narrower mode, the owner and the group are kept. An
/// unchanged content is not written.
///
/// After a failure the file is unchanged: device_or_resource_busy when another program keeps it locked or open for
/// writing, or keeps changing it, operation_canceled when `change` returned nothing, otherwise the system's error.
[[nodiscard]] std::error_code UpdateFile(const std::filesystem::path& file, const ContentChange& change);

}  // namespace quorvel
