#include "ado/embedded/StatementTranslator.h"

#include "ado/embedded/Clauses.h"

namespace quorvel::ado::embedded {

StatementTranslator::StatementTranslator(TokenCursor& cursor, const std::vector<Variable>& variables)
    : m_cursor(cursor),
      m_variables(variables),
      m_expressions(cursor, m_variables, *this),
      m_selects(cursor, m_variables, *this) {}

std::string StatementTranslator::ParseWhere() { return embedded::ParseWhere(m_cursor, *this); }

Query StatementTranslator::ParseScalar() {
  const Expression value = ParseExpression();
  return Finish("SELECT " + value.sql);
}

std::size_t StatementTranslator::FindVariable(const std::string& name) const {
  return m_variables.Find(name, m_cursor.Peek().line);
}

}  // namespace quorvel::ado::embedded
