#pragma once

#include <optional>
#include <vector>

#include "ado/embedded/CallFrame.h"
#include "ado/embedded/FileWatch.h"
#include "ado/embedded/NestedTransaction.h"
#include "ado/embedded/Procedures.h"
#include "ado/embedded/Program.h"
#include "ado/embedded/Restrictions.h"
#include "ado/embedded/TimeLimit.h"
#include "ado/engine/RowSet.h"

namespace quorvel::ado::embedded {

/// Runs programs on one database connection and keeps its transaction: as with XACT_ABORT ON, any error rolls an open
/// transaction back and ends the batch.
class Interpreter {
 public:
  /// Also registers tsql_rowcount() on the database, which must not run statements after the interpreter is gone.
  Interpreter(sqlite3* database, FileWatch& file, Procedures& procedures, const TimeLimit& limit,
              const Restrictions& restrictions);

  /// Runs a program with its variables in `frame` and returns its first result set. DriverError 08S01 when the
  /// database's file was deleted or replaced; a program that only reads may notice that a moment later. HYT00 at the
  /// end of the command's time.
  std::optional<RowSet> Run(Program& program, Frame& frame);
  /// Run for a procedure that the component calls. It must end the transactions that it begins: what the component
  /// saves later would never be stored. Otherwise they are rolled back, and DriverError 266, as on a server.
  std::optional<RowSet> RunCalled(Program& procedure, Frame& frame);

 private:
  enum class Flow { Next, Return };
  /// One run of a program.
  struct Running {
    const Program& program;
    Frame& frame;
    std::optional<RowSet> rows;  ///< the first result set

    /// Takes the result set of a called program unless there is an earlier one.
    void KeepFirst(std::optional<RowSet> found);
  };
  void RunInPlace(Program& program, Running& running);
  Flow RunBlock(Block& block, Running& running);
  void RequireTimeAndStack() const;
  Flow RunOne(Step& step, Running& running);

  Flow Do(QueryStep& step, Running& running);
  Flow Do(BranchStep& step, Running& running);
  Flow Do(const TransactionStep& step, Running& running);
  Flow Do(const ReturnStep& step, Running& running);
  Flow Do(CallStep& step, Running& running);
  Flow Do(ExecuteTextStep& step, Running& running);
  Flow Do(RaiseStep& step, Running& running);
  Flow Do(const DefineProcedureStep& step, Running& running);

  [[nodiscard]] sqlite3_stmt* Begin(Query& query, const Frame& frame);
  void AssignRows(QueryStep& step, Running& running);
  void ReadRows(Query& query, Running& running);
  [[nodiscard]] Value Evaluate(Query& query, const Running& running);
  [[nodiscard]] GivenArguments EvaluateArguments(CallStep& step, const Program& callee, const Running& running);
  static void AssignOutputs(const CallStep& step, const Program& callee, const Frame& outputs, Running& running);

  sqlite3* m_database;
  FileWatch& m_file;
  Procedures& m_procedures;
  const TimeLimit& m_timeLimit;
  const Restrictions& m_restrictions;
  NestedTransaction m_transaction;
  std::int64_t m_rowCount = 0;  ///< rows that the last query read or changed: @@ROWCOUNT
  int m_depth = 0;              ///< how deep calls are nested
};

}  // namespace quorvel::ado::embedded
