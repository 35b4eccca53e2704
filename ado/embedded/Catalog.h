#pragma once

#include <string_view>

#include "ado/embedded/Sqlite.h"
#include "ado/engine/Parameter.h"

namespace quorvel::ado::embedded {

/// The table that keeps the procedures' definitions inside the database file.
inline constexpr const char* kProcedureTable = "quorvel_procedure";

/// OBJECT_ID of a procedure is its row number and this, so that it differs from that of every table.
inline constexpr int kFirstProcedureId = 1 << 30;

/// The facts about tables that a translator needs: the types of columns, because a value is converted to its column's
/// type before it is stored.
class Catalog {
 public:
  explicit Catalog(sqlite3* database) : m_database(database) {}
  /// The type of a column; Empty also for a table or column that does not exist (yet).
  [[nodiscard]] DataType TypeOf(std::string_view table, std::string_view column) const;
  /// The same for the column at a 0-based position.
  [[nodiscard]] DataType TypeOf(std::string_view table, std::size_t position) const;

 private:
  [[nodiscard]] DataType Ask(const char* sql, std::string_view table, const Value& column) const;
  sqlite3* m_database;
};

}  // namespace quorvel::ado::embedded
