#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "ado/embedded/Query.h"
#include "ado/embedded/Variable.h"

namespace quorvel::ado::embedded {

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
/// EXEC procedure. An argument without a value is DEFAULT.
struct CallStep {
  struct Argument {
    std::string name;  ///< with its @; empty when passed by position
    std::optional<Query> value;
    std::optional<std::size_t> output;  ///< the variable that receives an OUTPUT parameter
  };
  std::string procedure;
  std::vector<Argument> arguments;
};
/// EXEC (text): runs the batch that a text holds.
struct ExecuteTextStep {
  Query text;
};
/// RAISERROR: ends the batch with an error.
struct RaiseStep {
  Query message;
};
/// CREATE, ALTER or DROP PROCEDURE; the definition is empty for DROP.
struct DefineProcedureStep {
  enum class Mode { Create, Alter, Drop };
  Mode mode;
  std::string name;
  std::string definition;
  int firstLine;  ///< the definition's, in the batch
};

/// One statement of a batch.
struct Step {
  int line = 0;  ///< 1-based, in the batch
  std::variant<QueryStep, BranchStep, TransactionStep, ReturnStep, CallStep, ExecuteTextStep, RaiseStep,
               DefineProcedureStep>
      action;
};

/// A batch or a procedure's body, ready to run on one database. Running it compiles its queries, so it must be
/// destroyed before the database is closed.
struct Program {
  std::vector<Variable> variables;
  std::size_t parameterCount = 0;  ///< that many variables, from the first one on, are parameters
  bool onlyReads = true;           ///< contains nothing that writes, calls or begins a transaction
  Block steps;
};

}  // namespace quorvel::ado::embedded
