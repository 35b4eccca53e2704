#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

using Creation = HostTest;

/// Expects that `create` fails and delivers nothing.
template <typename Create>
void ExpectNothing(HRESULT expected, Create create) {
  void* object = &object;
  EXPECT_EQ(create(&object), expected);
  EXPECT_EQ(object, nullptr);
}

TEST_F(Creation, ByProgrammaticIdentifierInAnyLetterCase) {
  for (const auto* name : {u"Quorvel.RemarkContext", u"quorvel.REMARK"}) {
    Pointer<IUnknown> object;
    EXPECT_EQ(QuorvelCreate(name, IID_IUnknown, PutAny(object)), S_OK);
    EXPECT_TRUE(object);
  }
  for (const auto* name : {u"", u"Quorvel.", u"RemarkContext", u"Quorvel.RemarkType", u"Quorvel.RemarkList",
                           u"Quorvel.Remark ", u"Quorvel.RemarkContext.1"}) {
    SCOPED_TRACE(testing::PrintToString(name));
    ExpectNothing(CO_E_CLASSSTRING, [&](void** object) { return QuorvelCreate(name, IID_IUnknown, object); });
  }
  ExpectNothing(E_NOINTERFACE,
                [](void** object) { return QuorvelCreate(u"Quorvel.Remark", IID__RemarkContext, object); });
  ExpectNothing(E_INVALIDARG, [](void** object) { return QuorvelCreate(nullptr, IID_IUnknown, object); });
  EXPECT_EQ(QuorvelCreate(u"Quorvel.Remark", IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(Creation, ByClassFactory) {
  for (const GUID& hidden : {CLSID_RemarkType, CLSID_RemarkList, IID__Remark}) {
    ExpectNothing(CLASS_E_CLASSNOTAVAILABLE,
                  [&](void** object) { return DllGetClassObject(hidden, IID_IClassFactory, object); });
  }
  ExpectNothing(E_NOINTERFACE, [](void** object) { return DllGetClassObject(CLSID_Remark, IID_IDispatch, object); });
  EXPECT_EQ(DllGetClassObject(CLSID_Remark, IID_IClassFactory, nullptr), E_POINTER);

  Pointer<IClassFactory> factory;
  ASSERT_EQ(DllGetClassObject(CLSID_Remark, IID_IClassFactory, PutAny(factory)), S_OK);
  EXPECT_EQ(Query<IUnknown>(factory.Get(), IID_IUnknown).Get(), factory.Get());
  Pointer<_Remark> first;
  Pointer<_Remark> second;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID__Remark, PutAny(first)), S_OK);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID__Remark, PutAny(second)), S_OK);
  EXPECT_NE(first.Get(), second.Get());
  ExpectNothing(CLASS_E_NOAGGREGATION,
                [&](void** object) { return factory->CreateInstance(first.Get(), IID_IUnknown, object); });
  ExpectNothing(E_NOINTERFACE,
                [&](void** object) { return factory->CreateInstance(nullptr, IID__RemarkContext, object); });
  EXPECT_EQ(factory->CreateInstance(nullptr, IID__Remark, nullptr), E_POINTER);
}

TEST_F(Creation, ObjectsAndLocksKeepTheLibraryLoaded) {
  EXPECT_EQ(DllCanUnloadNow(), S_OK);
  Pointer<IClassFactory> factory;
  ASSERT_EQ(DllGetClassObject(CLSID_RemarkContext, IID_IClassFactory, PutAny(factory)), S_OK);
  EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
  EXPECT_EQ(factory->LockServer(1), S_OK);
  EXPECT_EQ(factory->LockServer(1), S_OK);
  factory.Reset();
  EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
  ASSERT_EQ(DllGetClassObject(CLSID_Remark, IID_IClassFactory, PutAny(factory)), S_OK);
  EXPECT_EQ(factory->LockServer(0), S_OK);
  EXPECT_EQ(factory->LockServer(0), S_OK);
  factory.Reset();
  EXPECT_EQ(DllCanUnloadNow(), S_OK);

  {
    const auto remarks = Read(LoadedContext().List().Get(), &_RemarkList::get_NewEnum);
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
  }
  // An error object that the host does not take.
  EXPECT_EQ(Load(NewContext().Get(), u"None"), -1);
  EXPECT_EQ(DllCanUnloadNow(), S_OK);

  const auto remark = NewRemark();
  EXPECT_EQ(remark->AddRef(), 2U);
  EXPECT_EQ(remark->Release(), 1U);
}

}  // namespace
}  // namespace quorvel::test
