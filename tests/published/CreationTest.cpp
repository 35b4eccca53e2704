#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

using Creation = HostTest;

TEST_F(Creation, ByProgrammaticIdentifierInAnyLetterCase) {
  Run([] {
    for (const auto* name :
         {u"Quorvel.RemarkContext", u"QUORVEL.remarkcontext", u"Quorvel.Remark", u"quorvel.REMARK"}) {
      Reference<IUnknown> object;
      EXPECT_EQ(QuorvelCreate(name, IID_IUnknown, object.PutAny()), S_OK);
      EXPECT_TRUE(object);
    }
    for (const auto* name : {u"", u"Quorvel", u"Quorvel.", u"RemarkContext", u"Quorvel.RemarkType",
                             u"Quorvel.RemarkList", u"Quorvel.Remark ", u"Quorvel.RemarkContext.1"}) {
      void* object = &object;
      EXPECT_EQ(QuorvelCreate(name, IID_IUnknown, &object), CO_E_CLASSSTRING) << testing::PrintToString(name);
      EXPECT_EQ(object, nullptr);
    }
    void* object = &object;
    EXPECT_EQ(QuorvelCreate(u"Quorvel.Remark", IID__RemarkContext, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(QuorvelCreate(nullptr, IID_IUnknown, &object), E_INVALIDARG);
    EXPECT_EQ(QuorvelCreate(u"Quorvel.Remark", IID_IUnknown, nullptr), E_POINTER);
  });
}

TEST_F(Creation, OfTwoClassesOnlyThroughClassObjects) {
  Run([] {
    struct Case {
      const GUID& classId;
      HRESULT result;
    };
    for (const Case& each :
         {Case{CLSID_RemarkContext, S_OK}, Case{CLSID_Remark, S_OK}, Case{CLSID_RemarkType, CLASS_E_CLASSNOTAVAILABLE},
          Case{CLSID_RemarkList, CLASS_E_CLASSNOTAVAILABLE}, Case{IID__Remark, CLASS_E_CLASSNOTAVAILABLE},
          Case{IID_Other, CLASS_E_CLASSNOTAVAILABLE}}) {
      void* object = &object;
      EXPECT_EQ(DllGetClassObject(each.classId, IID_IClassFactory, &object), each.result);
      EXPECT_EQ(object != nullptr, each.result == S_OK);
      const Reference<IClassFactory> factory(static_cast<IClassFactory*>(object));
      EXPECT_EQ(DllGetClassObject(each.classId, IID_IClassFactory, nullptr), E_POINTER);
    }
    void* object = &object;
    EXPECT_EQ(DllGetClassObject(CLSID_Remark, IID_IDispatch, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
  });
}

TEST_F(Creation, ClassFactoryKeepsTheRulesOfFactories) {
  Run([] {
    Reference<IClassFactory> factory;
    ASSERT_EQ(DllGetClassObject(CLSID_Remark, IID_IClassFactory, factory.PutAny()), S_OK);
    EXPECT_EQ(Ask<IUnknown>(factory.Get(), IID_IUnknown).Get(), factory.Get());

    Reference<_Remark> first;
    Reference<_Remark> second;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID__Remark, first.PutAny()), S_OK);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID__Remark, second.PutAny()), S_OK);
    EXPECT_NE(first.Get(), second.Get());

    void* object = &object;
    EXPECT_EQ(factory->CreateInstance(first.Get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
    object = &object;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID__RemarkContext, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID__Remark, nullptr), E_POINTER);
  });
}

TEST_F(Creation, WhateverIsHeldKeepsTheLibraryLoaded) {
  Run([] {
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
    Reference<IClassFactory> factory;
    ASSERT_EQ(DllGetClassObject(CLSID_RemarkContext, IID_IClassFactory, factory.PutAny()), S_OK);
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    EXPECT_EQ(factory->LockServer(1), S_OK);
    EXPECT_EQ(factory->LockServer(1), S_OK);
    factory.Reset();
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    ASSERT_EQ(DllGetClassObject(CLSID_Remark, IID_IClassFactory, factory.PutAny()), S_OK);
    EXPECT_EQ(factory->LockServer(0), S_OK);
    EXPECT_EQ(factory->LockServer(0), S_OK);
    factory.Reset();
    EXPECT_EQ(DllCanUnloadNow(), S_OK);

    {
      const LoadedContext context;
      Reference<IUnknown> remarks;
      ASSERT_EQ(context.List()->get_NewEnum(remarks.Put()), S_OK);
      EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
      auto remark = RemarkAt(context.List().Get(), 1);
    }
    EXPECT_EQ(DllCanUnloadNow(), S_OK);

    // An error that nobody takes holds nothing.
    EXPECT_EQ(NewContext()->Load(Text(u"None").Get(), nullptr, nullptr), -1);
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
  });
}

TEST_F(Creation, ReferencesAreCounted) {
  Run([] {
    const auto remark = NewRemark();
    EXPECT_EQ(remark->AddRef(), 2U);
    EXPECT_EQ(remark->AddRef(), 3U);
    EXPECT_EQ(remark->Release(), 2U);
    EXPECT_EQ(remark->Release(), 1U);
  });
}

}  // namespace
}  // namespace quorvel::test
