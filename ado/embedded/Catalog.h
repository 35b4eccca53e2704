#pragma once

#include <string_view>

#include "ado/embedded/Sqlite.h"

namespace quorvel::ado::embedded {

/// The table that keeps the procedures' definitions inside the database file.
inline constexpr const char* kProcedureTable = "quorvel_procedure";

/// The facts about tables that a translator needs: which columns hold dates, since those are stored as texts of one
/// form.
class Catalog {
 public:
  explicit Catalog(sqlite3* database) : m_database(database) {}
  /// False also for a table or column that does not exist (yet).
  [[nodiscard]] bool IsDateTime(std::string_view table, std::string_view column) const;
  /// The same for the column at a 0-based position.
  [[nodiscard]] bool IsDateTime(std::string_view table, std::size_t position) const;

 private:
  [[nodiscard]] bool Ask(const char* sql, std::string_view table, const Value& column) const;
  sqlite3* m_database;
};

}  // namespace quorvel::ado::embedded
