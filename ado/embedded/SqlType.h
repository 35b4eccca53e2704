#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "ado/embedded/TokenCursor.h"
#include "ado/engine/Parameter.h"

namespace quorvel::ado::embedded {

/// A T-SQL column or variable type as this engine keeps it.
struct SqlType {
  std::string declaration;  ///< the SQLite column type, from which TypeOfDeclaration reads it back
  DataType type = DataType::Empty;
  std::int32_t size = 0;  ///< most characters of a text; 0 means no limit
};

/// Reads a type such as `nvarchar(max)`. DriverError for a type that the engine does not know.
[[nodiscard]] SqlType ParseType(TokenCursor& cursor);

/// The type that a declared SQLite column type stands for; Empty for an expression, which has none.
[[nodiscard]] DataType TypeOfDeclaration(std::string_view declaration) noexcept;

/// The whole numbers that a column of that type takes; nothing for a type that is not whole.
struct IntegerRange {
  std::int64_t lowest;
  std::int64_t highest;
};
[[nodiscard]] std::optional<IntegerRange> FindIntegerRange(const SqlType& type) noexcept;

}  // namespace quorvel::ado::embedded
