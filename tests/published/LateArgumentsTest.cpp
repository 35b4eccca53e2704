#include <limits>
#include <vector>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

namespace quorvel::test {
namespace {

using LateArguments = HostTest;

/// A property set to a value, and what it is then or why it is refused.
struct Setting {
  const OLECHAR* name;
  AnyValue given;
  HRESULT invoked = S_OK;
  AnyValue expected;
};

void ExpectSettings(const std::vector<Setting>& settings) {
  for (const Setting& each : settings) {
    const std::string what = testing::PrintToString(WideText(each.name)) +
                             " := " + testing::PrintToString(Shown(each.given.Get())) + " at " +
                             std::to_string(&each - settings.data());
    const auto remark = NewRemark();
    const LateOutcome put = CallPut(remark.Get(), each.name, each.given);
    EXPECT_EQ(put.invoked, each.invoked) << what;
    if (FAILED(each.invoked)) {
      EXPECT_EQ(put.argumentInError, 0U) << what;
    } else {
      EXPECT_EQ(Shown(CallGet(remark.Get(), each.name).value.Get()), Shown(each.expected.Get())) << what;
    }
  }
}

TEST_F(LateArguments, BecomeNumbers) {
  AnyValue small = AnyValue::ZeroOf(VT_I2);
  small.Pointer()->iVal = -7;
  AnyValue byte = AnyValue::ZeroOf(VT_UI1);
  byte.Pointer()->bVal = 200;
  AnyValue large = AnyValue::ZeroOf(VT_I8);
  large.Pointer()->llVal = 5'000'000'000;
  AnyValue tooLarge = AnyValue::ZeroOf(VT_UI8);
  tooLarge.Pointer()->ullVal = std::numeric_limits<ULONGLONG>::max();
  AnyValue tiny = AnyValue::ZeroOf(VT_I1);
  tiny.Pointer()->cVal = static_cast<char>(-128);
  AnyValue wide = AnyValue::ZeroOf(VT_UI2);
  wide.Pointer()->uiVal = 65535;
  AnyValue unsignedLong = AnyValue::ZeroOf(VT_UI4);
  unsignedLong.Pointer()->ulVal = 4'000'000'000;
  AnyValue single = AnyValue::ZeroOf(VT_R4);
  single.Pointer()->fltVal = 1.5F;
  AnyValue loop = AnyValue::ByReference(VT_VARIANT, nullptr);
  loop.Pointer()->pvarVal = loop.Pointer();
  AnyValue money = AnyValue::ZeroOf(VT_CY);
  money.Pointer()->cyVal = 125'000;
  ExpectSettings({{u"MemoKey", u" 12 ", S_OK, LONG{12}},
                  {u"MemoKey", u"-3.5", S_OK, LONG{-4}},
                  {u"MemoKey", 2.5, S_OK, LONG{2}},
                  {u"MemoKey", true, S_OK, LONG{-1}},
                  {u"MemoKey", small, S_OK, LONG{-7}},
                  {u"MemoKey", byte, S_OK, LONG{200}},
                  {u"MemoKey", tiny, S_OK, LONG{-128}},
                  {u"MemoKey", wide, S_OK, LONG{65535}},
                  {u"MemoKey", single, S_OK, LONG{2}},
                  {u"MemoKey", unsignedLong, DISP_E_OVERFLOW, {}},
                  {u"MemoKey", tooLarge, DISP_E_OVERFLOW, {}},
                  {u"MemoKey", AnyValue::ByReference(VT_VARIANT, loop.Pointer()), DISP_E_TYPEMISMATCH, {}},
                  {u"MemoKey", money, S_OK, LONG{12}},
                  {u"MemoKey", AnyValue::Date(45000.0), S_OK, LONG{45000}},
                  {u"MemoKey", AnyValue(), S_OK, LONG{0}},
                  {u"MemoKey", u"abc", DISP_E_TYPEMISMATCH, {}},
                  {u"MemoKey", u"", DISP_E_TYPEMISMATCH, {}},
                  {u"MemoKey", AnyValue::Null(), DISP_E_TYPEMISMATCH, {}},
                  {u"MemoKey", static_cast<IDispatch*>(nullptr), DISP_E_TYPEMISMATCH, {}},
                  {u"MemoKey", large, DISP_E_OVERFLOW, {}},
                  {u"MemoKey", 1e300, DISP_E_OVERFLOW, {}},
                  {u"MemoKey", std::numeric_limits<double>::quiet_NaN(), DISP_E_OVERFLOW, {}},
                  {u"MemoKey", u"99999999999999999999", DISP_E_OVERFLOW, {}},
                  {u"MemoKey", AnyValue::Missing(), DISP_E_PARAMNOTOPTIONAL, {}}});
}

TEST_F(LateArguments, BecomeTexts) {
  ExpectSettings({{u"MemoText", LONG{-12}, S_OK, u"-12"},
                  {u"MemoText", 0.5, S_OK, u"0.5"},
                  {u"MemoText", true, S_OK, u"True"},
                  {u"MemoText", AnyValue::Date(45362.5625), S_OK, u"2024-03-11 13:30:00"},
                  {u"MemoText", AnyValue(), S_OK, u""},
                  {u"MemoText", AnyValue::ZeroOf(VT_BSTR), S_OK, u""},
                  {u"MemoText", AnyValue::Null(), DISP_E_TYPEMISMATCH, {}},
                  {u"MemoText", AnyValue::Date(1e9), DISP_E_OVERFLOW, {}},
                  {u"MemoText", AnyValue::Missing(), DISP_E_PARAMNOTOPTIONAL, {}}});
}

TEST_F(LateArguments, BecomeFlagsAndDates) {
  ExpectSettings({{u"Dirty", u"true", S_OK, true},
                  {u"Dirty", u"FALSE", S_OK, false},
                  {u"Dirty", u"2", S_OK, true},
                  {u"Dirty", LONG{256}, S_OK, true},
                  {u"Dirty", 0.25, S_OK, true},
                  {u"Dirty", AnyValue(), S_OK, false},
                  {u"Dirty", u"yes", DISP_E_TYPEMISMATCH, {}},
                  {u"Dirty", AnyValue::Null(), DISP_E_TYPEMISMATCH, {}},
                  {u"DateStamp", u"2024-03-11 13:30", S_OK, AnyValue::Date(45362.5625)},
                  {u"DateStamp", 45000.25, S_OK, AnyValue::Date(45000.25)},
                  {u"DateStamp", LONG{-2}, S_OK, AnyValue::Date(-2)},
                  {u"DateStamp", AnyValue(), S_OK, AnyValue::Date(0)},
                  {u"DateStamp", u"soon", DISP_E_TYPEMISMATCH, {}},
                  {u"DateStamp", 1e9, DISP_E_OVERFLOW, {}}});
}

TEST_F(LateArguments, ByReferenceAreReadAndLeftAlone) {
  Run([] {
    const LoadedContext context;
    Text text(u"by reference");
    AnyValue index(LONG{3});
    AnyValue holder(u"in a variable");
    EXPECT_EQ(CallGet(context.Get(), u"AddRemark",
                      {AnyValue::ByReference(VT_VARIANT, index.Pointer()),
                       AnyValue::ByReference(VT_BSTR, text.ByReference())})
                  .invoked,
              S_OK);
    EXPECT_EQ(CallGet(context.Get(), u"AddRemark",
                      {AnyValue::ByReference(VT_I4, &index.Pointer()->lVal),
                       AnyValue::ByReference(VT_VARIANT, holder.Pointer())})
                  .invoked,
              S_OK);
    EXPECT_EQ(Read(RemarkAt(context.List().Get(), 8).Get(), &_Remark::get_MemoText), u"by reference");
    EXPECT_EQ(Read(RemarkAt(context.List().Get(), 9).Get(), &_Remark::get_MemoText), u"in a variable");
    EXPECT_EQ(Read(RemarkAt(context.List().Get(), 9).Get(), &_Remark::get_TypeID), u"Cust.General");
    EXPECT_EQ(text.View(), u"by reference");
    EXPECT_EQ(Shown(holder.Get()), u"text in a variable");

    VARIANT_BOOL flag = VARIANT_TRUE;
    DATE date = 45000.5;
    const auto remark = RemarkAt(context.List().Get(), 1);
    EXPECT_EQ(CallPut(remark.Get(), u"Dirty", AnyValue::ByReference(VT_BOOL, &flag)).invoked, S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_Dirty), VARIANT_TRUE);
    EXPECT_EQ(CallPut(remark.Get(), u"DateStamp", AnyValue::ByReference(VT_DATE, &date)).invoked, S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_DateStamp), 45000.5);
    EXPECT_EQ(CallPut(remark.Get(), u"MemoKey", AnyValue::ByReference(VT_BSTR, Text(u"31").ByReference())).invoked,
              S_OK);
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_MemoKey), 31);
    EXPECT_EQ(CallPut(remark.Get(), u"MemoText", AnyValue::ByReference(VT_BSTR, nullptr)).invoked, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(CallPut(remark.Get(), u"MemoText", AnyValue::ByReference(VT_VARIANT, nullptr)).invoked,
              DISP_E_TYPEMISMATCH);
  });
}

