#pragma once

#include <string>

#include "ado/embedded/Expression.h"

namespace quorvel::ado::embedded {

/// The parts of a statement that contain each other: an expression may contain a query or a function call, and both
/// contain expressions. The translator of one part reaches the others through this face.
class StatementParts {
 public:
  virtual ~StatementParts() = default;

  [[nodiscard]] virtual Expression ParseExpression() = 0;
  /// An expression without operators, unless they are in brackets.
  [[nodiscard]] virtual Expression ParseOperand() = 0;
  /// A SELECT inside a statement, in SQLite's SQL.
  [[nodiscard]] virtual std::string ParseSubquery() = 0;
};

}  // namespace quorvel::ado::embedded
