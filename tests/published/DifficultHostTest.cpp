#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

// What these hosts do is wrong or unlucky; it must not take their process down.
using DifficultHost = HostTest;

// Interfaces have no destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// An object that answers to every interface with itself, as a careless test double does.
struct AnswersToAll final : IUnknown {
  HRESULT QueryInterface(REFIID /*riid*/, void** object) noexcept override {
    *object = this;
    return S_OK;
  }
  ULONG AddRef() noexcept override { return 1; }
  ULONG Release() noexcept override { return 1; }
};

/// A default value whose reading drops what the caller is using.
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
  Reference<_RemarkList> list;
};

#pragma GCC diagnostic pop

TEST_F(DifficultHost, ObjectsThatAnswerToEveryInterfaceAreStrangers) {
  Run([] {
    const LoadedContext context;
    AnswersToAll stranger;
    auto* remark = reinterpret_cast<_Remark*>(&stranger);
    const LONG count = Read(context.List().Get(), &_RemarkList::get_Count);
    EXPECT_EQ(context.List()->AddRemark(&remark), FromNumber(13));
    EXPECT_THAT(TakeError().description, HasText(u"no Remark of this component"));
    EXPECT_EQ(Read(context.List().Get(), &_RemarkList::get_Count), count);
  });
}

TEST_F(DifficultHost, TheListInUseIsReleasedDuringTheCall) {
  Run([] {
    const LoadedContext context;
    DropsTheList index;
    index.context = context.Get();
    index.list = context.List();
    VARIANT given;
    VariantInit(&given);
    given.vt = VT_DISPATCH;
    given.pdispVal = &index;
    // Disposing of the context has emptied the list.
    EXPECT_EQ(index.list.Get()->Remove(&given), FromNumber(9));
  });
}

/// What a host keeps for a thread is destroyed after what the component keeps for it, when it was made before.
struct SavesInTheEnd {
  Reference<_RemarkContext> context;
  HRESULT* saved = nullptr;
  WideText* description = nullptr;
  ~SavesInTheEnd() {
    if (saved == nullptr) return;
    *saved = context->Save(VARIANT_TRUE);
    *description = TakeError().description;
    context->Dispose();
  }
};

TEST_F(DifficultHost, SavingWhenTheThreadHasGivenItsConnectionBackIsAnError) {
  HRESULT saved = S_OK;
  WideText description;
  Run([&] {
    thread_local SavesInTheEnd late;
    late.context = NewContext();
    ASSERT_EQ(late.context->Load(Text(u"CustMaint").Get(), Text(u"C1044").Get(), Text(u"admin").Get()), S_OK);
    AnyValue type(u"Cust.General");
    Text text(u"too late");
    ASSERT_EQ(late.context->AddRemark(type.Pointer(), text.ByReference(), nullptr), S_OK);
    late.saved = &saved;
    late.description = &description;
  });
  EXPECT_EQ(saved, -1);
  EXPECT_THAT(description, BeginsWith(u"The thread is ending"));
}

}  // namespace
}  // namespace quorvel::test
