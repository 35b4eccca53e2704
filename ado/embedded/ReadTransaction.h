#pragma once

#include "ado/embedded/Sqlite.h"

namespace quorvel::ado::embedded {

/// One read transaction for several steps: checking whether a procedure has changed, running it, and the next calls of
/// the same Load. Beginning a transaction costs about as much as a small query.
class ReadTransaction {
 public:
  explicit ReadTransaction(sqlite3* database) noexcept : m_database(database) {}

  /// Does nothing inside a transaction, of the batch or its own.
  void Begin();
  /// Ends what Begin began, if anything.
  void End() noexcept;

 private:
  sqlite3* m_database;
  StatementHandle m_begin;
  StatementHandle m_commit;
  bool m_isOpen = false;
};

}  // namespace quorvel::ado::embedded
