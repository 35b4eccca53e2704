// Texts as dates, numbers and booleans: everything that is read can be written and read again.

#include <cmath>
#include <optional>

#include "platform/DateTime.h"
#include "platform/Error.h"
#include "platform/Value.h"
#include "platform/com/Date.h"
#include "tests/fuzz/Fuzz.h"

namespace quorvel::fuzz {
namespace {

void CheckDate(DateTime date) {
  const std::string text = FormatDateTime(date);
  Require(text.size() == 23 && ParseDateTime(text) == date, "a date is read back");
  Require(ParseDateTime(FormatDateTime(date, 'T')) == date, "the form with a T is read back");
  Require(ToDateTime(ToText(date)) == date, "a value's text is read back");
  if (text >= "0100") Require(com::FromDate(com::ToDate(date)) == date, "a host's date is the same to the millisecond");
}

/// The value of a conversion, or nothing after error 6 or 13.
template <typename Conversion>
auto Attempt(Conversion convert, const Value& value) -> std::optional<decltype(convert(value))> {
  try {
    return convert(value);
  } catch (const Error& error) {
    const bool isExpected = error.Number() == ErrorNumber::Overflow || error.Number() == ErrorNumber::TypeMismatch;
    Require(isExpected && !error.Description().empty(), "an error is 6 or 13 and has a text");
    return std::nullopt;
  }
}

}  // namespace

void Try(std::string_view input) {
  const Value value = std::string(input);
  const auto date = ParseDateTime(input);
  if (date) CheckDate(*date);
  Require(Attempt(ToDateTime, value) == date, "a value is read as a text is");
  const auto number = Attempt(ToDouble, value);
  const auto whole = Attempt(ToInt64, value);
  const auto small = Attempt(ToInt32, value);
  const auto smallest = Attempt(ToInt16, value);
  if (number && std::isfinite(*number)) Require(ToDouble(ToText(*number)) == *number, "a number is read back");
  if (number) Require(Attempt(ToBoolean, value) == (*number != 0), "any number but 0 is true");
  if (whole) Require(number && ToInt64(ToText(*whole)) == *whole, "a whole number is read back");
  if (small) Require(whole == std::int64_t{*small}, "32 bits hold the same number");
  if (smallest) Require(small == std::int32_t{*smallest}, "16 bits hold the same number");
}

}  // namespace quorvel::fuzz