TEST_F(LateArguments, BecomeObjects) {
  Run([] {
    const LoadedContext context;
    const auto type = context.Type(LONG{2});
    const auto remark = RemarkAt(context.List().Get(), 1);
    const auto typeOf = [&] {
      Reference<_RemarkType> found;
      EXPECT_EQ(remark->get_RemarkType(found.Put()), S_OK);
      return found;
    };
    AnyValue unknown = AnyValue::ZeroOf(VT_UNKNOWN);
    type->AddRef();
    unknown.Pointer()->punkVal = type.Get();
    IDispatch* pointer = type.Get();
    for (const AnyValue& given : {AnyValue(type.Get()), unknown, AnyValue::ByReference(VT_DISPATCH, &pointer),
                                  AnyValue::ByReference(VT_VARIANT, unknown.Pointer())}) {
      for (const WORD flags : {DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT}) {
        EXPECT_EQ(remark->putref_RemarkType(nullptr), S_OK);
        EXPECT_EQ(Call(remark.Get(), {u"RemarkType", flags, {given}, {}}).invoked, S_OK);
        EXPECT_EQ(typeOf().Get(), type.Get());
      }
    }
    for (const AnyValue& wrong : {AnyValue(), AnyValue(LONG{1}), AnyValue(u"Cust.Credit"), AnyValue(context.Get())}) {
      EXPECT_EQ(CallPut(remark.Get(), u"RemarkType", wrong).invoked, DISP_E_TYPEMISMATCH);
      EXPECT_EQ(typeOf().Get(), type.Get());
    }
    for (const AnyValue& none : {AnyValue(static_cast<IDispatch*>(nullptr)), AnyValue::Null()}) {
      EXPECT_EQ(remark->putref_RemarkType(type.Get()), S_OK);
      EXPECT_EQ(CallPut(remark.Get(), u"RemarkType", none).invoked, S_OK);
      EXPECT_FALSE(typeOf());
    }
  });
}

TEST_F(LateArguments, MayBeNamedAndLeftOut) {
  Run([] {
    const auto context = NewContext();
    const auto loaded = [&] {
      const WideText all = Read(context.Get(), &_RemarkContext::get_ContextID) + u"," +
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
