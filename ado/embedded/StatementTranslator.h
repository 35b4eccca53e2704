#pragma once

#include <string>
#include <vector>

#include "ado/embedded/ExpressionTranslator.h"
#include "ado/embedded/Query.h"
#include "ado/embedded/SelectTranslator.h"
#include "ado/embedded/StatementParts.h"
#include "ado/embedded/VariableReferences.h"

namespace quorvel::ado::embedded {

/// Translates the parts of one T-SQL statement into SQLite's SQL and makes a Query of them, with the variables that the
/// statement reads. It connects the translators of expressions, function calls, SELECTs and joins.
class StatementTranslator final : private StatementParts {
 public:
  StatementTranslator(TokenCursor& cursor, const std::vector<Variable>& variables);
  StatementTranslator(const StatementTranslator&) = delete;
  StatementTranslator& operator=(const StatementTranslator&) = delete;

  [[nodiscard]] Expression ParseExpression() override { return m_expressions.ParseExpression(); }
  [[nodiscard]] Select ParseSelect() { return m_selects.ParseSelect(); }
  /// " WHERE condition", or nothing.
  [[nodiscard]] std::string ParseWhere();
  /// One expression, as a query that returns its value.
  [[nodiscard]] Query ParseScalar();

  /// The statement with the variables read so far.
  [[nodiscard]] Query Finish(std::string sql) const { return {std::move(sql), m_variables.NumbersRead()}; }
  /// The number of a variable. DriverError when it is not declared.
  [[nodiscard]] std::size_t FindVariable(const std::string& name) const;

 private:
  [[nodiscard]] Expression ParseOperand() override { return m_expressions.ParseOperand(); }
  [[nodiscard]] std::string ParseSubquery() override { return m_selects.ParseSelect().Sql(); }

  TokenCursor& m_cursor;
  VariableReferences m_variables;
  ExpressionTranslator m_expressions;
  SelectTranslator m_selects;
};

}  // namespace quorvel::ado::embedded
