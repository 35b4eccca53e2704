#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel::ado::odbc {

/// The name of a stored procedure in its parts, without the brackets or quotes round them.
struct ProcedureName {
  std::string catalog;  ///< empty where not given; so is the schema
  std::string schema;
  std::string name;

  /// The name as T-SQL takes it, parts that need them in brackets.
  [[nodiscard]] std::string Quoted() const;
};

/// Reads "name", "schema.name" or "catalog.schema.name" (any but the last may be empty, as in "db..name"), each
/// part plain, [in brackets] or "in quotes". Nothing for any other text.
[[nodiscard]] std::optional<ProcedureName> ParseProcedureName(std::string_view text);

}  // namespace quorvel::ado::odbc
