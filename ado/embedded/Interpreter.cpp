// One Do for each kind of step. An error that comes out of a step gets the line of the step, unless it has one.
#include "ado/embedded/Interpreter.h"

#include <fmt/format.h>

#include "ado/embedded/BatchParser.h"
#include "ado/embedded/SqliteError.h"
#include "platform/Error.h"
#include "platform/Stack.h"

namespace quorvel::ado::embedded {
namespace {

constexpr int kDeepestNesting = 32;  // a server's limit
/// Enough for SQLite to run a statement, and for an error on its way out.
constexpr std::size_t kStackOfStatement = std::size_t{64} * 1024;

/// Gives an error without a line the line of the statement.
[[noreturn]] void RethrowAtLine(const DriverError& error, int line) {
  auto records = error.Records();
  for (Diagnostic& record : records) {
    if (record.line == 0) record.line = line;
  }
  throw DriverError(std::move(records));
}

/// The lines of a definition count from its first one, which may be further down in the batch.
[[noreturn]] void RethrowLower(const DriverError& error, int linesAbove) {
  auto records = error.Records();
  for (Diagnostic& record : records) {
    if (record.line > 0) record.line += linesAbove;
  }
  throw DriverError(std::move(records));
}

/// A line of a called text is not a line of the batch that calls it.
[[noreturn]] void RethrowWithoutLine(const DriverError& error) {
  auto records = error.Records();
  for (Diagnostic& record : records) record.line = 0;
  throw DriverError(std::move(records));
}

bool IsTrue(const Value& value) {
  try {
    return !IsNull(value) && ToBoolean(value);
  } catch (const Error&) {
    throw DriverError("42000", 4145,
                      "An expression of non-boolean type specified in a context where a condition is expected.");
  }
}

}  // namespace

Interpreter::Interpreter(sqlite3* database, FileWatch& file, Procedures& procedures, const TimeLimit& limit,
                         const Restrictions& restrictions)
    : m_database(database),
      m_file(file),
      m_procedures(procedures),
      m_timeLimit(limit),
      m_restrictions(restrictions),
      m_transaction(database) {
  const auto rowCount = [](sqlite3_context* context, int /*count*/, sqlite3_value** /*values*/) {
    sqlite3_result_int64(context, *static_cast<std::int64_t*>(sqlite3_user_data(context)));
  };
  const int code = sqlite3_create_function_v2(database, "tsql_rowcount", 0, SQLITE_UTF8, &m_rowCount, rowCount, nullptr,
                                              nullptr, nullptr);
  if (code != SQLITE_OK) ThrowDriverError(database, code);
}

void Interpreter::Running::KeepFirst(std::optional<RowSet> found) {
  if (found && !rows) rows = std::move(found);
}

std::optional<RowSet> Interpreter::Run(Program& program, Frame& frame) {
  if (m_depth >= kDeepestNesting) {
    throw DriverError("42000", 217,
                      fmt::format("Procedures call each other more than {} levels deep.", kDeepestNesting));
  }
  Running running{program, frame, {}};
  frame.resize(program.variables.size());
  ++m_depth;
  try {
    RunInPlace(program, running);
  } catch (...) {
    --m_depth;
    m_transaction.Abandon();
    m_file.RequireWasInPlace();
    throw;
  }
  --m_depth;
  return std::move(running.rows);
}

std::optional<RowSet> Interpreter::RunCalled(Program& procedure, Frame& frame) {
  const int before = m_transaction.Depth();
  auto rows = Run(procedure, frame);
  if (m_transaction.Depth() > before) {
    m_transaction.Abandon();
    throw DriverError("25000", 266, "The procedure began a transaction and did not end it.");
  }
  return rows;
}

void Interpreter::RunInPlace(Program& program, Running& running) {
  if (m_depth > 1) {
    RunBlock(program.steps, running);
    return;
  }
  m_file.Require();
  RunBlock(program.steps, running);
  m_file.RequireAfterCommit();
}

// Every loop and every call runs a block, also an empty one.
Interpreter::Flow Interpreter::RunBlock(Block& block, Running& running) {
  RequireTimeAndStack();
  for (Step& step : block) {
    if (RunOne(step, running) == Flow::Return) return Flow::Return;
  }
  return Flow::Next;
}

void Interpreter::RequireTimeAndStack() const {
  if (m_timeLimit.IsReached()) ThrowDriverError(m_database, SQLITE_INTERRUPT);
  if (os::StackLeft() < kStackOfStatement) {
    throw DriverError("42000", 217, "Procedures and blocks are nested too deeply for the stack of this thread.");
  }
}

Interpreter::Flow Interpreter::RunOne(Step& step, Running& running) {
  try {
    return std::visit([&](auto& action) { return Do(action, running); }, step.action);
  } catch (const DriverError& error) {
    RethrowAtLine(error, step.line);
  }
}

Interpreter::Flow Interpreter::Do(QueryStep& step, Running& running) {
  if (step.targets.empty()) {
    ReadRows(step.query, running);
  } else {
    AssignRows(step, running);
  }
  return Flow::Next;
}

// A statement that writes may have been compiled for a call that was allowed to.
sqlite3_stmt* Interpreter::Begin(Query& query, const Frame& frame) {
  if (m_restrictions.IsReadOnly()) query.ForgetWriter();
  return query.Begin(m_database, frame);
}

/// The last row wins, as on a server.
void Interpreter::AssignRows(QueryStep& step, Running& running) {
  sqlite3_stmt* statement = Begin(step.query, running.frame);
  const ResetGuard guard(statement);
  std::int64_t rowsRead = 0;
  for (; Advance(m_database, statement); ++rowsRead) {
    for (std::size_t i = 0; i < step.targets.size(); ++i) {
      const std::size_t target = step.targets[i];
      Value value = ReadValue(statement, static_cast<int>(i));
      running.frame[target] = CoerceVariable(std::move(value), running.program.variables[target].info);
    }
  }
  m_rowCount = rowsRead;
}

void Interpreter::ReadRows(Query& query, Running& running) {
  sqlite3_stmt* statement = Begin(query, running.frame);
  const ResetGuard guard(statement);
  std::int64_t rowsRead = 0;
  const bool isResult = sqlite3_column_count(statement) > 0 && !running.rows.has_value();
  bool hasRow = Advance(m_database, statement);
  if (isResult) running.rows.emplace(query.Columns());
  for (; hasRow; hasRow = Advance(m_database, statement)) {
    if (isResult) AppendRow(statement, *running.rows);
    ++rowsRead;
  }
  m_rowCount = sqlite3_column_count(statement) > 0 ? rowsRead : sqlite3_changes(m_database);
}

Value Interpreter::Evaluate(Query& query, const Running& running) {
  sqlite3_stmt* statement = Begin(query, running.frame);
  const ResetGuard guard(statement);
  return Advance(m_database, statement) ? ReadValue(statement, 0) : Value{};
}

Interpreter::Flow Interpreter::Do(BranchStep& step, Running& running) {
  for (;;) {
    const bool holds = IsTrue(Evaluate(step.condition, running));
    const Flow flow = RunBlock(holds ? step.then : step.otherwise, running);
    if (flow == Flow::Return || !step.repeats || !holds) return flow;
  }
}

Interpreter::Flow Interpreter::Do(const TransactionStep& step, Running& /*running*/) {
  switch (step.action) {
    case TransactionAction::Begin:
      m_transaction.Begin();
      break;
    case TransactionAction::Commit:
      m_transaction.Commit();
      break;
    case TransactionAction::Rollback:
      m_transaction.RollBack();
      break;
  }
  return Flow::Next;
}

Interpreter::Flow Interpreter::Do(const ReturnStep& /*step*/, Running& /*running*/) { return Flow::Return; }

Interpreter::Flow Interpreter::Do(CallStep& step, Running& running) {
  try {
    const auto callee = m_procedures.Find(step.procedure);
    Frame frame = MakeFrame(*callee, EvaluateArguments(step, *callee, running), step.procedure);
    running.KeepFirst(Run(*callee, frame));
    AssignOutputs(step, *callee, frame, running);
  } catch (const DriverError& error) {
    RethrowWithoutLine(error);
  }
  return Flow::Next;
}

GivenArguments Interpreter::EvaluateArguments(CallStep& step, const Program& callee, const Running& running) {
  GivenArguments given(callee.parameterCount);
  for (std::size_t i = 0; i < step.arguments.size(); ++i) {
    CallStep::Argument& argument = step.arguments[i];
    const std::size_t parameter = FindParameter(callee, argument, i, step.procedure);
    if (parameter >= given.size()) given.resize(parameter + 1);
    if (parameter < callee.parameterCount && argument.value) {
      given[parameter] = CoerceVariable(Evaluate(*argument.value, running), callee.variables[parameter].info);
    }
  }
  return given;
}

void Interpreter::AssignOutputs(const CallStep& step, const Program& callee, const Frame& outputs, Running& running) {
  for (std::size_t i = 0; i < step.arguments.size(); ++i) {
    const CallStep::Argument& argument = step.arguments[i];
    if (!argument.output) continue;
    const Value& value = outputs[FindParameter(callee, argument, i, step.procedure)];
    running.frame[*argument.output] = CoerceVariable(value, running.program.variables[*argument.output].info);
  }
}

Interpreter::Flow Interpreter::Do(ExecuteTextStep& step, Running& running) {
  const Value text = Evaluate(step.text, running);
  if (IsNull(text)) return Flow::Next;
  try {
    const std::string batch = ToText(text);
    Program program = BatchParser(TokenCursor(batch), m_procedures.Tables()).Parse();
    Frame frame;
    running.KeepFirst(Run(program, frame));
  } catch (const DriverError& error) {
    RethrowWithoutLine(error);
  }
  return Flow::Next;
}

Interpreter::Flow Interpreter::Do(RaiseStep& step, Running& running) {
  const Value message = Evaluate(step.message, running);
  throw DriverError("42000", 50000, IsNull(message) ? std::string() : ToText(message));
}

Interpreter::Flow Interpreter::Do(const DefineProcedureStep& step, Running& /*running*/) {
  try {
    m_procedures.Define(step);
  } catch (const DriverError& error) {
    RethrowLower(error, step.firstLine - 1);
  }
  return Flow::Next;
}

}  // namespace quorvel::ado::embedded
