// A COM server that can do nothing but make one object: the least that loading a DLL and making its first object costs.

#include <unknwn.h>

namespace {

// Interfaces have no destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Lives as long as the DLL, as factory and as object.
class EmptyObject final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    if (riid != IID_IUnknown && riid != IID_IClassFactory) return E_NOINTERFACE;
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* /*outer*/, REFIID riid, void** object) override {
    return QueryInterface(riid, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL /*lock*/) override { return S_OK; }
};

#pragma GCC diagnostic pop

EmptyObject only;

}  // namespace

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID /*clsid*/, REFIID riid, void** object) {
  return only.QueryInterface(riid, object);
}
