#pragma once

#include "ado/embedded/Sqlite.h"

namespace quorvel::ado::embedded {

/// The transaction of a batch. It nests as on a server: an inner COMMIT commits nothing, ROLLBACK ends all levels.
class NestedTransaction {
 public:
  explicit NestedTransaction(sqlite3* database) noexcept : m_database(database) {}

  void Begin();
  /// DriverError without a transaction, as RollBack.
  void Commit();
  void RollBack();
  /// Rolls back what is open, if anything is.
  void Abandon() noexcept;
  /// How many are open, one in the other.
  [[nodiscard]] int Depth() const noexcept { return m_depth; }

 private:
  void RunKept(StatementHandle& statement, const char* sql);

  sqlite3* m_database;
  StatementHandle m_begin;
  StatementHandle m_commit;
  int m_depth = 0;
};

}  // namespace quorvel::ado::embedded
