#include "ado/embedded/Interpreter.h"

#include <fmt/format.h>

#include "ado/embedded/BatchParser.h"
#include "platform/Error.h"

namespace quorvel::ado::embedded {
namespace {

constexpr int kDeepestNesting = 32;  // a server's limit

/// A statement's line for an error that does not know its own.
[[noreturn]] void RethrowAtLine(const DriverError& error, int line) {
  auto records = error.Records();
  for (Diagnostic& record : records) {
    if (record.line == 0) record.line = line;
  }
  throw DriverError(std::move(records));
}

/// Lines of an inner text mean nothing to the batch that runs it.
[[noreturn]] void RethrowWithoutLine(const DriverError& error) {
  auto records = error.Records();
  for (Diagnostic& record : records) record.line = 0;
  throw DriverError(std::move(records));
}

std::size_t FindParameter(const Program& callee, const std::string& name, std::string_view procedure) {
  for (std::size_t i = 0; i < callee.parameterCount; ++i) {
    if (SameName(callee.variables[i].info.name, name)) return i;
  }
  throw DriverError("42000", 8145, fmt::format("{} is not a parameter for procedure {}.", name, procedure));
}

bool IsTrue(const Value& value) { return !IsNull(value) && ToBoolean(value); }

}  // namespace

Value CoerceVariable(const Value& value, const ParameterInfo& info) {
  try {
    return CoerceToParameter(value, info);
  } catch (const Error& error) {
    throw DriverError(error.Number() == ErrorNumber::Overflow ? "22003" : "22018", 245, error.Description());
  }
}

Frame MakeFrame(const Program& procedure, std::vector<std::optional<Value>> given, std::string_view name) {
  if (given.size() > procedure.parameterCount) {
    throw DriverError("42000", 8144, fmt::format("Procedure or function {} has too many arguments specified.", name));
  }
  Frame frame;
  frame.reserve(procedure.variables.size());
  for (std::size_t i = 0; i < procedure.parameterCount; ++i) {
    const Variable& parameter = procedure.variables[i];
    if (i < given.size() && given[i]) {
      frame.push_back(std::move(*given[i]));
    } else if (parameter.defaultValue || parameter.info.direction != ParameterDirection::Input) {
      frame.push_back(parameter.defaultValue.value_or(Null{}));
    } else {
      throw DriverError("42000", 201,
                        fmt::format("Procedure or function '{}' expects parameter '{}', which was not supplied.", name,
                                    parameter.info.name));
    }
  }
  return frame;
}

Interpreter::Interpreter(sqlite3* database, Procedures& procedures) : m_database(database), m_procedures(procedures) {
  const auto rowCount = [](sqlite3_context* context, int /*count*/, sqlite3_value** /*values*/) {
    sqlite3_result_int64(context, *static_cast<std::int64_t*>(sqlite3_user_data(context)));
  };
  const int code = sqlite3_create_function_v2(database, "tsql_rowcount", 0, SQLITE_UTF8, &m_rowCount, rowCount, nullptr,
                                              nullptr, nullptr);
  if (code != SQLITE_OK) ThrowDriverError(database, code);
}

std::optional<RowSet> Interpreter::Run(const Program& program, Frame& frame) {
  if (m_depth >= kDeepestNesting) {
    throw DriverError("42000", 217,
                      fmt::format("Procedures call each other more than {} levels deep.", kDeepestNesting));
  }
  std::optional<RowSet> rows;
  Running running{program, frame, rows};
  frame.resize(program.variables.size());
  ++m_depth;
  try {
    RunBlock(program.steps, running);
  } catch (...) {
    --m_depth;
    RollBack();
    throw;
  }
  --m_depth;
  return rows;
}

Interpreter::Flow Interpreter::RunBlock(const Block& block, Running& running) {
  for (const Step& step : block) {
    if (RunOne(step, running) == Flow::Return) return Flow::Return;
  }
  return Flow::Next;
}

Interpreter::Flow Interpreter::RunOne(const Step& step, Running& running) {
  try {
    return std::visit([&](const auto& action) { return Do(action, running); }, step.action);
  } catch (const DriverError& error) {
    RethrowAtLine(error, step.line);
  }
}

sqlite3_stmt* Interpreter::Begin(const Query& query, const Frame& frame) {
  if (!query.statement) query.statement = Prepare(m_database, query.sql);
  sqlite3_stmt* statement = query.statement.Get();
  for (const std::size_t variable : query.variables) {
    Bind(m_database, statement, static_cast<int>(variable) + 1, frame[variable]);
  }
  return statement;
}

Interpreter::Flow Interpreter::Do(const QueryStep& step, Running& running) {
  sqlite3_stmt* statement = Begin(step.query, running.frame);
  const ResetGuard guard(statement);
  std::int64_t rowsRead = 0;
  if (!step.targets.empty()) {
    for (; Advance(m_database, statement); ++rowsRead) Assign(statement, step.targets, running);
    m_rowCount = rowsRead;
    return Flow::Next;
  }
  const bool isResult = sqlite3_column_count(statement) > 0 && !running.rows.has_value();
  bool hasRow = Advance(m_database, statement);
  // Described only now: the first step compiles the statement anew when a table was changed.
  if (isResult) running.rows.emplace(ColumnsOf(step.query));
  for (; hasRow; hasRow = Advance(m_database, statement)) {
    if (isResult) AppendRow(statement, *running.rows);
    ++rowsRead;
  }
  m_rowCount = sqlite3_column_count(statement) > 0 ? rowsRead : sqlite3_changes(m_database);
  return Flow::Next;
}

/// Described anew only when SQLite has compiled the statement anew.
const std::vector<Column>& Interpreter::ColumnsOf(const Query& query) {
  const int compilation = sqlite3_stmt_status(query.statement.Get(), SQLITE_STMTSTATUS_REPREPARE, 0);
  if (compilation != query.compilation) {
    query.columns = DescribeColumns(query.statement.Get());
    query.compilation = compilation;
  }
  return query.columns;
}

void Interpreter::Assign(sqlite3_stmt* statement, const std::vector<std::size_t>& targets, Running& running) {
  for (std::size_t i = 0; i < targets.size(); ++i) {
    const Value value = ReadValue(statement, static_cast<int>(i));
    running.frame[targets[i]] = CoerceVariable(value, running.program.variables[targets[i]].info);
  }
}

Value Interpreter::Evaluate(const Query& query, const Running& running) {
  sqlite3_stmt* statement = Begin(query, running.frame);
  const ResetGuard guard(statement);
  return Advance(m_database, statement) ? ReadValue(statement, 0) : Value{};
}

Interpreter::Flow Interpreter::Do(const BranchStep& step, Running& running) {
  for (;;) {
    const bool holds = IsTrue(Evaluate(step.condition, running));
    const Flow flow = RunBlock(holds ? step.then : step.otherwise, running);
    if (flow == Flow::Return || !step.repeats || !holds) return flow;
  }
}

Interpreter::Flow Interpreter::Do(const TransactionStep& step, Running& /*running*/) {
  switch (step.action) {
    case TransactionAction::Begin:
      // At once a writer: a reader that turns writer later can be refused, however long it waits.
      if (m_transactions == 0) Execute(m_database, "BEGIN IMMEDIATE");
      ++m_transactions;
      break;
    case TransactionAction::Commit:
      if (m_transactions == 0) {
        throw DriverError("42000", 3902, "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION.");
      }
      if (m_transactions == 1) Execute(m_database, "COMMIT");
      --m_transactions;
      break;
    case TransactionAction::Rollback:
      if (m_transactions == 0) {
        throw DriverError("42000", 3903, "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION.");
      }
      RollBack();
  }
  return Flow::Next;
}

void Interpreter::RollBack() noexcept {
  // SQLite has already rolled back by itself after some errors, a full disk among them.
  if (m_transactions > 0 && sqlite3_get_autocommit(m_database) == 0) {
    sqlite3_exec(m_database, "ROLLBACK", nullptr, nullptr, nullptr);
  }
  m_transactions = 0;
}

Interpreter::Flow Interpreter::Do(const ReturnStep& /*step*/, Running& /*running*/) { return Flow::Return; }

Interpreter::Flow Interpreter::Do(const CallStep& step, Running& running) {
  try {
    const auto callee = m_procedures.Find(step.procedure);
    std::vector<std::optional<Value>> given(callee->parameterCount);
    std::vector<std::pair<std::size_t, std::size_t>> outputs;
    for (std::size_t i = 0; i < step.arguments.size(); ++i) {
      const CallStep::Passed& passed = step.arguments[i];
      const std::size_t parameter = passed.name.empty() ? i : FindParameter(*callee, passed.name, step.procedure);
      if (parameter >= given.size()) given.resize(parameter + 1);
      if (parameter < callee->parameterCount && passed.value) {
        given[parameter] = CoerceVariable(Evaluate(*passed.value, running), callee->variables[parameter].info);
      }
      if (passed.output) outputs.emplace_back(parameter, *passed.output);
    }
    Frame frame = MakeFrame(*callee, std::move(given), step.procedure);
    auto rows = Run(*callee, frame);
    if (rows && !running.rows) running.rows = std::move(rows);
    for (const auto& [parameter, target] : outputs) {
      running.frame[target] = CoerceVariable(frame[parameter], running.program.variables[target].info);
    }
  } catch (const DriverError& error) {
    RethrowWithoutLine(error);
  }
  return Flow::Next;
}

Interpreter::Flow Interpreter::Do(const ExecuteTextStep& step, Running& running) {
  const Value text = Evaluate(step.text, running);
  if (IsNull(text)) return Flow::Next;
  try {
    const std::string batch = ToText(text);
    const Program program = BatchParser(batch, m_procedures.Tables()).ParseBatch();
    Frame frame;
    auto rows = Run(program, frame);
    if (rows && !running.rows) running.rows = std::move(rows);
  } catch (const DriverError& error) {
    RethrowWithoutLine(error);
  }
  return Flow::Next;
}

Interpreter::Flow Interpreter::Do(const RaiseStep& step, Running& running) {
  const Value message = Evaluate(step.message, running);
  throw DriverError("42000", 50000, IsNull(message) ? std::string() : ToText(message));
}

Interpreter::Flow Interpreter::Do(const DefineProcedureStep& step, Running& /*running*/) {
  m_procedures.Define(step);
  return Flow::Next;
}

}  // namespace quorvel::ado::embedded
