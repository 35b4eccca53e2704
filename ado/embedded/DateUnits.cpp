#include "ado/embedded/DateUnits.h"

#include <algorithm>
#include <array>

namespace quorvel::ado::embedded {
namespace {

constexpr std::array<DateUnit, 8> kDateUnits = {{{"millisecond", "ms", std::chrono::milliseconds(1), 0},
                                                 {"second", "ss", std::chrono::seconds(1), 0},
                                                 {"minute", "mi", std::chrono::minutes(1), 0},
                                                 {"hour", "hh", std::chrono::hours(1), 0},
                                                 {"day", "dd", std::chrono::days(1), 0},
                                                 {"week", "wk", std::chrono::weeks(1), 0},
                                                 {"month", "mm", std::chrono::milliseconds(0), 1},
                                                 {"year", "yy", std::chrono::milliseconds(0), 12}}};

DateTime AddMonths(DateTime moment, int months) {
  const auto midnight = std::chrono::floor<std::chrono::days>(moment);
  std::chrono::year_month_day date{midnight};
  date += std::chrono::months(months);
  if (!date.ok()) date = date.year() / date.month() / std::chrono::last;
  return std::chrono::local_days{date} + (moment - midnight);
}

}  // namespace

const DateUnit* FindDateUnit(std::string_view name) noexcept {
  const auto* unit = std::find_if(kDateUnits.begin(), kDateUnits.end(),
                                  [&](const DateUnit& each) { return each.name == name || each.shortName == name; });
  return unit == kDateUnits.end() ? nullptr : unit;
}

std::optional<DateTime> AddUnits(DateTime moment, const DateUnit& unit, std::int64_t number) {
  constexpr std::chrono::milliseconds kLongest = std::chrono::years(10'000);
  const std::int64_t most = unit.months == 0 ? kLongest / unit.length : 120'000 / unit.months;
  if (number > most || number < -most) return std::nullopt;
  const DateTime result =
      unit.months == 0 ? moment + unit.length * number : AddMonths(moment, unit.months * static_cast<int>(number));
  const std::chrono::year_month_day date{std::chrono::floor<std::chrono::days>(result)};
  if (date.year() < std::chrono::year{1} || date.year() > std::chrono::year{9999}) return std::nullopt;
  return result;
}

}  // namespace quorvel::ado::embedded
