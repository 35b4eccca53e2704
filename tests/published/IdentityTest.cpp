#include <vector>

#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

// Interfaces have no destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// An object of the host's own that says it is whatever it is asked for, of the component's interfaces. Nothing but
/// these three operations may be called, so it has no others.
class Foreign final : public IUnknown {
 public:
  HRESULT QueryInterface(REFIID riid, void** object) override {
    const bool isKnown = riid == IID_IUnknown || riid == IID_IDispatch || riid == IID__Remark ||
                         riid == IID__RemarkType || riid == IID__RemarkContext;
    *object = isKnown ? this : nullptr;
    if (isKnown) AddRef();
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG AddRef() override { return ++m_references; }
  ULONG Release() override { return --m_references; }

  [[nodiscard]] ULONG References() const { return m_references; }
  template <typename Interface>
  [[nodiscard]] Interface* As() {
    return reinterpret_cast<Interface*>(static_cast<IUnknown*>(this));
  }

 private:
  ULONG m_references = 1;
};

#pragma GCC diagnostic pop

/// The remarks that `list` enumerates.
std::vector<Reference<IDispatch>> Enumerated(_RemarkList* list) {
  Reference<IUnknown> unknown;
  EXPECT_EQ(list->get_NewEnum(unknown.Put()), S_OK);
  const auto remarks = Ask<IEnumVARIANT>(unknown.Get(), IID_IEnumVARIANT);
  std::vector<Reference<IDispatch>> found;
  for (AnyValue each; remarks->Next(1, each.Put(), nullptr) == S_OK;) {
    found.push_back(Ask<IDispatch>(each.Get().pdispVal, IID_IDispatch));
  }
  return found;
}

using Identity = HostTest;

TEST_F(Identity, ARemarkIsOnePointerWhereverItComesFrom) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    EXPECT_EQ(context.List().Get(), list.Get());
    auto third = RemarkAt(list.Get(), 3);
    EXPECT_EQ(RemarkAt(list.Get(), 3).Get(), third.Get());
    EXPECT_EQ(Enumerated(list.Get()).at(2).Get(), third.Get());
    LONG position = 0;
    EXPECT_EQ(list->Index(third.ByReference(), &position), S_OK);
    EXPECT_EQ(position, 3);

    Reference<_Remark> added;
    ASSERT_EQ(list->Add(added.Put()), S_OK);
    EXPECT_EQ(RemarkAt(list.Get(), 8).Get(), added.Get());
    auto own = NewRemark();
    ASSERT_EQ(list->AddRemark(own.ByReference()), S_OK);
    EXPECT_EQ(RemarkAt(list.Get(), 9).Get(), own.Get());
    EXPECT_EQ(list->Index(own.ByReference(), &position), S_OK);
    EXPECT_EQ(position, 9);

    // Equal contents are another remark; one that was taken out is the same remark still.
    auto stranger = NewRemark();
    EXPECT_EQ(list->Index(stranger.ByReference(), &position), S_OK);
    EXPECT_EQ(position, 0);
    AnyValue index(LONG{3});
    EXPECT_EQ(list->Remove(index.Pointer()), S_OK);
    EXPECT_EQ(list->Index(third.ByReference(), &position), S_OK);
    EXPECT_EQ(position, 0);
    EXPECT_EQ(list->AddRemark(third.ByReference()), S_OK);
    EXPECT_EQ(RemarkAt(list.Get(), 9).Get(), third.Get());
  });
}

TEST_F(Identity, TypesAndContextsAreOnePointerToo) {
  Run([] {
    const LoadedContext context;
    const auto type = context.Type(LONG{1});
    EXPECT_EQ(context.Type(u"CUST.AR.COLL").Get(), type.Get());
    Reference<_RemarkType> ofRemark;
    EXPECT_EQ(RemarkAt(context.List().Get(), 1)->get_RemarkType(ofRemark.Put()), S_OK);
    EXPECT_EQ(ofRemark.Get(), type.Get());
    Reference<_RemarkContext> ofType;
    EXPECT_EQ(type->get_Context(ofType.Put()), S_OK);
    EXPECT_EQ(ofType.Get(), context.Get());

    // Another context's objects are others.
    const LoadedContext other;
    EXPECT_NE(other.Type(LONG{1}).Get(), type.Get());
    EXPECT_EQ(type->putref_Context(other.Get()), S_OK);
    EXPECT_EQ(type->get_Context(ofType.Put()), S_OK);
    EXPECT_EQ(ofType.Get(), other.Get());
    EXPECT_EQ(type->putref_Context(context.Get()), S_OK);
  });
}

