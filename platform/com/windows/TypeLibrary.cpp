#include "platform/com/TypeLibrary.h"

#include <atomic>

#include "platform/com/Pointer.h"
#include "platform/windows/ModulePath.h"

namespace quorvel::com {
namespace {

/// Never released, because a DLL must not call other DLLs while it is being unloaded. The system returns the same
/// object when the library is loaded again, so a process has one at most.
constinit std::atomic<ITypeLib*> keptLibrary = nullptr;

/// Opens the type library in the component's own file without registering it.
HRESULT Open(Pointer<ITypeLib>& library) noexcept {
  try {
    return ::LoadTypeLibEx(os::ModulePath().c_str(), REGKIND_NONE, library.Put());
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT Library(ITypeLib*& library) noexcept {
  library = keptLibrary.load(std::memory_order_acquire);
  if (library != nullptr) return S_OK;
  Pointer<ITypeLib> opened;
  const HRESULT result = Open(opened);
  if (FAILED(result)) return result;
  // If another thread was faster, its library is the one to use.
  if (keptLibrary.compare_exchange_strong(library, opened.Get(), std::memory_order_acq_rel)) library = opened.Release();
  return S_OK;
}

}  // namespace

UINT TypeInfoCount() noexcept { return 1; }

HRESULT TypeInfoOf(REFGUID id, ITypeInfo** info) noexcept {
  *info = nullptr;
  ITypeLib* library = nullptr;
  const HRESULT result = Library(library);
  return FAILED(result) ? result : library->GetTypeInfoOfGuid(id, info);
}

}  // namespace quorvel::com
