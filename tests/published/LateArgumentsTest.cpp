#include <vector>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

namespace quorvel::test {
namespace {

using LateArguments = HostTest;

TEST_F(LateArguments, MayBeNamedAndLeftOut) {
  Run([] {
    const auto context = NewContext();
    const auto loaded = [&] {
      WideText all = Read(context.Get(), &_RemarkContext::get_ContextID) + u"," +
                     Read(context.Get(), &_RemarkContext::get_OwnerID) + u"," +
                     Read(context.Get(), &_RemarkContext::get_UserID);
      return all;
    };
    const std::string logon = HostDatabase::LogonName();
    const WideText user(logon.begin(), logon.end());
    const AnyValue id(u"CustMaint");
    EXPECT_EQ(Call(context.Get(), {u"Load", DISPATCH_METHOD, {id}, {}}).invoked, S_OK);
    EXPECT_EQ(loaded(), u"CustMaint,," + user);
    EXPECT_EQ(Call(context.Get(), {u"Load", DISPATCH_METHOD, {id, u"C1000", AnyValue::Missing()}, {}}).invoked, S_OK);
    EXPECT_EQ(loaded(), u"CustMaint,C1000," + user);
    EXPECT_EQ(Call(context.Get(), {u"Load", DISPATCH_METHOD, {id, AnyValue::Missing(), u"admin"}, {}}).invoked, S_OK);
    EXPECT_EQ(loaded(), u"CustMaint,,admin");
    EXPECT_EQ(
        Call(context.Get(), {u"load", DISPATCH_METHOD, {}, {{u"I_SUSERID", u"mjones"}, {u"i_scontextid", id}}}).invoked,
        S_OK);
    EXPECT_EQ(loaded(), u"CustMaint,,mjones");
    EXPECT_EQ(
        Call(context.Get(), {u"Load", DISPATCH_METHOD, {id}, {{u"i_sUserID", u"jsmith"}, {u"i_sOwnerID", u"C1001"}}})
            .invoked,
        S_OK);
    EXPECT_EQ(loaded(), u"CustMaint,C1001,jsmith");

    // Defaults that are not empty texts.
    Reference<_RemarkList> list;
    ASSERT_EQ(context->get_RemarkList(list.Put()), S_OK);
    EXPECT_EQ(CallGet(list.Get(), u"Clear").invoked, S_OK);
    EXPECT_EQ(CallGet(list.Get(), u"Add").invoked, S_OK) << "by default the list stays usable";
    EXPECT_EQ(CallGet(context.Get(), u"ViewManager").description,
              CallGet(context.Get(), u"ViewManager", {LONG{0}}).description);
    EXPECT_EQ(context->Dispose(), S_OK);
  });
}

TEST_F(LateArguments, OfTheWrongNumberOrNameAreRefused) {
  Run([] {
    const LoadedContext context;
    const auto refused = [&](LateCall call) { return Call(context.Get(), std::move(call)).invoked; };
    EXPECT_EQ(refused({u"Load", DISPATCH_METHOD, {}, {}}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(refused({u"Load", DISPATCH_METHOD, {AnyValue::Missing()}, {}}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(refused({u"Load", DISPATCH_METHOD, {u"a", u"b", u"c", u"d"}, {}}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(refused({u"Dispose", DISPATCH_METHOD, {u"a"}, {}}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(refused({u"Caption", DISPATCH_PROPERTYGET, {LONG{1}}, {}}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(refused({u"OwnerKey", DISPATCH_PROPERTYPUT, {}, {}}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(refused({u"AddRemark", DISPATCH_METHOD, {LONG{1}}, {}}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(refused({u"Load", DISPATCH_METHOD, {u"a"}, {{u"i_sContextID", u"b"}}}), DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(refused({u"Caption", DISPATCH_PROPERTYPUT, {u"new"}, {}}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(refused({u"Load", DISPATCH_PROPERTYPUT, {u"new"}, {}}), DISP_E_MEMBERNOTFOUND);

    const LateOutcome wrong = Call(context.Get(), {u"Load", DISPATCH_METHOD, {u"a", AnyValue::Null(), u"c"}, {}});
    EXPECT_EQ(wrong.invoked, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(wrong.argumentInError, 1U);
    EXPECT_EQ(Read(context.Get(), &_RemarkContext::get_ContextID), u"CustMaint") << "nothing was called";
  });
}

TEST_F(LateArguments, BehindAPropertyGoToTheDefaultMember) {
  Run([] {
    const LoadedContext context;
    const auto second = RemarkAt(context.List().Get(), 2);
    EXPECT_EQ(CallGet(context.Get(), u"RemarkList", {LONG{2}}).value.Get().pdispVal, second.Get());
    EXPECT_EQ(CallGet(context.Get(), u"RemarkList", {u"2"}).value.Get().pdispVal, nullptr);
    EXPECT_EQ(CallGet(second.Get(), u"RemarkType", {LONG{1}}).invoked, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(CallGet(context.Get(), u"RemarkList", {LONG{1}, LONG{2}}).invoked, DISP_E_BADPARAMCOUNT);

    // The default member itself, as a script calls it.
    for (const AnyValue& key : {AnyValue(u"CUST.credit"), AnyValue(LONG{2}), AnyValue(2.0)}) {
      VARIANT given = key.Get();
      DISPPARAMS arguments{&given, nullptr, 1, 0};
      AnyValue found;
      EXPECT_EQ(context->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &arguments,
                                found.Put(), nullptr, nullptr),
                S_OK);
      EXPECT_EQ(found.Get().pdispVal, context.Type(LONG{2}).Get());
    }
    EXPECT_EQ(context->Dispose(), S_OK);
    const LateOutcome none = CallGet(context.Get(), u"RemarkList", {LONG{1}});
    EXPECT_EQ(none.invoked, DISP_E_EXCEPTION);
    EXPECT_EQ(none.result, FromNumber(91));
  });
}

TEST_F(LateArguments, NamesThatAreNotThere) {
  Run([] {
    const auto remark = NewRemark();
    for (const auto* name : {u"", u"Memo", u"MemoTexts", u"get_MemoText", u"QueryInterface", u"Count", u"MemoText "}) {
      auto* pointer = const_cast<LPOLESTR>(name);
      DISPID id = 5;
      EXPECT_EQ(remark->GetIDsOfNames(IID_NULL, &pointer, 1, 0, &id), DISP_E_UNKNOWNNAME)
          << testing::PrintToString(name);
      EXPECT_EQ(id, DISPID_UNKNOWN);
    }
    const auto context = NewContext();
    const LPOLESTR names[] = {const_cast<LPOLESTR>(u"Load"), const_cast<LPOLESTR>(u"i_sOwner"),
                              const_cast<LPOLESTR>(u"i_sUserID")};
    DISPID ids[] = {9, 9, 9};
    EXPECT_EQ(context->GetIDsOfNames(IID_NULL, const_cast<LPOLESTR*>(names), 3, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_THAT(ids, testing::ElementsAre(29, DISPID_UNKNOWN, 2));
    for (const DISPID id : {DISPID_UNKNOWN, DISPID{2}, DISPID{38}, DISPID_PROPERTYPUT}) {
      DISPPARAMS none{};
      EXPECT_EQ(context->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
                DISP_E_MEMBERNOTFOUND);
    }
  });
}

TEST_F(LateArguments, NullPointersAndWrongInterfacesAreRefused) {
  Run([] {
    const auto remark = NewRemark();
    auto* name = const_cast<LPOLESTR>(u"MemoText");
    LPOLESTR noName = nullptr;
    DISPID id = 0;
    EXPECT_EQ(remark->GetIDsOfNames(IID_IDispatch, &name, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(remark->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_POINTER);
    EXPECT_EQ(remark->GetIDsOfNames(IID_NULL, &name, 1, 0, nullptr), E_POINTER);
    EXPECT_TRUE(FAILED(remark->GetIDsOfNames(IID_NULL, &noName, 1, 0, &id)));

    DISPPARAMS none{};
    AnyValue result;
    EXPECT_EQ(remark->Invoke(14, IID_IDispatch, 0, DISPATCH_PROPERTYGET, &none, result.Put(), nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(remark->Invoke(14, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, result.Put(), nullptr, nullptr),
              E_POINTER);
    EXPECT_EQ(remark->Invoke(14, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(remark->Invoke(18, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr), DISP_E_EXCEPTION);
    DISPPARAMS promised{nullptr, nullptr, 1, 0};
    EXPECT_TRUE(FAILED(remark->Invoke(14, IID_NULL, 0, DISPATCH_PROPERTYPUT, &promised, nullptr, nullptr, nullptr)));
    VARIANT value = AnyValue(LONG{1}).Get();
    DISPPARAMS unnamed{&value, nullptr, 1, 1};
    EXPECT_TRUE(FAILED(remark->Invoke(3, IID_NULL, 0, DISPATCH_PROPERTYPUT, &unnamed, nullptr, nullptr, nullptr)));

    UINT count = 7;
    EXPECT_EQ(remark->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 0U);
    EXPECT_EQ(remark->GetTypeInfoCount(nullptr), E_POINTER);
    auto* info = reinterpret_cast<ITypeInfo*>(&count);
    EXPECT_TRUE(FAILED(remark->GetTypeInfo(0, 0, &info)));
    EXPECT_EQ(info, nullptr);
    EXPECT_EQ(remark->GetTypeInfo(0, 0, nullptr), E_POINTER);
  });
}

}  // namespace
}  // namespace quorvel::test
