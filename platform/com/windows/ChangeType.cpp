#include "platform/com/Variant.h"

namespace quorvel::com {

HRESULT ChangeType(const VARIANT& value, VARTYPE type, LCID locale, VARIANT& target) noexcept {
  // It does not change the value; MinGW's header has forgotten to say so.
  return ::VariantChangeTypeEx(&target, const_cast<VARIANT*>(&value), locale, VARIANT_ALPHABOOL, type);
}

}  // namespace quorvel::com
