#pragma once

#include "platform/Value.h"
#include "platform/com/Com.h"

namespace quorvel::com {

/// Owns what a VARIANT holds.
class OwnedVariant {
 public:
  OwnedVariant() noexcept { VariantInit(&m_value); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
  ~OwnedVariant() { VariantClear(&m_value); }

  [[nodiscard]] VARIANT& Get() noexcept { return m_value; }
  /// Hands what is held over to the caller and is empty then.
  VARIANT Release() noexcept {
    const VARIANT value = m_value;
    VariantInit(&m_value);
    return value;
  }

 private:
  VARIANT m_value;
};

/// What a value by reference refers to, not copied: it lives as long as what it was borrowed from. Other values, and
/// references to types that the component does not use, are returned as they are.
[[nodiscard]] VARIANT Borrow(const VARIANT& value) noexcept;

/// What a caller passed where any type is accepted. Empty is 0; an object stands for its default value. Error 91 for
/// no object, 13 for what has no value (an array, an omitted argument), 6 for a date out of range.
[[nodiscard]] Value ToValue(const VARIANT& value);

/// Converts to the type `type` into `target`, which must be empty and is left empty on failure; `value` is not by
/// reference. DISP_E_TYPEMISMATCH and DISP_E_OVERFLOW where there is no conversion. On Windows numbers and dates are
/// read and written as the locale does it, elsewhere as Value.h says.
[[nodiscard]] HRESULT ChangeType(const VARIANT& value, VARTYPE type, LCID locale, VARIANT& target) noexcept;

}  // namespace quorvel::com
