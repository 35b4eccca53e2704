#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorvel::ado::odbc {

/// The name of a stored procedure in its parts, without brackets or quotes.
struct ProcedureName {
  std::string catalog;  ///< empty where not given; so is the schema
  std::string schema;
  std::string name;

  /// The name as T-SQL takes it; parts that need brackets have them.
  [[nodiscard]] std::string Quoted() const;
};

/// Reads "name", "schema.name" or "catalog.schema.name" (any but the last may be empty, as in "db..name"), each
/// part plain, [in brackets] or "in quotes". Nothing for any other text.
[[nodiscard]] std::optional<ProcedureName> ParseProcedureName(std::string_view text);

/// The same; throws as ThrowNoSuchProcedure for a text that no procedure can have as its name.
[[nodiscard]] ProcedureName RequireProcedureName(std::string_view text);

/// Throws DriverError 42000 with the server's own error 2812.
[[noreturn]] void ThrowNoSuchProcedure(std::string_view procedure);

}  // namespace quorvel::ado::odbc
