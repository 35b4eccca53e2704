#include "platform/com/Decimal.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/Error.h"

namespace quorvel::com {
namespace {

constexpr BYTE kNegative = 0x80;
constexpr BYTE kMostDigits = 28;
constexpr BYTE kCurrencyDigits = 4;

}  // namespace

Value FromDecimal(const DECIMAL& decimal) {
  if (decimal.scale > kMostDigits || (decimal.sign != 0 && decimal.sign != kNegative)) ThrowTypeMismatch();
  const bool isNegative = decimal.sign == kNegative;
  ULONGLONG units = decimal.Lo64;
  int digits = decimal.scale;
  for (; decimal.Hi32 == 0 && digits > 0 && units % 10 == 0; --digits) units /= 10;
  if (decimal.Hi32 == 0 && digits == 0 && units <= static_cast<ULONGLONG>(std::numeric_limits<std::int64_t>::max())) {
    const auto whole = static_cast<std::int64_t>(units);
    return isNegative ? -whole : whole;
  }
  const double all = std::ldexp(static_cast<double>(decimal.Hi32), 64) + static_cast<double>(units);
  const double size = all / std::pow(10.0, digits);
  return isNegative ? -size : size;
}

Value FromCurrency(LONGLONG tenThousandths) {
  const auto units = static_cast<ULONGLONG>(tenThousandths);
  DECIMAL decimal{};
  decimal.scale = kCurrencyDigits;
  decimal.sign = tenThousandths < 0 ? kNegative : BYTE{0};
  decimal.Lo64 = tenThousandths < 0 ? 0 - units : units;
  return FromDecimal(decimal);
}

}  // namespace quorvel::com
