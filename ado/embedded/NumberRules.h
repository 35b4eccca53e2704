#pragma once

#include <fmt/format.h>

#include <cmath>
#include <string>
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

/// The message of error 245, for a text that cannot.
[[nodiscard]] inline std::string NotWhole(std::string_view text) {
  return fmt::format("Conversion failed when converting '{}' to a whole number.", text);
}
[[nodiscard]] inline bool IsNotWhole(std::string_view message) noexcept {
  return message.starts_with("Conversion failed when converting ") && message.ends_with(" to a whole number.");
}

/// The fraction of a whole number is cut and not rounded.
[[nodiscard]] inline double Whole(double number) noexcept { return std::trunc(number); }

}  // namespace quorvel::ado::embedded::numberRules
