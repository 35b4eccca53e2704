#pragma once

#include <array>
#include <chrono>
#include <cstdint>

namespace quorvel::test::tds {

/// The data types of the protocol that clients send or receive.
enum class Type : std::uint8_t {
  IntN = 0x26,
  DateTime2 = 0x2A,
  BitN = 0x68,
  FloatN = 0x6D,
  DateTimeN = 0x6F,
  VarChar = 0xA7,
  NVarChar = 0xE7,
};

/// Latin1_General_CI_AS.
inline constexpr std::array<char, 5> kCollation = {0x09, 0x04, '\xD0', 0x00, 0x34};

/// Day 0 of a `datetime`; its time counts in 1/300 s.
inline constexpr std::chrono::local_days kDayZero{std::chrono::year{1900} / 1 / 1};

}  // namespace quorvel::test::tds
