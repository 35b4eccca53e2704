#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Value.h"

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

/// Parameter directions by ADO's numbers.
enum class ParameterDirection : int { Input = 1, Output = 2, InputOutput = 3, ReturnValue = 4 };

enum class CommandType : int { Text = 1, StoredProcedure = 4 };
enum class CursorLocation : int { Server = 2, Client = 3 };
enum class ConnectMode : int { Unknown = 0, ReadWrite = 3 };

/// "Options unspecified", ADO's default for the options of Open and Execute.
inline constexpr int kUnspecified = -1;

/// What is known of one parameter of a procedure.
struct ParameterInfo {
  std::string name;  ///< with its leading @, in the letter case of the source
  DataType type = DataType::Empty;
  ParameterDirection direction = ParameterDirection::Input;
  std::int32_t size = 0;  ///< most characters of a text parameter; 0 or less means no limit
};

/// `value` as a parameter of that type takes it. Error 6 when a number does not fit, 13 when the value has
/// no such reading, adErrDataConversion when a text is longer than `size`; each names the parameter.
[[nodiscard]] Value CoerceToParameter(const Value& value, const ParameterInfo& parameter);

/// Names of parameters and fields match without regard to letter case; a leading @ does not count.
[[nodiscard]] bool SameName(std::string_view left, std::string_view right) noexcept;

}  // namespace quorvel::ado
