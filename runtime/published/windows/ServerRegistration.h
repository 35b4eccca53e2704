#pragma once

#include "platform/com/Com.h"

namespace quorvel::published {

/// Register and unregister the file that this code was loaded from, for the machine or for this user; see Registrar.h.
/// E_ACCESSDENIED where the hive does not let this user, SELFREG_E_CLASS for every other failure of the registry.
[[nodiscard]] HRESULT RegisterServer() noexcept;
[[nodiscard]] HRESULT UnregisterServer() noexcept;

}  // namespace quorvel::published
