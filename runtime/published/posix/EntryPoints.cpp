#include <quorvel/quorvel.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/Text.h"
#include "platform/com/CallGuard.h"
#include "platform/com/HostErrorAccess.h"
#include "platform/com/Pointer.h"
#include "platform/com/Text.h"
#include "runtime/published/CommonEntryPoints.h"
#include "runtime/published/PublishedClasses.h"

#define QUORVEL_EXPORT __attribute__((visibility("default")))

namespace quorvel::published {
namespace {

/// The name by which the published header asks for the thread's errors.
constexpr std::u16string_view kThreadErrors = u"Quorvel.ThreadErrors";

HRESULT GetHostErrorAccess(REFIID riid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  try {
    // Guarded would clear the error that the caller is about to read.
    return com::Pointer<IThreadErrors>(com::MakeHostErrorAccess())->QueryInterface(riid, object);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

/// The class with the programmatic identifier `progId`; null when hosts may not create one.
const PublishedClass* FindClass(LPCOLESTR progId) {
  const std::string wanted = com::FromWide(progId);
  const auto classes = PublishedClasses();
  const auto found = std::ranges::find_if(classes, [&](const PublishedClass& c) {
    return c.create != nullptr && EqualIgnoringCase(wanted, com::FromWide(kLibraryName) + '.' + com::FromWide(c.name));
  });
  return found != classes.end() ? &*found : nullptr;
}

}  // namespace
}  // namespace quorvel::published

using namespace quorvel::published;

extern "C" QUORVEL_EXPORT HRESULT DllGetClassObject(REFCLSID rclsid, REFIID riid, void** object) {
  return rclsid == CLSID_ThreadErrors ? GetHostErrorAccess(riid, object) : GetClassFactory(rclsid, riid, object);
}

extern "C" QUORVEL_EXPORT HRESULT DllCanUnloadNow() {
  // An error object that no host has taken does not keep the library loaded.
  quorvel::com::ClearError();
  return CanUnload() ? S_OK : S_FALSE;
}

extern "C" QUORVEL_EXPORT HRESULT QuorvelCreate(LPCOLESTR progId, REFIID riid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (progId == nullptr) return E_INVALIDARG;
  if (progId == kThreadErrors) return GetHostErrorAccess(riid, object);
  HRESULT result = S_OK;
  const HRESULT created = quorvel::com::Guarded(riid, [&] {
    const PublishedClass* found = FindClass(progId);
    result = found != nullptr ? quorvel::com::Pointer<IDispatch>(found->create())->QueryInterface(riid, object)
                              : CO_E_CLASSSTRING;
  });
  return FAILED(created) ? created : result;
}
