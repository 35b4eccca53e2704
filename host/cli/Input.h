#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel::cli {

/// The whole of a file, or of the standard input when `path` is "-". Throws Error -1 from `source` with the
/// system's reason.
[[nodiscard]] std::string ReadWhole(const std::string& path, const std::string& source);

/// Throws Error -1 from `source`, with advice, for a text that is not UTF-8. `what` names the text, which the message
/// does not repeat.
void RequireUtf8(std::string_view text, std::string_view what, const std::string& source);

/// The whole standard input without its final line end and without a byte order mark; nothing when it is empty. An
/// input that is not UTF-8 is the error of RequireUtf8.
[[nodiscard]] std::optional<std::string> ReadInputLine(const std::string& source);

/// A text from the command line, or what ReadInputLine returns when the text is "-". A text that is not UTF-8 is the
/// error of RequireUtf8.
[[nodiscard]] std::string ReadTextArgument(const std::string& argument, const std::string& source);

}  // namespace quorvel::cli
