#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

using Creation = HostTest;

TEST_F(Creation, ByProgrammaticIdentifierInAnyLetterCase) {
  for (const auto* name : {u"Quorvel.RemarkContext", u"quorvel.REMARK"}) {
    Pointer<IUnknown> object;
    EXPECT_EQ(QuorvelCreate(name, IID_IUnknown, PutAny(object)), S_OK);
    EXPECT_TRUE(object);
  }
  void* object = &object;
  for (const auto* name : {u"", u"Quorvel.", u"RemarkContext", u"Quorvel.RemarkType", u"Quorvel.RemarkList",
                           u"Quorvel.Remark ", u"Quorvel.RemarkContext.1"}) {
    EXPECT_EQ(QuorvelCreate(name, IID_IUnknown, &object), CO_E_CLASSSTRING) << testing::PrintToString(name);
    EXPECT_EQ(object, nullptr);
    object = &object;
  }
  EXPECT_EQ(QuorvelCreate(u"Quorvel.Remark", IID__RemarkContext, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(QuorvelCreate(nullptr, IID_IUnknown, &object), E_INVALIDARG);
  EXPECT_EQ(QuorvelCreate(u"Quorvel.Remark", IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(Creation, ByClassFactory) {
  void* object = &object;
  for (const GUID& hidden : {CLSID_RemarkType, CLSID_RemarkList, IID__Remark}) {
    EXPECT_EQ(DllGetClassObject(hidden, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    object = &object;
  }
  EXPECT_EQ(DllGetClassObject(CLSID_Remark, IID_IDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(DllGetClassObject(CLSID_Remark, IID_IClassFactory, nullptr), E_POINTER);

  Pointer<IClassFactory> factory;
  ASSERT_EQ(DllGetClassObject(CLSID_Remark, IID_IClassFactory, PutAny(factory)), S_OK);
  EXPECT_EQ(Query<IUnknown>(factory.Get(), IID_IUnknown).Get(), factory.Get());
  Pointer<_Remark> first;
  Pointer<_Remark> second;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID__Remark, PutAny(first)), S_OK);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID__Remark, PutAny(second)), S_OK);
  EXPECT_NE(first.Get(), second.Get());
  object = &object;
  EXPECT_EQ(factory->CreateInstance(first.Get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
  object = &object;
  EXPECT_EQ(factory->CreateInstance(nullptr, IID__RemarkContext, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID__Remark, nullptr), E_POINTER);
}

TEST_F(Creation, ObjectsAndLocksKeepTheLibraryLoaded) {
  Run([] {
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

    auto remarks = Read(LoadedContext().List().Get(), &_RemarkList::get_NewEnum);
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    remarks.Reset();
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
    // An error object that the host does not take.
    EXPECT_EQ(Load(NewContext().Get(), u"None"), -1);
    EXPECT_EQ(DllCanUnloadNow(), S_OK);

    const auto remark = NewRemark();
    EXPECT_EQ(remark->AddRef(), 2U);
    EXPECT_EQ(remark->Release(), 1U);
  });
}

}  // namespace
}  // namespace quorvel::test
