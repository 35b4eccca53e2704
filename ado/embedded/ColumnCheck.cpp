// Compiles every statement of a program and keeps of all failures only the missing columns: the others are found when
// the statement runs, as on a server.
#include "ado/embedded/ColumnCheck.h"

#include <variant>

namespace quorvel::ado::embedded {
namespace {

class Checker {
 public:
  explicit Checker(sqlite3* database) : m_database(database) {}

  void CheckBlock(Block& block) {
    for (Step& step : block) {
      m_line = step.line;
      std::visit([this](auto& action) { Check(action); }, step.action);
    }
  }

 private:
  void CheckQuery(Query& query) {
    try {
      query.Compile(m_database);
    } catch (const DriverError& error) {
      const Diagnostic& first = error.Records().front();
      if (first.sqlState == "42S22") throw DriverError(first.sqlState, first.nativeError, first.message, m_line);
    }
  }

  void Check(QueryStep& step) { CheckQuery(step.query); }
  void Check(BranchStep& step) {
    CheckQuery(step.condition);
    CheckBlock(step.then);
    CheckBlock(step.otherwise);
  }
  void Check(CallStep& step) {
    for (CallStep::Argument& argument : step.arguments) {
      if (argument.value) CheckQuery(*argument.value);
    }
  }
  void Check(ExecuteTextStep& step) { CheckQuery(step.text); }
  void Check(RaiseStep& step) { CheckQuery(step.message); }
  void Check(const TransactionStep& /*step*/) {}
  void Check(const ReturnStep& /*step*/) {}
  void Check(const DefineProcedureStep& /*step*/) {}

  sqlite3* m_database;
  int m_line = 0;
};

}  // namespace

void RequireColumns(Program& program, sqlite3* database) { Checker(database).CheckBlock(program.steps); }

}  // namespace quorvel::ado::embedded
