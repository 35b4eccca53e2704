#include "ado/embedded/Query.h"

namespace quorvel::ado::embedded {

void Query::Compile(sqlite3* database) {
  if (!m_statement) m_statement = Prepare(database, m_sql);
}

void Query::ForgetWriter() noexcept {
  if (!m_statement || sqlite3_stmt_readonly(m_statement.Get()) != 0) return;
  m_statement.Reset();
  m_describedCompilation = -1;
}

sqlite3_stmt* Query::Begin(sqlite3* database, const Frame& frame) {
  Compile(database);
  sqlite3_stmt* statement = m_statement.Get();
  for (const std::size_t variable : m_variables) {
    Bind(database, statement, static_cast<int>(variable) + 1, frame[variable]);
  }
  return statement;
}

const std::vector<Column>& Query::Columns() {
  const int compilation = sqlite3_stmt_status(m_statement.Get(), SQLITE_STMTSTATUS_REPREPARE, 0);
  if (compilation != m_describedCompilation) {
    m_columns = DescribeColumns(m_statement.Get());
    m_describedCompilation = compilation;
  }
  return m_columns;
}

}  // namespace quorvel::ado::embedded
