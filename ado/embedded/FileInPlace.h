#pragma once

#include <sqlite3.h>

#include <chrono>

namespace quorvel::ado::embedded {

/// Throws DriverError 08S01, a lost connection, when the file at the database's path is no longer the one that is open:
/// a deleted or replaced file takes its content with it when it is closed. Windows lets no program remove an open
/// file.
void RequireFileInPlace(sqlite3* database);

/// The same question before statements. It costs a system call, which is a good part of a small query.
class FileWatch {
 public:
  explicit FileWatch(sqlite3* database) noexcept : m_database(database) {}

  /// Asks; every write needs it.
  void RequireForWrite();
  /// Asks unless the last answer is younger than a tenth of a second: what is read meanwhile stood in the file when it
  /// was replaced.
  void RequireForRead();

 private:
  sqlite3* m_database;
  std::chrono::steady_clock::time_point m_validUntil{};
};

}  // namespace quorvel::ado::embedded
