#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

// These hosts make mistakes or have bad luck; neither may crash their process.
using DifficultHost = HostTest;

// Interfaces have no destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// An object that releases the list and disposes of the context when its default value is read.
struct DropsTheList final : IDispatch {
  HRESULT QueryInterface(REFIID riid, void** object) noexcept override {
    *object = riid == IID_IUnknown || riid == IID_IDispatch ? this : nullptr;
    return *object != nullptr ? S_OK : E_NOINTERFACE;
  }
  ULONG AddRef() noexcept override { return 1; }
  ULONG Release() noexcept override { return 1; }
  HRESULT GetTypeInfoCount(UINT* /*count*/) noexcept override { return E_NOTIMPL; }
  HRESULT GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) noexcept override { return E_NOTIMPL; }
  HRESULT GetIDsOfNames(REFIID /*riid*/, LPOLESTR* /*names*/, UINT /*count*/, LCID /*locale*/,
                        DISPID* /*ids*/) noexcept override {
    return E_NOTIMPL;
  }
  HRESULT Invoke(DISPID /*member*/, REFIID /*riid*/, LCID /*locale*/, WORD /*flags*/, DISPPARAMS* /*arguments*/,
                 VARIANT* result, EXCEPINFO* /*exception*/, UINT* /*argumentInError*/) noexcept override {
    list = {};
    result->vt = VT_I4;
    result->lVal = 1;
    return context->Dispose();
  }
  _RemarkContext* context = nullptr;
  Pointer<_RemarkList> list;
};

#pragma GCC diagnostic pop

TEST_F(DifficultHost, ReleasingTheListDuringItsOwnCallIsSafe) {
  Run([] {
    const LoadedContext context;
    DropsTheList index;
    index.context = context.Get();
    index.list = context.List();
    AnyValue given(&index);
    EXPECT_EQ(index.list.Get()->Remove(given.Pointer()), FromNumber(9)) << "Dispose has emptied the list";
  });
}

/// A thread-local object that is made before the component's is destroyed after it.
struct SavesAtThreadEnd {
  Pointer<_RemarkContext> context;
  HRESULT* saved = nullptr;
  WideText* description = nullptr;
  ~SavesAtThreadEnd() {
    if (saved == nullptr) return;
    *saved = context->Save(VARIANT_TRUE);
    *description = TakeError().description;
    context->Dispose();
  }
};

TEST_F(DifficultHost, SavingAfterTheThreadClosedItsConnectionIsAnError) {
  HRESULT saved = S_OK;
  WideText description;
  Run([&] {
    thread_local SavesAtThreadEnd late;
    late.context = NewContext();
    ASSERT_EQ(Load(late.context.Get(), u"CustMaint", u"C1044", u"admin"), S_OK);
    ASSERT_EQ(AddTo(late.context.Get(), u"Cust.General", u"too late"), S_OK);
    late.saved = &saved;
    late.description = &description;
  });
  EXPECT_EQ(saved, -1);
  EXPECT_THAT(description, BeginsWith(u"The thread is ending"));
}

}  // namespace
}  // namespace quorvel::test
