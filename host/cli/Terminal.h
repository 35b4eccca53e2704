#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quorvel::cli {

/// The columns of the terminal; 0, which means no limit, when the standard output is none.
[[nodiscard]] std::size_t OutputWidth();

/// Whether the standard input is a terminal.
[[nodiscard]] bool IsInputTerminal();

/// Asks for a line on the terminal and does not show what is typed. Nothing when the user ends the input or presses
/// Ctrl+C.
[[nodiscard]] std::optional<std::string> AskSecret(const char* prompt);

/// Waits for Enter when input and output are a terminal; else returns at once. False at the end of the input.
bool WaitForEnter(const char* prompt);

}  // namespace quorvel::cli
