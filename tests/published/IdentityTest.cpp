// COM identity: one pointer for each object, the rules of QueryInterface, and the refusal of objects that are not of
// this component.

#include <functional>
#include <vector>

#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

// Interfaces have no destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// An object of the host that claims to have the component's interfaces or, like a careless test double, every
/// interface. The component may ask it for interfaces and for its default value and for nothing else.
class HostObject final : public IDispatch {
 public:
  explicit HostObject(bool claimsEverything, std::function<LONG()> defaultValue = {})
      : m_claimsEverything(claimsEverything), m_defaultValue(std::move(defaultValue)) {}
  HRESULT QueryInterface(REFIID riid, void** object) override {
    const bool isClaimed = m_claimsEverything || riid == IID_IUnknown || riid == IID_IDispatch || riid == IID__Remark ||
                           riid == IID__RemarkType || riid == IID__RemarkContext;
    *object = isClaimed ? this : nullptr;
    if (isClaimed) AddRef();
    return isClaimed ? S_OK : E_NOINTERFACE;
  }
  ULONG AddRef() override { return ++m_references; }
  ULONG Release() override { return --m_references; }
  HRESULT GetTypeInfoCount(UINT* /*count*/) override { return E_NOTIMPL; }
  HRESULT GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) override { return E_NOTIMPL; }
  HRESULT GetIDsOfNames(REFIID /*riid*/, LPOLESTR* /*names*/, UINT /*count*/, LCID /*locale*/,
                        DISPID* /*ids*/) override {
    return E_NOTIMPL;
  }
  HRESULT Invoke(DISPID member, REFIID /*riid*/, LCID /*locale*/, WORD flags, DISPPARAMS* /*arguments*/,
                 VARIANT* result, EXCEPINFO* /*exception*/, UINT* /*argumentInError*/) override {
    if (member != DISPID_VALUE || flags != DISPATCH_PROPERTYGET) return DISP_E_MEMBERNOTFOUND;
    *result = AnyValue(m_defaultValue()).Get();
    return S_OK;
  }

 private:
  bool m_claimsEverything;
  std::function<LONG()> m_defaultValue;
  ULONG m_references = 1;
};

#pragma GCC diagnostic pop

using Identity = LoadedHostTest;

TEST_F(Identity, ObjectIsOnePointerOnEveryPath) {
  const auto list = m_context.List();
  EXPECT_EQ(m_context.List().Get(), list.Get());
  const auto third = RemarkAt(list.Get(), 3);
  EXPECT_EQ(RemarkAt(list.Get(), 3).Get(), third.Get());
  EXPECT_EQ(PositionOf(list.Get(), third.Get()), 3);
  const auto unknown = Read(list.Get(), &_RemarkList::get_NewEnum);
  const auto remarks = Query<IEnumVARIANT>(unknown.Get(), IID_IEnumVARIANT);
  AnyValue enumerated;
  EXPECT_EQ(remarks->Skip(2), S_OK);
  EXPECT_EQ(remarks->Next(1, enumerated.Put(), nullptr), S_OK);
  EXPECT_EQ(enumerated.Get().pdispVal, third.Get());

  const auto added = Read(list.Get(), &_RemarkList::Add);
  EXPECT_EQ(RemarkAt(list.Get(), 8).Get(), added.Get());
  const auto own = NewRemark();
  EXPECT_EQ(PositionOf(list.Get(), own.Get()), 0) << "a remark with equal content is a different one";
  ASSERT_EQ(AddTo(list.Get(), own.Get()), S_OK);
  EXPECT_EQ(RemarkAt(list.Get(), 9).Get(), own.Get());
  EXPECT_EQ(PositionOf(list.Get(), own.Get()), 9);

  AnyValue index(LONG{3});
  EXPECT_EQ(list->Remove(index.Pointer()), S_OK);
  EXPECT_EQ(PositionOf(list.Get(), third.Get()), 0);
  EXPECT_EQ(AddTo(list.Get(), third.Get()), S_OK);
  EXPECT_EQ(RemarkAt(list.Get(), 9).Get(), third.Get());

  const auto type = m_context.Type(LONG{1});
  EXPECT_EQ(m_context.Type(u"CUST.AR.COLL").Get(), type.Get());
  EXPECT_EQ(Read(RemarkAt(m_context.List().Get(), 1).Get(), &_Remark::get_RemarkType).Get(), type.Get());
  EXPECT_EQ(Read(type.Get(), &_RemarkType::get_Context).Get(), m_context.Get());

  const LoadedContext other;
  EXPECT_NE(other.Type(LONG{1}).Get(), type.Get());
  EXPECT_EQ(type->putref_Context(other.Get()), S_OK);
  EXPECT_EQ(Read(type.Get(), &_RemarkType::get_Context).Get(), other.Get());
  EXPECT_EQ(type->putref_Context(m_context.Get()), S_OK);
}

