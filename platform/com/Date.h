#pragma once

#include "platform/DateTime.h"
#include "platform/com/Com.h"

namespace quorvel::com {

/// Days since 1899-12-30 with the time of day as fraction, for the years 100 to 9999; to the millisecond. Error 6 for
/// what is outside of them, and for what is no number.
[[nodiscard]] DATE ToDate(DateTime value);
[[nodiscard]] DateTime FromDate(DATE date);

}  // namespace quorvel::com
