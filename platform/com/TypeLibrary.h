#pragma once

#include "platform/com/Com.h"

namespace quorvel::com {

/// The result of IDispatch::GetTypeInfoCount: 1 on systems with type libraries, else 0.
[[nodiscard]] UINT TypeInfoCount() noexcept;

/// The type information of a class or interface from the component's type library. E_NOTIMPL on systems without type
/// libraries.
[[nodiscard]] HRESULT TypeInfoOf(REFGUID id, ITypeInfo** info) noexcept;

}  // namespace quorvel::com
