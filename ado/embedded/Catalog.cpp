#include "ado/embedded/Catalog.h"

#include "ado/embedded/SqlType.h"

namespace quorvel::ado::embedded {

DataType Catalog::TypeOf(std::string_view table, std::string_view column) const {
  return Ask("SELECT type FROM pragma_table_info(?1) WHERE name = ?2 COLLATE NOCASE", table, std::string(column));
}

DataType Catalog::TypeOf(std::string_view table, std::size_t position) const {
  return Ask("SELECT type FROM pragma_table_info(?1) WHERE cid = ?2", table, static_cast<std::int64_t>(position));
}

DataType Catalog::Ask(const char* sql, std::string_view table, const Value& column) const {
  const StatementHandle statement = Prepare(m_database, sql);
  const Value name = std::string(table);
  Bind(m_database, statement.Get(), 1, name);
  Bind(m_database, statement.Get(), 2, column);
  return Advance(m_database, statement.Get()) ? TypeOfDeclaration(ReadText(statement.Get(), 0)) : DataType::Empty;
}

}  // namespace quorvel::ado::embedded
