#pragma once

#include "platform/com/Com.h"

/// The parts of DllGetClassObject and DllCanUnloadNow that every platform shares.
namespace quorvel::published {

using namespace Quorvel;

/// The class factory of a class that hosts may create; CLASS_E_CLASSNOTAVAILABLE for every other.
[[nodiscard]] HRESULT GetClassFactory(REFCLSID classId, REFIID riid, void** object) noexcept;

/// Whether the library may be unloaded: no host holds an object or a lock.
[[nodiscard]] bool CanUnload() noexcept;

}  // namespace quorvel::published
