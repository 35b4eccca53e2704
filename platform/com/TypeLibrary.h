#pragma once

#include "platform/com/Com.h"

namespace quorvel::com {

/// How many type informations an object has, as IDispatch tells it: 1 where the system has type libraries, else 0.
[[nodiscard]] UINT TypeInfoCount() noexcept;

/// The type information of a class or interface from the type library that the component carries. E_NOTIMPL where the
/// system has none.
[[nodiscard]] HRESULT TypeInfoOf(REFGUID id, ITypeInfo** info) noexcept;

}  // namespace quorvel::com
