#pragma once

#include "platform/com/Com.h"

namespace quorvel::published {

/// Registers or unregisters the file that this code was loaded from, for the machine or for this user; see
/// Registration.h. E_ACCESSDENIED when this user may not write to the hive, SELFREG_E_CLASS for every other failure of
/// the registry.
[[nodiscard]] HRESULT RegisterServer() noexcept;
[[nodiscard]] HRESULT UnregisterServer() noexcept;

}  // namespace quorvel::published
