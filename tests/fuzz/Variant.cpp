// VARIANTs of every type, a line each, converted to the types that members take. GivenValue describes the form of a
// line.

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

void CheckValue(const VARIANT& value) {
  try {
    const Value read = com::ToValue(value);
    if (!IsNull(read)) (void)ToText(read);
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
