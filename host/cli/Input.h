#pragma once

#include <optional>
#include <string>

namespace quorvel::cli {

/// The whole of a file, or of the standard input when `path` is "-". Throws Error -1 from `source` with the
/// system's reason.
[[nodiscard]] std::string ReadWhole(const std::string& path, const std::string& source);

/// The whole standard input without its final line end; nothing when it is empty.
[[nodiscard]] std::optional<std::string> ReadInputLine(const std::string& source);

/// A text from the command line, or the standard input without its final line end when the text is "-".
[[nodiscard]] std::string ReadTextArgument(const std::string& argument, const std::string& source);

}  // namespace quorvel::cli
