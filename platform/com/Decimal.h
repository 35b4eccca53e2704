#pragma once

#include "platform/Value.h"
#include "platform/com/Com.h"

namespace quorvel::com {

/// The value of a decimal number: an integer when it has no fraction and fits, otherwise the nearest double. Error 13
/// for bytes that are no decimal.
[[nodiscard]] Value FromDecimal(const DECIMAL& decimal);

/// The same for an amount of money in ten-thousandths.
[[nodiscard]] Value FromCurrency(LONGLONG tenThousandths);

}  // namespace quorvel::com
