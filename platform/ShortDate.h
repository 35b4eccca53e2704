#pragma once

#include <string>

#include "platform/DateTime.h"

namespace quorvel {

/// The date in the short form of the user's regional settings, UTF-8: those of LC_ALL, LC_TIME or LANG in the
/// environment, or of Windows. Without regional settings "YYYY-MM-DD". The process's own locale does not count and is
/// not changed.
[[nodiscard]] std::string FormatShortDate(DateTime value);

/// The same with the time of day after it; without regional settings "YYYY-MM-DD HH:MM:SS".
[[nodiscard]] std::string FormatDateWithTime(DateTime value);

}  // namespace quorvel
