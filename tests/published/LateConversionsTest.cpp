// The conversions of arguments in calls by name.

#include <cstring>
#include <limits>
#include <tuple>
#include <vector>

#include "tests/published/HostTest.h"
#include "tests/published/LateBound.h"

namespace quorvel::test {
namespace {

using LateConversions = HostTest;

/// A value of the type `type` from its bytes.
template <typename T>
AnyValue Of(VARENUM type, T value) {
  AnyValue made = AnyValue::ZeroOf(type);
  std::memcpy(&made.Pointer()->llVal, &value, sizeof(value));
  return made;
}

/// A decimal number: `units` divided by 10 as often as `scale` says.
DECIMAL DecimalOf(LONGLONG units, BYTE scale, ULONG high = 0) {
  const BYTE sign = units < 0 ? BYTE{0x80} : BYTE{0};
  return {VT_DECIMAL, scale, sign, high, static_cast<ULONGLONG>(units < 0 ? -units : units)};
}

AnyValue Of(const DECIMAL& decimal) {
  AnyValue made;
  std::memcpy(made.Pointer(), &decimal, sizeof(decimal));
  return made;
}

TEST_F(LateConversions, OfEveryTypeToTheTypeOfAProperty) {
  VARIANT_BOOL flag = VARIANT_TRUE;
  DATE date = 45000.5;
  Text number(u"31");
  AnyValue holder(u"in a variable");
  DECIMAL decimal = DecimalOf(75, 1);
  const std::vector<std::tuple<const OLECHAR*, AnyValue, AnyValue>> rows{
      {u"MemoKey", Of(VT_I1, static_cast<signed char>(-128)), -128},
      {u"MemoKey", Of(VT_UI1, BYTE{200}), 200},
      {u"MemoKey", Of(VT_I2, SHORT{-7}), -7},
      {u"MemoKey", Of(VT_UI2, USHORT{65535}), 65535},
      {u"MemoKey", Of(VT_R4, 1.5F), 2},
      {u"MemoKey", Of(VT_CY, LONGLONG{125'000}), 12},
      {u"MemoText", Of(VT_CY, LONGLONG{-125'000}), u"-12.5"},
      {u"MemoKey", Of(DecimalOf(-1200, 2)), -12},
      {u"MemoText", Of(DecimalOf(125, 2)), u"1.25"},
      {u"MemoKey", Of(DecimalOf(0, 28)), 0},
      {u"Dirty", Of(DecimalOf(1, 28)), true},
      {u"DateStamp", Of(DecimalOf(4500025, 2)), AnyValue::Date(45000.25)},
      {u"MemoKey", AnyValue::ByReference(VT_DECIMAL, &decimal), 8},
      {u"MemoKey", AnyValue::Date(45000.0), 45000},
      {u"MemoKey", true, -1},
      {u"MemoKey", AnyValue(), 0},
      {u"MemoKey", u" 12 ", 12},
      {u"MemoText", 0.5, u"0.5"},
      {u"MemoText", AnyValue::Date(45362.5625), u"2024-03-11 13:30:00"},
      {u"MemoText", AnyValue(), u""},
      {u"Dirty", u"FALSE", false},
      {u"Dirty", 0.25, true},
      {u"DateStamp", u"2024-03-11 13:30", AnyValue::Date(45362.5625)},
      {u"DateStamp", 45000.25, AnyValue::Date(45000.25)},
      {u"DateStamp", -2, AnyValue::Date(-2)},
      {u"Dirty", AnyValue::ByReference(VT_BOOL, &flag), true},
      {u"DateStamp", AnyValue::ByReference(VT_DATE, &date), AnyValue::Date(date)},
      {u"MemoKey", AnyValue::ByReference(VT_BSTR, number.ByReference()), 31},
      {u"MemoText", AnyValue::ByReference(VT_VARIANT, holder.Pointer()), u"in a variable"},
  };
  for (const auto& [property, given, expected] : rows) {
    SCOPED_TRACE(testing::PrintToString(Shown(given.Get())));
    const auto remark = NewRemark();
    SetProperties(remark.Get(), {{property, given}});
    ExpectProperties(remark.Get(), {{property, expected}});
  }
  EXPECT_EQ(Shown(holder.Get()), u"text in a variable") << "the caller's variable keeps its value";
}

TEST_F(LateConversions, ImpossibleOnesAreRefused) {
  AnyValue loop = AnyValue::ByReference(VT_VARIANT, nullptr);
  loop.Pointer()->pvarVal = loop.Pointer();
  const std::vector<std::tuple<const OLECHAR*, AnyValue, HRESULT>> rows{
      {u"MemoKey", Of(VT_UI4, ULONG{4'000'000'000}), DISP_E_OVERFLOW},
      {u"MemoKey", Of(VT_I8, LONGLONG{5'000'000'000}), DISP_E_OVERFLOW},
      {u"MemoKey", Of(VT_UI8, std::numeric_limits<ULONGLONG>::max()), DISP_E_OVERFLOW},
      {u"MemoKey", Of(DecimalOf(0, 0, 1)), DISP_E_OVERFLOW},
      {u"MemoKey", Of(DecimalOf(1, 29)), DISP_E_TYPEMISMATCH},
      {u"MemoKey", u"abc", DISP_E_TYPEMISMATCH},
      {u"MemoKey", AnyValue::Null(), DISP_E_TYPEMISMATCH},
      {u"MemoKey", static_cast<IDispatch*>(nullptr), DISP_E_TYPEMISMATCH},
      {u"MemoKey", AnyValue::ByReference(VT_VARIANT, loop.Pointer()), DISP_E_TYPEMISMATCH},
      {u"MemoKey", AnyValue::Missing(), DISP_E_PARAMNOTOPTIONAL},
      {u"MemoText", AnyValue::Null(), DISP_E_TYPEMISMATCH},
      {u"MemoText", AnyValue::Date(1e9), DISP_E_OVERFLOW},
      {u"MemoText", AnyValue::ByReference(VT_BSTR, nullptr), DISP_E_TYPEMISMATCH},
      {u"MemoText", AnyValue::ByReference(VT_VARIANT, nullptr), DISP_E_TYPEMISMATCH},
      {u"DateStamp", 1e9, DISP_E_OVERFLOW},
  };
  for (const auto& [property, given, expected] : rows) {
    const LateOutcome put = CallPut(NewRemark().Get(), property, given);
    EXPECT_EQ(put.invoked, expected) << testing::PrintToString(Shown(given.Get()));
    EXPECT_EQ(put.argumentInError, 0U);
  }
}

TEST_F(LateConversions, ToObjects) {
  const LoadedContext context;
  const auto type = context.Type(2);
  const auto remark = RemarkAt(context.List().Get(), 1);
  AnyValue unknown(type.Get());
  unknown.Pointer()->vt = VT_UNKNOWN;
  IDispatch* pointer = type.Get();
  for (const AnyValue& given : {AnyValue(type.Get()), unknown, AnyValue::ByReference(VT_DISPATCH, &pointer),
                                AnyValue::ByReference(VT_VARIANT, unknown.Pointer())}) {
    for (const WORD flags : {DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT}) {
      EXPECT_EQ(remark->putref_RemarkType(nullptr), S_OK);
      EXPECT_EQ(Call(remark.Get(), {u"RemarkType", flags, {given}, {}}).invoked, S_OK);
      ExpectProperties(remark.Get(), {{u"RemarkType", type.Get()}});
    }
  }
  for (const AnyValue& wrong : {AnyValue(), AnyValue(1), AnyValue(u"Cust.Credit")}) {
    EXPECT_EQ(CallPut(remark.Get(), u"RemarkType", wrong).invoked, DISP_E_TYPEMISMATCH);
  }
  // An object of another class is refused with a description, as in an early-bound call.
  EXPECT_EQ(CallPut(remark.Get(), u"RemarkType", AnyValue(context.Get())).invoked, DISP_E_EXCEPTION);
  ExpectProperties(remark.Get(), {{u"RemarkType", type.Get()}});
  for (const AnyValue& none : {AnyValue(static_cast<IDispatch*>(nullptr)), AnyValue::Null()}) {
    EXPECT_EQ(remark->putref_RemarkType(type.Get()), S_OK);
    EXPECT_EQ(CallPut(remark.Get(), u"RemarkType", none).invoked, S_OK);
    ExpectProperties(remark.Get(), {{u"TypeID", u""}});
  }
}

}  // namespace
}  // namespace quorvel::test
