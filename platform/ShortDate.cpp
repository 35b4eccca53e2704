#include "platform/ShortDate.h"

#include "platform/OperatingSystem.h"

namespace quorvel {

std::string FormatShortDate(DateTime value) {
  constexpr std::size_t kDateLength = 10;
  const std::chrono::year_month_day date(std::chrono::floor<std::chrono::days>(value));
  return os::RegionalShortDate(date).value_or(FormatDateTime(value).substr(0, kDateLength));
}

std::string FormatDateWithTime(DateTime value) {
  constexpr std::size_t kTimePosition = 11;
  constexpr std::size_t kTimeLength = 8;
  const auto time = std::chrono::floor<std::chrono::seconds>(value - std::chrono::floor<std::chrono::days>(value));
  return FormatShortDate(value) + ' ' +
         os::RegionalTimeOfDay(time).value_or(FormatDateTime(value).substr(kTimePosition, kTimeLength));
}

}  // namespace quorvel
