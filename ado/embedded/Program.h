#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "ado/embedded/Sqlite.h"
#include "ado/engine/Parameter.h"

namespace quorvel::ado::embedded {

/// A variable or parameter of a batch; `info.name` keeps its @. Variables are numbered in order of declaration,
/// parameters first.
struct Variable {
  ParameterInfo info;
  std::optional<Value> defaultValue;  ///< of a parameter
};

/// One SQLite statement: variable n of the batch is bound to ?(n+1). Compiled on first use and kept.
struct Query {
  std::string sql;
  std::vector<std::size_t> variables;  ///< that it reads
  mutable StatementHandle statement;
  mutable std::vector<Column> columns = {};  ///< of its result, as of the compilation counted here
  mutable int compilation = -1;
};

/// CoerceToParameter for a variable inside a batch: its errors are those of the database.
[[nodiscard]] Value CoerceVariable(const Value& value, const ParameterInfo& info);

struct Step;
using Block = std::vector<Step>;

/// Runs a query; its rows are the batch's result, or go into variables, column by column.
struct QueryStep {
  Query query;
  std::vector<std::size_t> targets;
};
/// IF, and WHILE when it repeats.
struct BranchStep {
  Query condition;
  Block then;
  Block otherwise;
  bool repeats = false;
};
enum class TransactionAction { Begin, Commit, Rollback };
struct TransactionStep {
  TransactionAction action;
};
struct ReturnStep {};
/// EXEC procedure. An argument without a value stands for DEFAULT.
struct CallStep {
  struct Passed {
    std::string name;  ///< with its @; empty when passed by position
    std::optional<Query> value;
    std::optional<std::size_t> output;  ///< the variable that receives an OUTPUT parameter
  };
  std::string procedure;
  std::vector<Passed> arguments;
};
/// EXEC (text).
struct ExecuteTextStep {
  Query text;
};
/// RAISERROR.
struct RaiseStep {
  Query message;
};
/// CREATE, ALTER or DROP PROCEDURE; the definition is empty for DROP.
struct DefineProcedureStep {
  enum class Mode { Create, Alter, Drop };
  Mode mode;
  std::string name;
  std::string definition;
};

/// One statement of a batch.
struct Step {
  int line = 0;  ///< 1-based, in the batch
  std::variant<QueryStep, BranchStep, TransactionStep, ReturnStep, CallStep, ExecuteTextStep, RaiseStep,
               DefineProcedureStep>
      action;
};

/// A batch or a procedure's body, ready to run. Holds compiled statements of one database: destroy it before that.
struct Program {
  std::vector<Variable> variables;
  std::size_t parameterCount = 0;  ///< the first so many variables
  bool onlyReads = true;           ///< nothing but SELECTs
  Block steps;
};

}  // namespace quorvel::ado::embedded
