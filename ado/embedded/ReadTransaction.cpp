#include "ado/embedded/ReadTransaction.h"

#include <utility>

namespace quorvel::ado::embedded {

void ReadTransaction::Begin() {
  if (sqlite3_get_autocommit(m_database) == 0) return;
  if (!m_begin) m_begin = Prepare(m_database, "BEGIN");
  if (!m_commit) m_commit = Prepare(m_database, "COMMIT");
  const ResetGuard guard(m_begin.Get());
  (void)Advance(m_database, m_begin.Get());
  m_isOpen = true;
}

void ReadTransaction::End() noexcept {
  // SQLite ends a transaction by itself after some errors.
  if (!std::exchange(m_isOpen, false) || sqlite3_get_autocommit(m_database) != 0) return;
  const ResetGuard guard(m_commit.Get());
  if (sqlite3_step(m_commit.Get()) != SQLITE_DONE) sqlite3_exec(m_database, "ROLLBACK", nullptr, nullptr, nullptr);
}

}  // namespace quorvel::ado::embedded
