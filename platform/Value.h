#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "platform/DateTime.h"

namespace quorvel {

/// SQL NULL, and the value of a parameter that was never set.
struct Null {
  friend bool operator==(Null, Null) = default;
};

/// The value of a field or a parameter, and an argument of any type (`i_v...`).
/// Integers of every width are held as 64 bits; texts are UTF-8.
using Value = std::variant<Null, bool, std::int64_t, double, DateTime, std::string>;

[[nodiscard]] inline bool IsNull(const Value& value) { return std::holds_alternative<Null>(value); }
[[nodiscard]] inline bool IsText(const Value& value) { return std::holds_alternative<std::string>(value); }

/// Conversions with the rules of the classic language runtime. Errors: 94 for NULL, 13 when the value
/// cannot be read as the type ("abc" as a number), 6 when it does not fit.
///
/// Text: numbers in plain decimal, booleans "True"/"False", dates "YYYY-MM-DD HH:MM:SS[.mmm]".
[[nodiscard]] std::string ToText(const Value& value);
/// The same; a text is moved out.
[[nodiscard]] std::string ToText(Value&& value);
/// 32-bit: halves round to even; true is -1; text is read as a decimal number with blanks around it allowed.
[[nodiscard]] std::int32_t ToInt32(const Value& value);
/// 16-bit, with the same rules.
[[nodiscard]] std::int16_t ToInt16(const Value& value);
[[nodiscard]] std::int64_t ToInt64(const Value& value);
[[nodiscard]] double ToDouble(const Value& value);
/// Any number but 0 is true; the texts "True" and "False" in any case, or a number as text.
[[nodiscard]] bool ToBoolean(const Value& value);
/// A date, or a text that ParseDateTime reads.
[[nodiscard]] DateTime ToDateTime(const Value& value);

}  // namespace quorvel
