#pragma once

namespace quorvel::ado {

/// Data types by ADO's numbers.
enum class DataType : int {
  Empty = 0,
  SmallInt = 2,
  Integer = 3,
  Double = 5,
  Boolean = 11,
  BigInt = 20,
  DBTimeStamp = 135,
  VarChar = 200,
  LongVarChar = 201,
  VarWChar = 202,
  LongVarWChar = 203,
};
[[nodiscard]] constexpr bool IsTextType(DataType type) { return type >= DataType::VarChar; }

}  // namespace quorvel::ado
