#include "platform/OperatingSystem.h"

#include <windows.h>

#include <array>

#include "platform/windows/WideText.h"

namespace quorvel::os {
namespace {

/// The text of a buffer that a call has filled; its length includes the terminating zero, and is 0 after a failure.
template <std::size_t size>
std::optional<std::string> TextOf(const std::array<wchar_t, size>& buffer, int length) {
  return length > 1 ? std::optional(FromWide({buffer.data(), static_cast<std::size_t>(length - 1)})) : std::nullopt;
}

}  // namespace

std::optional<std::string> RegionalShortDate(std::chrono::year_month_day date) {
  SYSTEMTIME day{};
  day.wYear = static_cast<WORD>(static_cast<int>(date.year()));
  day.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
  day.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
  std::array<wchar_t, 128> text{};
  // The system's calendar begins with the year 1601.
  const int length = ::GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, text.data(),
                                       static_cast<int>(text.size()), nullptr);
  return TextOf(text, length);
}

std::optional<std::string> RegionalTimeOfDay(std::chrono::seconds time) {
  const std::chrono::hh_mm_ss clock(time);
  SYSTEMTIME moment{};
  moment.wHour = static_cast<WORD>(clock.hours().count());
  moment.wMinute = static_cast<WORD>(clock.minutes().count());
  moment.wSecond = static_cast<WORD>(clock.seconds().count());
  std::array<wchar_t, 128> text{};
  const int length =
      ::GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &moment, nullptr, text.data(), static_cast<int>(text.size()));
  return TextOf(text, length);
}

}  // namespace quorvel::os