TEST_F(Identity, ReleasedObjectsComeBackAsThemselves) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    EXPECT_EQ(RemarkAt(list.Get(), 1)->put_UserID(Text(u"kept").Get()), S_OK);
    EXPECT_EQ(Read(RemarkAt(list.Get(), 1).Get(), &_Remark::get_UserID), u"kept");

    // A host may hold a remark, a type or a list longer than what they came from.
    auto remark = RemarkAt(list.Get(), 1);
    const auto type = context.Type(LONG{1});
    EXPECT_EQ(context->Dispose(), S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_UserID), u"kept");
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_OwnerKey), 0);
    EXPECT_EQ(Read(type.Get(), &_RemarkType::get_TypeID), u"Cust.AR.Coll");
    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 0);
    LONG position = 1;
    EXPECT_EQ(list->Index(remark.ByReference(), &position), S_OK);
    EXPECT_EQ(position, 0);
  });
}

void ExpectRulesOfQueryInterface(IDispatch* object, REFIID own, REFIID other) {
  const auto unknown = Ask<IUnknown>(object, IID_IUnknown);
  ASSERT_TRUE(unknown);
  for (const IID& first : {IID_IUnknown, IID_IDispatch, own, IID_ISupportErrorInfo}) {
    const auto part = Ask<IUnknown>(object, first);
    ASSERT_TRUE(part);
    EXPECT_EQ(Ask<IUnknown>(part.Get(), IID_IUnknown).Get(), unknown.Get());
    for (const IID& second : {IID_IUnknown, IID_IDispatch, own, IID_ISupportErrorInfo}) {
      EXPECT_TRUE(Ask<IUnknown>(part.Get(), second));
    }
  }
  for (const IID& none : {other, IID_Other, IID_NULL, IID_IClassFactory, IID_IEnumVARIANT}) {
    void* found = &found;
    EXPECT_EQ(object->QueryInterface(none, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
  }
  EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  const auto errors = Ask<ISupportErrorInfo>(object, IID_ISupportErrorInfo);
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(own), S_OK);
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(other), S_FALSE);
}

TEST_F(Identity, EveryObjectKeepsTheRulesOfQueryInterface) {
  Run([] {
    const LoadedContext context;
    ExpectRulesOfQueryInterface(context.Get(), IID__RemarkContext, IID__RemarkList);
    ExpectRulesOfQueryInterface(context.List().Get(), IID__RemarkList, IID__Remark);
    ExpectRulesOfQueryInterface(RemarkAt(context.List().Get(), 1).Get(), IID__Remark, IID__RemarkType);
    ExpectRulesOfQueryInterface(context.Type(LONG{1}).Get(), IID__RemarkType, IID__RemarkContext);
  });
}

void ExpectRefused(HRESULT result, REFIID interfaceId, WideView wanted) {
  EXPECT_EQ(result, FromNumber(13));
  const TakenError error = TakeError();
  EXPECT_THAT(error.description, HasText(u"no " + WideText(wanted) + u" of this component"));
  EXPECT_EQ(error.interfaceId, interfaceId);
}

TEST_F(Identity, ForeignObjectsAreRefusedInClearWords) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    const auto type = context.Type(LONG{1});
    const auto remark = RemarkAt(list.Get(), 1);
    Foreign foreign;
    auto* pointer = foreign.As<_Remark>();
    ExpectRefused(list->AddRemark(&pointer), IID__RemarkList, u"Remark");
    LONG position = 7;
    ExpectRefused(list->Index(&pointer, &position), IID__RemarkList, u"Remark");
    EXPECT_EQ(position, 0);
    ExpectRefused(remark->putref_RemarkType(foreign.As<_RemarkType>()), IID__Remark, u"RemarkType");
    ExpectRefused(type->putref_Context(foreign.As<_RemarkContext>()), IID__RemarkType, u"RemarkContext");

    EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 7);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_TypeID), u"Cust.AR.Coll");
    Reference<_RemarkContext> kept;
    EXPECT_EQ(type->get_Context(kept.Put()), S_OK);
    EXPECT_EQ(kept.Get(), context.Get());
    EXPECT_EQ(foreign.References(), 1U);
  });
}

TEST_F(Identity, AnObjectOfAnotherClassIsRefused) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    // Of this component, but not a remark.
    const auto type = context.Type(LONG{1});
    auto* pointer = reinterpret_cast<_Remark*>(type.Get());
    ExpectRefused(list->AddRemark(&pointer), IID__RemarkList, u"Remark");
  });
}

TEST_F(Identity, NoObjectIsRefusedWhereOneIsNeeded) {
  Run([] {
    const LoadedContext context;
    const auto list = context.List();
    _Remark* none = nullptr;
    EXPECT_EQ(list->AddRemark(&none), FromNumber(91));
    EXPECT_EQ(TakeError().description, u"Object variable or With block variable not set");
    LONG position = 7;
    EXPECT_EQ(list->Index(&none, &position), S_OK);
    EXPECT_EQ(position, 0);
  });
}

}  // namespace
}  // namespace quorvel::test
