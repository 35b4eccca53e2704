#include <quorvel/quorvel.h>

#include <olectl.h>

#include "runtime/published/ClassObjects.h"
#include "runtime/published/windows/ServerRegistration.h"

// Each only hands the request on; what they do is written down where it is done.

STDAPI DllGetClassObject(REFCLSID rclsid, REFIID riid, void** object) {
  return quorvel::published::ClassObject(rclsid, riid, object);
}

STDAPI DllCanUnloadNow() { return quorvel::published::CanUnload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return quorvel::published::RegisterServer(); }

STDAPI DllUnregisterServer() { return quorvel::published::UnregisterServer(); }
