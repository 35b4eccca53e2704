#include "platform/OperatingSystem.h"

#include <windows.h>

#include <array>

#include "platform/windows/WideText.h"

namespace quorvel::os {

std::optional<std::string> RegionalShortDate(std::chrono::year_month_day date) {
  SYSTEMTIME day{};
  day.wYear = static_cast<WORD>(static_cast<int>(date.year()));
  day.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
  day.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
  std::array<wchar_t, 128> text{};
  // The length includes the terminating zero. The system's calendar begins with the year 1601.
  const int length = ::GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, text.data(),
                                       static_cast<int>(text.size()), nullptr);
  return length > 1 ? std::optional(FromWide({text.data(), static_cast<std::size_t>(length - 1)})) : std::nullopt;
}

}  // namespace quorvel::os
