#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <stdexcept>

#include "ado/engine/DataType.h"

namespace quorvel::test::tds {

/// The data types of the protocol that clients send or receive.
enum class Type : std::uint8_t {
  IntN = 0x26,
  DateTime2 = 0x2A,
  NText = 0x63,
  FloatN = 0x6D,
  DateTimeN = 0x6F,
  VarChar = 0xA7,
  NVarChar = 0xE7,
};

/// A type of the engine: its number in ODBC, its code in the protocol, and the bytes of a value that is no text.
struct ServerType {
  ado::DataType type;
  int odbc;
  Type code;
  std::uint8_t size;
};

inline constexpr std::array kServerTypes =
    std::to_array<ServerType>({{ado::DataType::SmallInt, 5, Type::IntN, 2},
                               {ado::DataType::Integer, 4, Type::IntN, 4},
                               {ado::DataType::BigInt, -5, Type::IntN, 8},
                               {ado::DataType::Double, 6, Type::FloatN, 8},
                               {ado::DataType::DBTimeStamp, 93, Type::DateTimeN, 8},
                               {ado::DataType::VarChar, 12, Type::NVarChar, 0},
                               {ado::DataType::VarWChar, -9, Type::NVarChar, 0},
                               {ado::DataType::LongVarWChar, -9, Type::NVarChar, 0}});

inline const ServerType& ServerTypeOf(ado::DataType type) {
  for (const ServerType& each : kServerTypes) {
    if (each.type == type) return each;
  }
  throw std::out_of_range("a type that the stand-in does not know");
}

/// Latin1_General_CI_AS.
inline constexpr std::array<char, 5> kCollation = {0x09, 0x04, '\xD0', 0x00, 0x34};

/// Day 0 of a `datetime`; its time counts in 1/300 s.
inline constexpr std::chrono::local_days kDayZero{std::chrono::year{1900} / 1 / 1};

}  // namespace quorvel::test::tds
