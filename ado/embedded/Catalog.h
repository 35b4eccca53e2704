#pragma once

#include <string_view>

#include "ado/embedded/Sqlite.h"

namespace quorvel::ado::embedded {

/// What a translator must know of the tables: dates are kept as texts of one form, and what is written into a date
/// column has to be brought into it.
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
