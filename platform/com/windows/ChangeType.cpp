#include "platform/com/Variant.h"

namespace quorvel::com {

HRESULT ChangeType(const VARIANT& value, VARTYPE type, LCID locale, VARIANT& target) noexcept {
  // The function does not change the value; MinGW's header lacks the const.
  return ::VariantChangeTypeEx(&target, const_cast<VARIANT*>(&value), locale, VARIANT_ALPHABOOL, type);
}

}  // namespace quorvel::com
