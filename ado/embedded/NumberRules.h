#pragma once

#include <cmath>
#include <string_view>

#include "platform/Text.h"

/// How a server converts values to numbers, where SQLite and the classic runtime do otherwise.
namespace quorvel::ado::embedded::numberRules {

/// A blank text is 0.
[[nodiscard]] inline bool IsZero(std::string_view text) noexcept { return TrimBlanks(text).empty(); }

/// The fraction of a whole number is cut and not rounded.
[[nodiscard]] inline double Whole(double number) noexcept { return std::trunc(number); }

}  // namespace quorvel::ado::embedded::numberRules
