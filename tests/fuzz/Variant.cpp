// VARIANTs of every type, a line each, converted to the types that members take. GivenValue describes the form of a
// line.

#include <cmath>
#include <variant>

#include "platform/Error.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/GivenValue.h"

namespace quorvel::fuzz {
namespace {

void CheckConversion(const VARIANT& value, VARTYPE type) {
  com::OwnedVariant target;
  const HRESULT result = com::ChangeType(value, type, 0x409, target.Get());
  const bool isKnown = result == S_OK || result == DISP_E_TYPEMISMATCH || result == DISP_E_OVERFLOW;
  Require(isKnown, "a conversion fails by type or by size");
  Require(target.Get().vt == (result == S_OK ? type : VT_EMPTY), "a target is of the type or empty");
}

/// A value that has a text is read back from it.
void CheckText(const Value& value) {
  const auto* number = std::get_if<double>(&value);
  if (IsNull(value) || (number != nullptr && !std::isfinite(*number))) return;
  const std::string text = ToText(value);
  if (number != nullptr) Require(ToDouble(text) == *number, "a number is read back");
  if (std::holds_alternative<std::int64_t>(value))
    Require(ToInt64(text) == std::get<std::int64_t>(value), "same number");
  if (std::holds_alternative<bool>(value)) Require(ToBoolean(text) == std::get<bool>(value), "a boolean is read back");
  if (std::holds_alternative<DateTime>(value)) Require(ToDateTime(text) == std::get<DateTime>(value), "same date");
}

void CheckValue(const VARIANT& value) {
  try {
    CheckText(com::ToValue(value));
  } catch (const Error& error) {
    const auto number = error.Number();
    Require(
        number == ErrorNumber::Overflow || number == ErrorNumber::TypeMismatch || number == ErrorNumber::ObjectNotSet,
        "an error is 6, 13 or 91");
  }
}

}  // namespace

void Try(std::string_view input) {
  while (!input.empty()) {
    const GivenValue given(TakeUntil('\n', input));
    CheckValue(given.Get());
    const VARIANT plain = com::Borrow(given.Get());
    for (const VARTYPE type : {VT_BSTR, VT_I4, VT_BOOL, VT_DATE}) CheckConversion(plain, type);
  }
}

}  // namespace quorvel::fuzz
