#pragma once

#include "platform/Value.h"
#include "platform/com/Com.h"

namespace quorvel::com {

/// A VARIANT that is cleared at the end of its scope.
class OwnedVariant {
 public:
  OwnedVariant() noexcept { VariantInit(&m_value); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
  ~OwnedVariant() { VariantClear(&m_value); }

  [[nodiscard]] VARIANT& Get() noexcept { return m_value; }
  /// Gives the value to the caller, who clears it.
  VARIANT Release() noexcept {
    const VARIANT value = m_value;
    VariantInit(&m_value);
    return value;
  }

 private:
  VARIANT m_value;
};

/// The value that a VT_BYREF value refers to, not copied: it is valid as long as the original. Other values, and
/// references to types that the component does not use, are returned unchanged.
[[nodiscard]] VARIANT Borrow(const VARIANT& value) noexcept;

/// Converts an argument that may have any type. Empty is 0; an object is read through its default member. Error 91 for
/// a null object, 13 for types without a value (an array, an omitted argument), 6 for a date out of range.
[[nodiscard]] Value ToValue(const VARIANT& value);

/// Converts `value`, which must not be by reference, to `type`. `target` must be empty and stays empty on failure.
/// DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW when there is no conversion. On Windows numbers and dates follow the locale,
/// elsewhere the rules of Value.h.
[[nodiscard]] HRESULT ChangeType(const VARIANT& value, VARTYPE type, LCID locale, VARIANT& target) noexcept;

}  // namespace quorvel::com
