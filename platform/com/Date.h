#pragma once

#include "platform/DateTime.h"
#include "platform/com/Com.h"

namespace quorvel::com {

/// Days since 1899-12-30 with the time of day as fraction, to the millisecond. Error 6 outside the years 100 to 9999
/// and for values that are not numbers.
[[nodiscard]] DATE ToDate(DateTime value);
[[nodiscard]] DateTime FromDate(DATE date);

}  // namespace quorvel::com
