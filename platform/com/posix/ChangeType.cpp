#include <new>

#include "platform/Error.h"
#include "platform/com/Date.h"
#include "platform/com/Text.h"
#include "platform/com/Variant.h"

namespace quorvel::com {
namespace {

/// A date converts to its number of days.
Value AsNumber(const Value& value) {
  const auto* date = std::get_if<DateTime>(&value);
  return date != nullptr ? Value(ToDate(*date)) : value;
}

DATE AsDate(const Value& value) {
  const bool days = std::holds_alternative<std::int64_t>(value) || std::holds_alternative<double>(value) ||
                    std::holds_alternative<bool>(value);
  return days ? ToDate(FromDate(ToDouble(value))) : ToDate(ToDateTime(value));
}

void Convert(const VARIANT& value, VARTYPE type, VARIANT& target) {
  const Value given = value.vt == VT_EMPTY && type == VT_BSTR ? Value(std::string()) : ToValue(value);
  switch (type) {
    case VT_BSTR:
      target.bstrVal = ToBstr(ToText(given));
      break;
    case VT_I4:
      target.lVal = ToInt32(AsNumber(given));
      break;
    case VT_BOOL:
      target.boolVal = ToBoolean(AsNumber(given)) ? VARIANT_TRUE : VARIANT_FALSE;
      break;
    case VT_DATE:
      target.date = AsDate(given);
      break;
    default:
      ThrowTypeMismatch();
  }
  target.vt = type;
}

}  // namespace

HRESULT ChangeType(const VARIANT& value, VARTYPE type, LCID /*locale*/, VARIANT& target) noexcept {
  try {
    Convert(value, type, target);
    return S_OK;
  } catch (const Error& error) {
    return error.Number() == ErrorNumber::Overflow ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace quorvel::com
