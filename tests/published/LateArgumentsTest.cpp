// The arguments of calls by name: named, omitted, too many, and for the default member of a delivered object.

#include <tuple>
#include <utility>
#include <vector>

#include "data/modUserName.h"
#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

namespace quorvel::test {
namespace {

using LateArguments = LoadedHostTest;

TEST_F(LateArguments, MayBeNamedAndOmitted) {
  const std::string logon = modUserName::GetUserName();
  const WideText user(logon.begin(), logon.end());
  const AnyValue id(u"CustMaint");
  const std::vector<std::tuple<LateCall, WideView, WideView>> cases{
      {{u"Load", DISPATCH_METHOD, {id}, {}}, u"", user},
      {{u"Load", DISPATCH_METHOD, {id, u"C1000", AnyValue::Missing()}, {}}, u"C1000", user},
      {{u"Load", DISPATCH_METHOD, {id, AnyValue::Missing(), u"admin"}, {}}, u"", u"admin"},
      {{u"load", DISPATCH_METHOD, {}, {{u"I_SUSERID", u"mjones"}, {u"i_scontextid", id}}}, u"", u"mjones"},
      {{u"Load", DISPATCH_METHOD, {id}, {{u"i_sUserID", u"jsmith"}, {u"i_sOwnerID", u"C1001"}}}, u"C1001", u"jsmith"},
  };
  for (const auto& [call, owner, userID] : cases) {
    EXPECT_EQ(Call(m_context.Get(), call).invoked, S_OK);
    ExpectProperties(m_context.Get(), {{u"ContextID", u"CustMaint"}, {u"OwnerID", owner}, {u"UserID", userID}});
  }
  const auto list = m_context.List();
  EXPECT_EQ(CallGet(list.Get(), u"Clear").invoked, S_OK);
  EXPECT_EQ(CallGet(list.Get(), u"Add").invoked, S_OK) << "Clear keeps the list usable by default";
}

TEST_F(LateArguments, WrongNumbersNamesAndTypesAreRefused) {
  const std::vector<std::pair<LateCall, HRESULT>> cases{
      {{u"Load", DISPATCH_METHOD, {}, {}}, DISP_E_PARAMNOTOPTIONAL},
      {{u"Load", DISPATCH_METHOD, {AnyValue::Missing()}, {}}, DISP_E_PARAMNOTOPTIONAL},
      {{u"AddRemark", DISPATCH_METHOD, {1}, {}}, DISP_E_PARAMNOTOPTIONAL},
      {{u"Load", DISPATCH_METHOD, {u"a", u"b", u"c", u"d"}, {}}, DISP_E_BADPARAMCOUNT},
      {{u"Dispose", DISPATCH_METHOD, {u"a"}, {}}, DISP_E_BADPARAMCOUNT},
      {{u"Caption", DISPATCH_PROPERTYGET, {1}, {}}, DISP_E_BADPARAMCOUNT},
      {{u"OwnerKey", DISPATCH_PROPERTYPUT, {}, {}}, DISP_E_BADPARAMCOUNT},
      {{u"Load", DISPATCH_METHOD, {u"a"}, {{u"i_sContextID", u"b"}}}, DISP_E_PARAMNOTFOUND},
      {{u"Caption", DISPATCH_PROPERTYPUT, {u"new"}, {}}, DISP_E_MEMBERNOTFOUND},
      {{u"Load", DISPATCH_PROPERTYPUT, {u"new"}, {}}, DISP_E_MEMBERNOTFOUND},
      {{u"Load", DISPATCH_METHOD, {u"a", AnyValue::Null(), u"c"}, {}}, DISP_E_TYPEMISMATCH},
  };
  LateOutcome last;
  for (const auto& [call, expected] : cases) {
    last = Call(m_context.Get(), call);
    EXPECT_EQ(last.invoked, expected) << testing::PrintToString(WideText(call.name)) << call.arguments.size();
  }
  EXPECT_EQ(last.argumentInError, 1U) << "a position in the reversed array of the caller";
  ExpectProperties(m_context.Get(), {{u"ContextID", u"CustMaint"}, {u"TypeCount", 4}});
}

TEST_F(LateArguments, OfAPropertyWithoutParametersGoToTheDefaultMember) {
  const auto second = RemarkAt(m_context.List().Get(), 2);
  EXPECT_EQ(CallGet(m_context.Get(), u"RemarkList", {2}).value.Get().pdispVal, second.Get());
  EXPECT_EQ(CallGet(m_context.Get(), u"RemarkList", {u"2"}).value.Get().pdispVal, nullptr);
  EXPECT_EQ(CallGet(second.Get(), u"RemarkType", {1}).invoked, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(CallGet(m_context.Get(), u"RemarkList", {1, 2}).invoked, DISP_E_BADPARAMCOUNT);

  for (const AnyValue& key : {AnyValue(u"CUST.credit"), AnyValue(2), AnyValue(2.0)}) {
    EXPECT_EQ(CallGet(m_context.Get(), u"Item", {key}).value.Get().pdispVal, m_context.Type(2).Get());
  }
  EXPECT_EQ(m_context->Dispose(), S_OK);
  const LateOutcome none = CallGet(m_context.Get(), u"RemarkList", {1});
  EXPECT_EQ(none.invoked, DISP_E_EXCEPTION);
  EXPECT_EQ(none.result, FromNumber(91));
}

TEST_F(LateArguments, UnknownNamesAndIdentifiersAreRefused) {
  for (const auto* name : {u"", u"Capt", u"Captions", u"get_Caption", u"QueryInterface", u"Count", u"Caption "}) {
    auto* pointer = const_cast<LPOLESTR>(name);
    DISPID id = 5;
    EXPECT_EQ(m_context->GetIDsOfNames(IID_NULL, &pointer, 1, 0, &id), DISP_E_UNKNOWNNAME)
        << testing::PrintToString(name);
    EXPECT_EQ(id, DISPID_UNKNOWN);
  }
  const LPOLESTR names[] = {const_cast<LPOLESTR>(u"Load"), const_cast<LPOLESTR>(u"i_sOwner"),
                            const_cast<LPOLESTR>(u"i_sUserID")};
  DISPID ids[] = {9, 9, 9};
  EXPECT_EQ(m_context->GetIDsOfNames(IID_NULL, const_cast<LPOLESTR*>(names), 3, 0, ids), DISP_E_UNKNOWNNAME);
  EXPECT_THAT(ids, testing::ElementsAre(29, DISPID_UNKNOWN, 2));
  for (const DISPID id : {DISPID_UNKNOWN, DISPID{2}, DISPID{38}, DISPID_PROPERTYPUT}) {
    DISPPARAMS none{};
    EXPECT_EQ(m_context->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
  }
}

TEST_F(LateArguments, NullPointersAndWrongInterfacesAreRefused) {
  constexpr DISPID kMemoText = 14;
  const auto remark = NewRemark();
  auto* name = const_cast<LPOLESTR>(u"MemoText");
  LPOLESTR noName = nullptr;
  DISPID id = 0;
  EXPECT_EQ(remark->GetIDsOfNames(IID_IDispatch, &name, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(remark->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_POINTER);
  EXPECT_EQ(remark->GetIDsOfNames(IID_NULL, &name, 1, 0, nullptr), E_POINTER);
  EXPECT_TRUE(FAILED(remark->GetIDsOfNames(IID_NULL, &noName, 1, 0, &id)));

  DISPPARAMS none{};
  DISPPARAMS noValues{nullptr, nullptr, 1, 0};
  VARIANT value = AnyValue(1).Get();
  DISPPARAMS noNames{&value, nullptr, 1, 1};
  const auto invoke = [&](REFIID riid, WORD flags, DISPPARAMS* given) {
    return remark->Invoke(kMemoText, riid, 0, flags, given, nullptr, nullptr, nullptr);
  };
  EXPECT_EQ(invoke(IID_IDispatch, DISPATCH_PROPERTYGET, &none), DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(invoke(IID_NULL, DISPATCH_PROPERTYGET, nullptr), E_POINTER);
  EXPECT_EQ(invoke(IID_NULL, DISPATCH_PROPERTYGET, &none), S_OK) << "the result is optional";
  EXPECT_TRUE(FAILED(invoke(IID_NULL, DISPATCH_PROPERTYPUT, &noValues)));
  EXPECT_TRUE(FAILED(invoke(IID_NULL, DISPATCH_PROPERTYPUT, &noNames)));
  EXPECT_EQ(remark->Invoke(18, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr), DISP_E_EXCEPTION)
      << "the EXCEPINFO is optional";

  UINT count = 7;
  EXPECT_EQ(remark->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 0U);
}

}  // namespace
}  // namespace quorvel::test
