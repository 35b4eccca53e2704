#include "ado/embedded/NestedTransaction.h"

namespace quorvel::ado::embedded {

void NestedTransaction::Begin() {
  // A writer from the beginning: SQLite can refuse a reader that turns writer later, however long it would wait.
  if (m_depth == 0) RunKept(m_begin, "BEGIN IMMEDIATE");
  ++m_depth;
}

void NestedTransaction::Commit() {
  if (m_depth == 0) {
    throw DriverError("42000", 3902, "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION.");
  }
  if (m_depth == 1) RunKept(m_commit, "COMMIT");
  --m_depth;
}

/// Each save runs both, and compiling them takes as long as running them.
void NestedTransaction::RunKept(StatementHandle& statement, const char* sql) {
  if (!statement) statement = Prepare(m_database, sql);
  const ResetGuard guard(statement.Get());
  (void)Advance(m_database, statement.Get());
}

void NestedTransaction::RollBack() {
  if (m_depth == 0) {
    throw DriverError("42000", 3903, "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION.");
  }
  Abandon();
}

void NestedTransaction::Abandon() noexcept {
  // SQLite has already rolled back by itself after some errors, a full disk among them.
  if (m_depth > 0 && sqlite3_get_autocommit(m_database) == 0) {
    sqlite3_exec(m_database, "ROLLBACK", nullptr, nullptr, nullptr);
  }
  m_depth = 0;
}

}  // namespace quorvel::ado::embedded
