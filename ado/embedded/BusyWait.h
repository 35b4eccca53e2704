#pragma once

#include <sqlite3.h>

#include <chrono>

#include "ado/embedded/FileWatch.h"
#include "ado/embedded/TimeLimit.h"

namespace quorvel::ado::embedded {

/// The wait of a database for a lock that another program or thread holds. SQLite would sleep by itself; here the
/// windows of this program draw themselves meanwhile.
class BusyWait {
 public:
  /// A wait for a file that was deleted or replaced ends at once, because it may never end by itself.
  /// The command timeout includes the waits of the command.
  BusyWait(FileWatch& file, const TimeLimit& timeLimit) noexcept : m_file(file), m_timeLimit(timeLimit) {}
  BusyWait(const BusyWait&) = delete;
  BusyWait& operator=(const BusyWait&) = delete;

  /// Waits for the locks of `database` from now on. The object must outlive the open database.
  void Attach(sqlite3* database) noexcept;
  /// How long one wait outside a command may take; 0 means without a limit, as ADO counts.
  void SetLimit(std::chrono::seconds limit) noexcept { m_limit = limit; }
  /// DriverError while this database waits. Drawing may run code of the host, and SQLite takes no other statement in
  /// the middle of one.
  void RefuseWhileWaiting() const;

 private:
  static int Handle(void* self, int tries) noexcept;
  /// Sleeps for a moment; false when the wait is over.
  [[nodiscard]] bool GoOn(int tries);

  FileWatch& m_file;
  const TimeLimit& m_timeLimit;
  std::chrono::seconds m_limit{0};
  std::chrono::steady_clock::time_point m_begin;
  bool m_isDrawing = false;
};

}  // namespace quorvel::ado::embedded
