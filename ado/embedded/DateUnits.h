#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/DateTime.h"

namespace quorvel::ado::embedded {

/// A unit of DATEADD: a number of months, or a length when that number is 0.
struct DateUnit {
  std::string_view name;
  std::string_view shortName;
  std::chrono::milliseconds length;
  int months;
};

/// The unit with that name or short name, in small letters; null when there is none.
[[nodiscard]] const DateUnit* FindDateUnit(std::string_view name) noexcept;

/// `moment` and so many units; nothing when the result is not in the years 1 to 9999.
[[nodiscard]] std::optional<DateTime> AddUnits(DateTime moment, const DateUnit& unit, std::int64_t number);

}  // namespace quorvel::ado::embedded
