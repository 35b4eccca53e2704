#pragma once

#include <cstddef>
#include <string>

#include "platform/DateTime.h"

namespace quorvel::cli {

/// Columns to lay text out in; 0, meaning no limit, when the standard output is not a terminal.
[[nodiscard]] std::size_t OutputWidth();

/// Waits for Enter when a person sits at both ends; else returns at once. False when the input has ended.
bool WaitForEnter(const char* prompt);

/// The date in the form of the machine's regional setting, and as 2026-01-31 where there is none.
[[nodiscard]] std::string ShortDate(DateTime value);

}  // namespace quorvel::cli
