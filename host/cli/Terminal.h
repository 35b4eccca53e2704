#pragma once

#include <cstddef>

namespace quorvel::cli {

/// The columns of the terminal; 0, which means no limit, when the standard output is none.
[[nodiscard]] std::size_t OutputWidth();

/// Waits for Enter when input and output are a terminal; else returns at once. False at the end of the input.
bool WaitForEnter(const char* prompt);

}  // namespace quorvel::cli
