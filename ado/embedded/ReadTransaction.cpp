#include "ado/embedded/ReadTransaction.h"

#include <utility>

namespace quorvel::ado::embedded {

void ReadTransaction::Begin() {
  if (sqlite3_get_autocommit(m_database) == 0) return;
  Run(m_begin, "BEGIN");
  m_isOpen = true;
}

void ReadTransaction::End() {
  // SQLite ends a transaction by itself after some errors.
  if (std::exchange(m_isOpen, false) && sqlite3_get_autocommit(m_database) == 0) Run(m_commit, "COMMIT");
}

void ReadTransaction::Run(StatementHandle& statement, const char* sql) {
  if (!statement) statement = Prepare(m_database, sql);
  const ResetGuard guard(statement.Get());
  (void)Advance(m_database, statement.Get());
}

}  // namespace quorvel::ado::embedded
