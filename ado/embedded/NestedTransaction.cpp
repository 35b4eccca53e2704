#include "ado/embedded/NestedTransaction.h"

namespace quorvel::ado::embedded {

void NestedTransaction::Begin() {
  // A writer from the beginning: SQLite can refuse a reader that turns writer later, however long it would wait.
  if (m_depth == 0) Execute(m_database, "BEGIN IMMEDIATE");
  ++m_depth;
  // The file may have been replaced while this writer waited for another one.
  m_file.RequireForWrite();
}

void NestedTransaction::Commit() {
  if (m_depth == 0) {
    throw DriverError("42000", 3902, "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION.");
  }
  if (m_depth == 1) {
    m_file.RequireForWrite();
    Execute(m_database, "COMMIT");
  }
  --m_depth;
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
