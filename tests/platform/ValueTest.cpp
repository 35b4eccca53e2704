// Conversions as tables of a value and its result or its error number.

#include "platform/Value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/Error.h"
#include "tests/support/Caught.h"

namespace quorvel {
namespace {

using std::string;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

template <auto Convert>
std::int32_t ErrorOf(const Value& value) {
  return test::Caught([&] { static_cast<void>(Convert(value)); }).Number();
}

DateTime Date(const char* text) { return ParseDateTime(text).value(); }

TEST(Value, IntegersRoundHalvesToEven) {
  using Case = std::pair<Value, std::int32_t>;
  for (const auto& [value, expected] :
       {Case{0.5, 0}, Case{1.5, 2}, Case{2147483647.4, 2147483647}, Case{true, -1}, Case{string(" 12 "), 12},
        Case{string("+3"), 3}, Case{string("-0.5"), 0}, Case{string(".75"), 1}, Case{string("1e3"), 1000},
        Case{Date("1899-12-31 18:00"), 2}}) {
    EXPECT_EQ(ToInt32(value), expected);
  }
  EXPECT_EQ(ToInt64(string("9223372036854775807")), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(ToInt16(-32768.5), -32768);
}

TEST(Value, UnreadableValuesRaiseTheClassicErrors) {
  for (const char* text : {"", " ", "abc", "1 2", "1x", "0x10", "nan", "inf", "+-1", "--1", "1,5", "\t1", "."}) {
    EXPECT_EQ(ErrorOf<ToInt32>(string(text)), ErrorNumber::TypeMismatch) << text;
    EXPECT_EQ(ErrorOf<ToDouble>(string(text)), ErrorNumber::TypeMismatch) << text;
  }
  for (const Value& value : {Value(2147483647.5), Value(std::int64_t{-2147483649}), Value(kInfinity), Value(-kInfinity),
                             Value(std::nan("")), Value(string("3000000000")), Value(string("1e400"))}) {
    EXPECT_EQ(ErrorOf<ToInt32>(value), ErrorNumber::Overflow);
  }
  using ErrorFor = std::int32_t (*)(const Value&);
  const std::tuple<ErrorFor, Value, std::int32_t> cases[] = {
      {ErrorOf<ToInt16>, 32767.5, ErrorNumber::Overflow},
      {ErrorOf<ToInt64>, 9223372036854775808.0, ErrorNumber::Overflow},
      {ErrorOf<ToInt64>, string("9223372036854775808"), ErrorNumber::Overflow},
      {ErrorOf<ToBoolean>, string("yes"), ErrorNumber::TypeMismatch},
      {ErrorOf<ToDateTime>, string("abc"), ErrorNumber::TypeMismatch},
      {ErrorOf<ToDateTime>, std::int64_t{1}, ErrorNumber::TypeMismatch}};
  for (const auto& [errorFor, value, number] : cases) EXPECT_EQ(errorFor(value), number);
  for (const ErrorFor errorFor : {ErrorOf<static_cast<string (*)(const Value&)>(ToText)>, ErrorOf<ToInt32>,
                                  ErrorOf<ToDouble>, ErrorOf<ToBoolean>, ErrorOf<ToDateTime>}) {
    EXPECT_EQ(errorFor(Null{}), ErrorNumber::InvalidUseOfNull);
  }
}

TEST(Value, TextsArePlain) {
  const std::pair<Value, const char*> cases[] = {{std::numeric_limits<std::int64_t>::min(), "-9223372036854775808"},
                                                 {true, "True"},
                                                 {1e21, "1000000000000000000000"},
                                                 {-0.0, "0"},
                                                 {-2.50, "-2.5"},
                                                 {1e-7, "0.0000001"},
                                                 {Date("2001-02-03"), "2001-02-03 00:00:00"},
                                                 {Date("2001-02-03 04:05:06.070"), "2001-02-03 04:05:06.070"}};
  for (const auto& [value, expected] : cases) EXPECT_EQ(ToText(value), expected);
  for (const double extreme : {std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()}) {
    EXPECT_EQ(ToDouble(ToText(Value(-extreme))), -extreme);
  }
  Value text = string(100, 'x');
  const char* const storage = std::get<string>(text).data();
  EXPECT_EQ(ToText(std::move(text)).data(), storage);
}

TEST(Value, ReadsBooleansAndDates) {
  const std::pair<Value, bool> cases[] = {{string("tRUE"), true},   {-0.1, true},           {string(" 1 "), true},
                                          {string("FALSE"), false}, {string("0.0"), false}, {kZeroDate, false}};
  for (const auto& [value, expected] : cases) EXPECT_EQ(ToBoolean(value), expected) << ToText(value);
  EXPECT_EQ(ToDateTime(string("2001-02-03T04:05")), Date("2001-02-03 04:05"));
  EXPECT_EQ(ToDouble(Date("1899-12-31 06:00")), 1.25);
  EXPECT_EQ(ToDouble(Date("1899-12-29 06:00")), -1.25) << "the fraction counts forward before the zero date too";
}

}  // namespace
}  // namespace quorvel
