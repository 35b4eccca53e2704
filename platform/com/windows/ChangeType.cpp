#include "platform/com/Variant.h"

namespace quorvel::com {

HRESULT ChangeType(const VARIANT& value, VARTYPE type, LCID locale, VARIANT& target) noexcept {
  return ::VariantChangeTypeEx(&target, &value, locale, VARIANT_ALPHABOOL, type);
}

}  // namespace quorvel::com
