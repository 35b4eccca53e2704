#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quorvel::cli {

/// The columns of the terminal; 0, which means no limit, when the standard output is none.
[[nodiscard]] std::size_t OutputWidth();

/// Asks for a line on the terminal and does not show what is typed; nothing when the standard input is no terminal.
/// The empty text at the end of the input.
[[nodiscard]] std::optional<std::string> AskSecret(const char* prompt);

/// Waits for Enter when input and output are a terminal; else returns at once. False at the end of the input.
bool WaitForEnter(const char* prompt);

}  // namespace quorvel::cli
