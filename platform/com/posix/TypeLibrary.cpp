#include "platform/com/TypeLibrary.h"

namespace quorvel::com {

UINT TypeInfoCount() noexcept { return 0; }

HRESULT TypeInfoOf(REFGUID /*id*/, ITypeInfo** /*info*/) noexcept { return E_NOTIMPL; }

}  // namespace quorvel::com
