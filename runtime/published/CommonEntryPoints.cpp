#include "runtime/published/CommonEntryPoints.h"

#include <algorithm>

#include "platform/com/CallGuard.h"
#include "platform/com/ClassFactory.h"
#include "platform/com/Pointer.h"
#include "platform/com/ServerLock.h"
#include "runtime/published/PublishedClasses.h"

namespace quorvel::published {

HRESULT GetClassFactory(REFCLSID classId, REFIID riid, void** object) noexcept {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto classes = PublishedClasses();
  const auto found = std::ranges::find_if(
      classes, [&](const PublishedClass& c) { return c.classId == classId && c.create != nullptr; });
  if (found == classes.end()) return CLASS_E_CLASSNOTAVAILABLE;
  com::Pointer<IClassFactory> factory;
  const HRESULT result = com::Guarded(IID_IClassFactory, [&] { factory.Reset(com::MakeClassFactory(found->create)); });
  return FAILED(result) ? result : factory->QueryInterface(riid, object);
}

bool CanUnload() noexcept { return com::ServerLock::None(); }

}  // namespace quorvel::published
