#pragma once

#include <string>

#include "platform/DateTime.h"

namespace quorvel {

/// The date in the short form of the user's regional settings, UTF-8: the environment's LC_ALL, LC_TIME or LANG, or
/// Windows' own settings. Neither asks nor touches the locale that the process has set. Without regional settings
/// "YYYY-MM-DD".
[[nodiscard]] std::string FormatShortDate(DateTime value);

}  // namespace quorvel
