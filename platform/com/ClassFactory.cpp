#include "platform/com/ClassFactory.h"

#include "platform/com/CallGuard.h"
#include "platform/com/Object.h"
#include "platform/com/Pointer.h"

namespace quorvel::com {
namespace {

class ClassFactory final : public Object<IClassFactory> {
 public:
  explicit ClassFactory(IDispatch* (*create)()) noexcept : Object(IID_IClassFactory), m_create(create) {}

  HRESULT QUORVEL_CALL CreateInstance(IUnknown* outer, REFIID riid, void** object) noexcept override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    Pointer<IDispatch> created;
    const HRESULT result = Guarded(IID_IClassFactory, [&] { created.Reset(m_create()); });
    return FAILED(result) ? result : created->QueryInterface(riid, object);
  }
  HRESULT QUORVEL_CALL LockServer(BOOL lock) noexcept override {
    if (lock != 0) {
      ServerLock::Add();
    } else {
      ServerLock::Remove();
    }
    return S_OK;
  }

 private:
  IDispatch* (*m_create)();
};

}  // namespace

IClassFactory* MakeClassFactory(IDispatch* (*create)()) { return new ClassFactory(create); }

}  // namespace quorvel::com
