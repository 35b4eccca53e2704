#include "platform/com/Date.h"

#include <chrono>
#include <cmath>
#include <cstdint>

#include "platform/Error.h"

namespace quorvel::com {
namespace {

constexpr std::int64_t kDay = 86'400'000;  // milliseconds
constexpr double kFirstDay = -657434;      // 0100-01-01
constexpr double kDayAfterLast = 2958466;  // 10000-01-01

}  // namespace

DATE ToDate(DateTime value) {
  const std::int64_t passed = (value - kZeroDate).count();
  const std::int64_t day = passed >= 0 ? passed / kDay : -((-passed + kDay - 1) / kDay);
  const double fraction = static_cast<double>(passed - day * kDay) / static_cast<double>(kDay);
  const auto whole = static_cast<double>(day);
  if (whole < kFirstDay || whole >= kDayAfterLast) ThrowOverflow();
  // The time of day counts forwards on negative days, too.
  return whole >= 0 ? whole + fraction : whole - fraction;
}

DateTime FromDate(DATE date) {
  if (!(date > kFirstDay - 1 && date < kDayAfterLast)) ThrowOverflow();
  const double whole = std::trunc(date);
  const double fraction = std::abs(date - whole);
  const std::int64_t passed =
      static_cast<std::int64_t>(whole) * kDay + std::llround(fraction * static_cast<double>(kDay));
  // Rounding may pass the end of the last day.
  if (passed >= static_cast<std::int64_t>(kDayAfterLast) * kDay) ThrowOverflow();
  return kZeroDate + std::chrono::milliseconds(passed);
}

}  // namespace quorvel::com
