// One row of kTypes for each T-SQL type. The declared type of an SQLite column leads back to its row.
#include "ado/embedded/SqlType.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "ado/engine/DriverError.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {
namespace {

struct KnownType {
  std::string_view name;         // in T-SQL
  std::string_view declaration;  // in SQLite; decides the column's affinity too
  DataType type;
  bool hasLength;
};

constexpr std::array<KnownType, 19> kTypes = {{
    {"int", "INT", DataType::Integer, false},
    {"integer", "INT", DataType::Integer, false},
    {"smallint", "SMALLINT", DataType::SmallInt, false},
    {"tinyint", "TINYINT", DataType::SmallInt, false},
    {"bit", "BIT_INT", DataType::Boolean, false},
    {"bigint", "BIGINT", DataType::BigInt, false},
    {"varchar", "VARCHAR", DataType::VarChar, true},
    {"nvarchar", "NVARCHAR", DataType::VarWChar, true},
    {"char", "CHAR", DataType::VarChar, true},
    {"nchar", "NCHAR", DataType::VarWChar, true},
    {"sysname", "NVARCHAR", DataType::VarWChar, false},
    {"text", "TEXT", DataType::LongVarChar, false},
    {"ntext", "NTEXT", DataType::LongVarWChar, false},
    {"datetime", "DATETIME_TEXT", DataType::DBTimeStamp, false},
    {"datetime2", "DATETIME_TEXT", DataType::DBTimeStamp, true},
    {"float", "REAL", DataType::Double, true},
    {"real", "REAL", DataType::Double, false},
    {"decimal", "REAL", DataType::Double, true},
    {"numeric", "REAL", DataType::Double, true},
}};

/// "(n)", "(max)" or "(p, s)"; 0 for max.
std::int32_t ParseLength(TokenCursor& cursor) {
  std::int32_t length = 0;
  if (!cursor.Accept("max")) {
    const Token token = cursor.Take();
    const char* end = token.text.data() + token.text.size();
    if (std::from_chars(token.text.data(), end, length).ptr != end || length <= 0) cursor.Fail();
  }
  if (cursor.Accept(",")) cursor.Take();
  cursor.Expect(")");
  return length;
}

}  // namespace

SqlType ParseType(TokenCursor& cursor) {
  const std::string name = cursor.ExpectObjectName();
  const auto* known = std::find_if(kTypes.begin(), kTypes.end(),
                                   [&](const KnownType& type) { return EqualIgnoringCase(type.name, name); });
  if (known == kTypes.end()) cursor.FailUnsupported(fmt::format("the type '{}'", name));
  SqlType result{std::string(known->declaration), known->type, 0};
  const bool isSizedText = known->hasLength && IsTextType(known->type);
  if (known->hasLength && cursor.Accept("(")) {
    const std::int32_t length = ParseLength(cursor);
    if (!isSizedText) return result;
    result.size = length;
  } else if (isSizedText) {
    result.size = 1;  // as on a server: varchar without a length holds one character
  }
  if (isSizedText && result.size > 0) {
    result.declaration += fmt::format("({})", result.size);
  } else if (isSizedText) {
    result.declaration = known->type == DataType::VarChar ? "TEXT" : "NTEXT";
    result.type = known->type == DataType::VarChar ? DataType::LongVarChar : DataType::LongVarWChar;
  }
  return result;
}

DataType TypeOfDeclaration(std::string_view declaration) noexcept {
  const std::string_view name = declaration.substr(0, declaration.find('('));
  if (name == "INTEGER") return DataType::Integer;
  const auto* known =
      std::find_if(kTypes.begin(), kTypes.end(), [&](const KnownType& type) { return type.declaration == name; });
  return known == kTypes.end() ? DataType::Empty : known->type;
}

std::optional<IntegerRange> FindIntegerRange(const SqlType& type) noexcept {
  using Small = std::numeric_limits<std::int16_t>;
  using Whole = std::numeric_limits<std::int32_t>;
  using Big = std::numeric_limits<std::int64_t>;
  if (type.declaration == "TINYINT") return IntegerRange{0, 255};
  if (type.type == DataType::SmallInt) return IntegerRange{Small::min(), Small::max()};
  if (type.type == DataType::Integer) return IntegerRange{Whole::min(), Whole::max()};
  if (type.type == DataType::BigInt) return IntegerRange{Big::min(), Big::max()};
  if (type.type == DataType::Boolean) return IntegerRange{0, 1};
  return std::nullopt;
}

}  // namespace quorvel::ado::embedded
