#pragma once

#include <sqlite3.h>

#include <chrono>
#include <optional>

namespace quorvel::ado::embedded {

/// Ends a command that takes longer than the command timeout: a procedure or a view in a file may have no end, and
/// would hang the host.
class TimeLimit {
 public:
  TimeLimit() = default;
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

  /// Interrupts statements of `database` from now on. The object must outlive the open database.
  void Attach(sqlite3* database) noexcept;
  /// How long a command may take; 0 means without a limit, as ADO counts. It counts from the next command.
  void SetLimit(std::chrono::seconds limit) noexcept { m_limit = limit; }

  /// Whether the current command has taken its time. SQLite knows only the statements that it runs; what else may take
  /// long asks here: a loop of many short ones, and a wait for a lock.
  [[nodiscard]] bool IsReached() const noexcept;

  /// A command, as long as it lives. What ends a transaction afterwards is not interrupted.
  class Command {
   public:
    explicit Command(TimeLimit& limit) noexcept;
    ~Command() { m_limit.m_end.reset(); }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

   private:
    TimeLimit& m_limit;
  };

 private:
  std::chrono::seconds m_limit{0};
  std::optional<std::chrono::steady_clock::time_point> m_end;
};

}  // namespace quorvel::ado::embedded
