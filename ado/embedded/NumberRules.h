#pragma once

#include <cmath>
#include <string_view>

#include "platform/Text.h"

/// How a server converts values to numbers, where SQLite and the classic runtime do otherwise.
namespace quorvel::ado::embedded::numberRules {

/// A blank text is 0.
[[nodiscard]] inline bool IsZero(std::string_view text) noexcept { return TrimBlanks(text).empty(); }

/// Whether a text can become a whole number: a server takes no fraction and no exponent in it.
[[nodiscard]] inline bool IsWhole(std::string_view text) noexcept {
  text = TrimBlanks(text);
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// The fraction of a whole number is cut and not rounded.
[[nodiscard]] inline double Whole(double number) noexcept { return std::trunc(number); }

}  // namespace quorvel::ado::embedded::numberRules
