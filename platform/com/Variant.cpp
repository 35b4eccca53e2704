// Reads VARIANTs as hosts pass them: by value, by reference, or as an object with a default value.
#include "platform/com/Variant.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#include "platform/Error.h"
#include "platform/com/Date.h"
#include "platform/com/Decimal.h"
#include "platform/com/Pointer.h"
#include "platform/com/Text.h"

namespace quorvel::com {
namespace {

/// The size of a type's value in a VARIANT; 0 for types that the component does not use.
std::size_t SizeOf(VARTYPE type) noexcept {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    default:
      return 0;
  }
}

/// An object's default value. It must not be an object again: a chain of default values might never end.
Value DefaultValue(IUnknown* object) {
  if (object == nullptr) ThrowObjectNotSet();
  const auto dispatch = Query<IDispatch>(object, IID_IDispatch);
  if (!dispatch) ThrowTypeMismatch();
  DISPPARAMS none{};
  OwnedVariant value;
  if (FAILED(
          dispatch->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &value.Get(), nullptr, nullptr))) {
    ThrowTypeMismatch();
  }
  const VARIANT plain = Borrow(value.Get());
  if (plain.vt == VT_DISPATCH || plain.vt == VT_UNKNOWN) ThrowTypeMismatch();
  return ToValue(plain);
}

Value FromUnsigned(ULONGLONG number) {
  if (number > static_cast<ULONGLONG>(std::numeric_limits<std::int64_t>::max())) ThrowOverflow();
  return static_cast<std::int64_t>(number);
}

/// A decimal covers the whole VARIANT: the type stands in its first, unused member.
DECIMAL DecimalIn(const VARIANT& value) noexcept {
  DECIMAL decimal;
  std::memcpy(&decimal, &value, sizeof(decimal));
  return decimal;
}

}  // namespace

VARIANT Borrow(const VARIANT& value) noexcept {
  constexpr VARTYPE kReference = VT_BYREF | VT_VARIANT;
  // A VARIANT by reference may contain a value by reference, but not a second VARIANT by reference.
  if (value.vt == kReference && value.pvarVal != nullptr && value.pvarVal->vt != kReference) {
    return Borrow(*value.pvarVal);
  }
  if (value.vt == (VT_BYREF | VT_DECIMAL) && value.byref != nullptr) {
    VARIANT plain;
    std::memcpy(&plain, value.byref, sizeof(DECIMAL));
    plain.vt = VT_DECIMAL;
    return plain;
  }
  const std::size_t size = (value.vt & VT_BYREF) != 0 ? SizeOf(static_cast<VARTYPE>(value.vt & ~VT_BYREF)) : 0;
  if (size == 0 || value.byref == nullptr) return value;
  VARIANT plain;
  VariantInit(&plain);
  plain.vt = static_cast<VARTYPE>(value.vt & ~VT_BYREF);
  std::memcpy(&plain.llVal, value.byref, size);
  return plain;
}

Value ToValue(const VARIANT& value) {
  const VARIANT plain = Borrow(value);
  switch (plain.vt) {
    case VT_EMPTY:
      return std::int64_t{0};
    case VT_NULL:
      return Null{};
    case VT_I1:
      return static_cast<std::int64_t>(static_cast<signed char>(plain.cVal));
    case VT_UI1:
      return static_cast<std::int64_t>(plain.bVal);
    case VT_I2:
      return static_cast<std::int64_t>(plain.iVal);
    case VT_UI2:
      return static_cast<std::int64_t>(plain.uiVal);
    case VT_I4:
    case VT_INT:
      return static_cast<std::int64_t>(plain.lVal);
    case VT_UI4:
    case VT_UINT:
      return static_cast<std::int64_t>(plain.ulVal);
    case VT_I8:
      return static_cast<std::int64_t>(plain.llVal);
    case VT_UI8:
      return FromUnsigned(plain.ullVal);
    case VT_R4:
      return static_cast<double>(plain.fltVal);
    case VT_R8:
      return plain.dblVal;
    case VT_CY:
      return FromCurrency(plain.llVal);
    case VT_DECIMAL:
      return FromDecimal(DecimalIn(plain));
    case VT_BOOL:
      return plain.boolVal != VARIANT_FALSE;
    case VT_DATE:
      return FromDate(plain.date);
    case VT_BSTR:
      return FromBstr(plain.bstrVal);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return DefaultValue(plain.punkVal);
    default:
      ThrowTypeMismatch();
  }
}

}  // namespace quorvel::com
