#include "platform/Value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/Error.h"

namespace quorvel {
namespace {

using std::string;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The number of the error that `convert` raises; 0 when it raises none.
template <typename Convert>
std::int32_t ErrorOf(Convert convert) {
  try {
    static_cast<void>(convert());
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

DateTime Date(const char* text) { return ParseDateTime(text).value(); }

TEST(Value, IntegersRoundHalvesToEven) {
  const std::pair<Value, std::int32_t> cases[] = {{std::int64_t{-7}, -7},
                                                  {0.5, 0},
                                                  {1.5, 2},
                                                  {2.5, 2},
                                                  {-2.5, -2},
                                                  {2147483647.4, 2147483647},
                                                  {true, -1},
                                                  {false, 0},
                                                  {string(" 12 "), 12},
                                                  {string("+3"), 3},
                                                  {string("-0.5"), 0},
                                                  {string("3.5"), 4},
                                                  {string(".75"), 1},
                                                  {string("1e3"), 1000},
                                                  {string("2147483647"), 2147483647},
                                                  {Date("1899-12-31 18:00"), 2}};
  for (const auto& [value, expected] : cases) EXPECT_EQ(ToInt32(value), expected);
  EXPECT_EQ(ToInt64(string("9223372036854775807")), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(ToInt16(-32768.5), -32768);
}

TEST(Value, WhatHasNoReadingRaisesTheClassicErrors) {
  for (const char* text : {"", " ", "abc", "1 2", "1x", "0x10", "nan", "inf", "+-1", "-+1", "--1", "1,5", "\t1", "."}) {
    EXPECT_EQ(ErrorOf([&] { return ToInt32(string(text)); }), ErrorNumber::TypeMismatch) << text;
    EXPECT_EQ(ErrorOf([&] { return ToDouble(string(text)); }), ErrorNumber::TypeMismatch) << text;
  }
  for (const Value& value : {Value(2147483647.5), Value(std::int64_t{-2147483649}), Value(kInfinity), Value(-kInfinity),
                             Value(std::nan("")), Value(string("3000000000")), Value(string("1e400"))}) {
    EXPECT_EQ(ErrorOf([&] { return ToInt32(value); }), ErrorNumber::Overflow);
  }
  EXPECT_EQ(ErrorOf([] { return ToInt16(32767.5); }), ErrorNumber::Overflow);
  EXPECT_EQ(ErrorOf([] { return ToInt64(9223372036854775808.0); }), ErrorNumber::Overflow);
  EXPECT_EQ(ErrorOf([] { return ToInt64(string("9223372036854775808")); }), ErrorNumber::Overflow);
  EXPECT_EQ(ErrorOf([] { return ToBoolean(string("yes")); }), ErrorNumber::TypeMismatch);
  EXPECT_EQ(ErrorOf([] { return ToDateTime(string("abc")); }), ErrorNumber::TypeMismatch);
  EXPECT_EQ(ErrorOf([] { return ToDateTime(std::int64_t{1}); }), ErrorNumber::TypeMismatch);
  const Value null;
  EXPECT_EQ(ErrorOf([&] { return ToText(null); }), ErrorNumber::InvalidUseOfNull);
  EXPECT_EQ(ErrorOf([&] { return ToInt32(null); }), ErrorNumber::InvalidUseOfNull);
  EXPECT_EQ(ErrorOf([&] { return ToDouble(null); }), ErrorNumber::InvalidUseOfNull);
  EXPECT_EQ(ErrorOf([&] { return ToBoolean(null); }), ErrorNumber::InvalidUseOfNull);
  EXPECT_EQ(ErrorOf([&] { return ToDateTime(null); }), ErrorNumber::InvalidUseOfNull);
}

TEST(Value, TextsArePlain) {
  const std::pair<Value, const char*> cases[] = {{std::numeric_limits<std::int64_t>::min(), "-9223372036854775808"},
                                                 {true, "True"},
                                                 {1e21, "1000000000000000000000"},
                                                 {0.1, "0.1"},
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

TEST(Value, BooleansAndDates) {
  for (const Value& value : {Value(string("tRUE")), Value(std::int64_t{2}), Value(-0.1), Value(string(" 1 "))}) {
    EXPECT_TRUE(ToBoolean(value));
  }
  for (const Value& value : {Value(string("FALSE")), Value(0.0), Value(string("0.0")), Value(kZeroDate)}) {
    EXPECT_FALSE(ToBoolean(value));
  }
  EXPECT_EQ(ToDateTime(string("2001-02-03T04:05")), Date("2001-02-03 04:05"));
  EXPECT_EQ(ToDouble(Date("1899-12-31 06:00")), 1.25);
  EXPECT_EQ(ToDouble(Date("1899-12-29 06:00")), -1.25) << "the fraction counts forward before the zero date too";
}

}  // namespace
}  // namespace quorvel
