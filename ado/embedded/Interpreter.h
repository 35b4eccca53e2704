#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "ado/embedded/Procedures.h"
#include "ado/embedded/Program.h"
#include "ado/engine/RowSet.h"

namespace quorvel::ado::embedded {

/// The values of a program's variables, by number.
using Frame = std::vector<Value>;

/// A procedure's frame from the arguments given by position; the rest take their defaults. DriverError, as a server's,
/// for too many arguments or a missing one. `name` is the procedure's, for the error.
[[nodiscard]] Frame MakeFrame(const Program& procedure, std::vector<std::optional<Value>> given, std::string_view name);

/// Runs programs on one database connection and keeps its transaction: as with XACT_ABORT ON, any error rolls an open
/// transaction back and ends the batch.
class Interpreter {
 public:
  /// Also registers tsql_rowcount() on the database, which must not run statements after the interpreter is gone.
  Interpreter(sqlite3* database, Procedures& procedures);

  /// Runs a program with its variables in `frame` and returns its first result set.
  std::optional<RowSet> Run(const Program& program, Frame& frame);

 private:
  enum class Flow { Next, Return };
  /// Where the first result set goes; null once there is one, or where none is wanted.
  struct Running {
    const Program& program;
    Frame& frame;
    std::optional<RowSet>& rows;
  };
  Flow RunBlock(const Block& block, Running& running);
  Flow RunOne(const Step& step, Running& running);

  Flow Do(const QueryStep& step, Running& running);
  Flow Do(const BranchStep& step, Running& running);
  Flow Do(const TransactionStep& step, Running& running);
  Flow Do(const ReturnStep& step, Running& running);
  Flow Do(const CallStep& step, Running& running);
  Flow Do(const ExecuteTextStep& step, Running& running);
  Flow Do(const RaiseStep& step, Running& running);
  Flow Do(const DefineProcedureStep& step, Running& running);

  [[nodiscard]] sqlite3_stmt* Begin(const Query& query, const Frame& frame);
  [[nodiscard]] static const std::vector<Column>& ColumnsOf(const Query& query);
  void Assign(sqlite3_stmt* statement, const std::vector<std::size_t>& targets, Running& running);
  [[nodiscard]] Value Evaluate(const Query& query, const Running& running);
  void RollBack() noexcept;

  sqlite3* m_database;
  Procedures& m_procedures;
  std::int64_t m_rowCount = 0;  ///< rows that the last query read or changed: @@ROWCOUNT
  int m_transactions = 0;       ///< how deep BEGIN TRANSACTION is nested
  int m_depth = 0;              ///< how deep calls are nested
};

}  // namespace quorvel::ado::embedded
