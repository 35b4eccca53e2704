#include <limits>
#include <vector>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

namespace quorvel::test {
namespace {

using LateConversions = HostTest;

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

TEST_F(LateConversions, BecomeNumbers) {
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

TEST_F(LateConversions, BecomeTexts) {
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

TEST_F(LateConversions, BecomeFlagsAndDates) {
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

TEST_F(LateConversions, ByReferenceAreReadAndLeftAlone) {
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

TEST_F(LateConversions, BecomeObjects) {
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
    for (const AnyValue& wrong : {AnyValue(), AnyValue(LONG{1}), AnyValue(u"Cust.Credit")}) {
      EXPECT_EQ(CallPut(remark.Get(), u"RemarkType", wrong).invoked, DISP_E_TYPEMISMATCH);
      EXPECT_EQ(typeOf().Get(), type.Get());
    }
    // An object is refused in words, as an early-bound call refuses it.
    EXPECT_EQ(CallPut(remark.Get(), u"RemarkType", AnyValue(context.Get())).invoked, DISP_E_EXCEPTION);
    EXPECT_EQ(typeOf().Get(), type.Get());
    for (const AnyValue& none : {AnyValue(static_cast<IDispatch*>(nullptr)), AnyValue::Null()}) {
      EXPECT_EQ(remark->putref_RemarkType(type.Get()), S_OK);
      EXPECT_EQ(CallPut(remark.Get(), u"RemarkType", none).invoked, S_OK);
      EXPECT_FALSE(typeOf());
    }
  });
}

}  // namespace
}  // namespace quorvel::test
