#include <quorvel/quorvel.h>

#include <olectl.h>

#include "runtime/published/CommonEntryPoints.h"
#include "runtime/published/windows/SelfRegistration.h"

STDAPI DllGetClassObject(REFCLSID rclsid, REFIID riid, void** object) {
  return quorvel::published::GetClassFactory(rclsid, riid, object);
}

STDAPI DllCanUnloadNow() { return quorvel::published::CanUnload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return quorvel::published::RegisterServer(); }

STDAPI DllUnregisterServer() { return quorvel::published::UnregisterServer(); }
