#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

/// A local date and time without zone, to the millisecond, as a database `datetime` holds it.
using DateTime = std::chrono::local_time<std::chrono::milliseconds>;

/// 1899-12-30 00:00, the zero of an automation date: the value of a date that was never set.
inline constexpr DateTime kZeroDate =
    DateTime{std::chrono::local_days{std::chrono::year{1899} / 12 / 30}.time_since_epoch()};

/// The current local date and time.
[[nodiscard]] DateTime Now();

/// "YYYY-MM-DD HH:MM:SS.mmm", always 23 characters for years 0001 to 9999. `separator` comes between
/// date and time: 'T' makes the ISO 8601 form.
[[nodiscard]] std::string FormatDateTime(DateTime value, char separator = ' ');

/// Reads "YYYY-MM-DD" or "YYYYMMDD", optionally followed by a blank or 'T' and "HH:MM[:SS[.fraction]]".
/// A fraction finer than a millisecond is rounded. Nothing for any other text or an impossible date.
[[nodiscard]] std::optional<DateTime> ParseDateTime(std::string_view text);

}  // namespace quorvel
