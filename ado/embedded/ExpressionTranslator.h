#pragma once

#include "ado/embedded/Expression.h"
#include "ado/embedded/FunctionTranslator.h"
#include "ado/embedded/StatementParts.h"
#include "ado/embedded/TokenCursor.h"
#include "ado/embedded/VariableReferences.h"

namespace quorvel::ado::embedded {

/// Turns a T-SQL expression or condition at the cursor into SQLite's SQL. What differs and is done here: comparison
/// of texts without case, `+` on texts, variables, names with an owner.
class ExpressionTranslator {
 public:
  ExpressionTranslator(TokenCursor& cursor, VariableReferences& variables, StatementParts& parts)
      : m_cursor(cursor), m_variables(variables), m_parts(parts), m_functions(cursor, parts) {}

  [[nodiscard]] Expression ParseExpression();
  /// An expression without operators, unless they are in brackets.
  [[nodiscard]] Expression ParseOperand();

 private:
  Expression ParseAnd();
  Expression ParseNot();
  Expression ParseComparison();
  Expression ParseExists();
  Expression ParsePredicate(const Expression& left);
  Expression ParseIn(const Expression& left, const std::string& negation);
  Expression ParseBetween(const Expression& left, const std::string& negation);
  Expression ParseSum();
  Expression ParseProduct();
  Expression ParseSigned();
  Expression ParseVariable();
  Expression ParseBracketed();
  Expression ParseCase();
  Expression ParseName();

  TokenCursor& m_cursor;
  VariableReferences& m_variables;
  StatementParts& m_parts;
  FunctionTranslator m_functions;
};

}  // namespace quorvel::ado::embedded