TEST_F(Identity, RuntimeObjectsOutliveTheirPublishedObjectAndTheirContext) {
  const auto list = m_context.List();
  EXPECT_EQ(RemarkAt(list.Get(), 1)->put_UserID(Text(u"kept").Get()), S_OK);
  const auto remark = RemarkAt(list.Get(), 1);
  EXPECT_EQ(Read(remark.Get(), &_Remark::get_UserID), u"kept");

  const auto type = m_context.Type(LONG{1});
  EXPECT_EQ(m_context->Dispose(), S_OK);
  EXPECT_EQ(Read(remark.Get(), &_Remark::get_UserID), u"kept");
  EXPECT_EQ(Read(remark.Get(), &_Remark::get_OwnerKey), 0);
  EXPECT_EQ(Read(type.Get(), &_RemarkType::get_TypeID), u"Cust.AR.Coll");
  EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 0);
  EXPECT_EQ(PositionOf(list.Get(), remark.Get()), 0);
}

void ExpectRulesOfQueryInterface(IDispatch* object, REFIID own, REFIID other) {
  const auto unknown = Query<IUnknown>(object, IID_IUnknown);
  ASSERT_TRUE(unknown);
  for (const IID& first : {IID_IUnknown, IID_IDispatch, own, IID_ISupportErrorInfo}) {
    const auto part = Query<IUnknown>(object, first);
    ASSERT_TRUE(part);
    for (const IID& second : {IID_IUnknown, IID_IDispatch, own, IID_ISupportErrorInfo}) {
      EXPECT_TRUE(Query<IUnknown>(part.Get(), second));
    }
    EXPECT_EQ(Query<IUnknown>(part.Get(), IID_IUnknown).Get(), unknown.Get());
  }
  for (const IID& none : {other, LIBID_Quorvel, IID_NULL, IID_IClassFactory, IID_IEnumVARIANT}) {
    void* found = &found;
    EXPECT_EQ(object->QueryInterface(none, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
  }
  EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  const auto errors = Query<ISupportErrorInfo>(object, IID_ISupportErrorInfo);
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(own), S_OK);
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(other), S_FALSE);
}

TEST_F(Identity, EveryObjectFollowsTheRulesOfQueryInterface) {
  ExpectRulesOfQueryInterface(m_context.Get(), IID__RemarkContext, IID__RemarkList);
  ExpectRulesOfQueryInterface(m_context.List().Get(), IID__RemarkList, IID__Remark);
  ExpectRulesOfQueryInterface(RemarkAt(m_context.List().Get(), 1).Get(), IID__Remark, IID__RemarkType);
  ExpectRulesOfQueryInterface(m_context.Type(LONG{1}).Get(), IID__RemarkType, IID__RemarkContext);
}

void ExpectRefused(HRESULT result, REFIID interfaceId, WideView wanted) {
  EXPECT_EQ(result, FromNumber(13));
  const TakenError error = TakeError();
  EXPECT_THAT(error.description, HasText(u"no " + WideText(wanted) + u" of this component"));
  EXPECT_EQ(error.interfaceId, interfaceId);
}

TEST_F(Identity, StrangersAreRefused) {
  const auto list = m_context.List();
  const auto type = m_context.Type(LONG{1});
  const auto remark = RemarkAt(list.Get(), 1);
  HostObject foreign(false);
  HostObject careless(true);
  // The list is of this component, but of another class than every call here takes.
  for (IUnknown* stranger : std::vector<IUnknown*>{&foreign, &careless, list.Get()}) {
    const ULONG references = stranger->AddRef();
    auto* pointer = reinterpret_cast<_Remark*>(stranger);
    LONG position = 7;
    ExpectRefused(list->AddRemark(&pointer), IID__RemarkList, u"Remark");
    ExpectRefused(list->Index(&pointer, &position), IID__RemarkList, u"Remark");
    EXPECT_EQ(position, 0);
    ExpectRefused(remark->putref_RemarkType(reinterpret_cast<_RemarkType*>(stranger)), IID__Remark, u"RemarkType");
    ExpectRefused(type->putref_Context(reinterpret_cast<_RemarkContext*>(stranger)), IID__RemarkType, u"RemarkContext");
    EXPECT_EQ(stranger->Release(), references - 1) << "a refused object keeps no reference";
  }
  EXPECT_EQ(Read(list.Get(), &_RemarkList::get_Count), 7);
  EXPECT_EQ(Read(remark.Get(), &_Remark::get_TypeID), u"Cust.AR.Coll");
  EXPECT_EQ(Read(type.Get(), &_RemarkType::get_Context).Get(), m_context.Get());

  EXPECT_EQ(AddTo(list.Get(), nullptr), FromNumber(91));
  EXPECT_EQ(TakeError().description, u"Object variable or With block variable not set");
  EXPECT_EQ(PositionOf(list.Get(), nullptr), 0);
}

TEST_F(Identity, HostObjectGivesAnIndexAndMayReleaseTheListMeanwhile) {
  HostObject second(false, [] { return LONG{2}; });
  EXPECT_EQ(m_context.Type(AnyValue(&second)).Get(), m_context.Type(LONG{2}).Get());

  auto list = m_context.List();
  HostObject index(false, [&] {
    list.Reset();
    m_context->Dispose();
    return LONG{1};
  });
  EXPECT_EQ(list.Get()->Remove(AnyValue(&index).Pointer()), FromNumber(9)) << "Dispose has emptied the list";
}

}  // namespace
}  // namespace quorvel::test
