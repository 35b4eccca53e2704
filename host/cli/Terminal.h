#pragma once

#include <cstddef>

namespace quorvel::cli {

/// Columns to lay text out in; 0, meaning no limit, when the standard output is not a terminal.
[[nodiscard]] std::size_t OutputWidth();

/// Waits for Enter when a person sits at both ends; else returns at once. False when the input has ended.
bool WaitForEnter(const char* prompt);

}  // namespace quorvel::cli
