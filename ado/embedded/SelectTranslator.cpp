#include "ado/embedded/SelectTranslator.h"

#include <fmt/format.h>

#include <algorithm>

#include "ado/embedded/Clauses.h"

namespace quorvel::ado::embedded {

using Kind = Expression::Kind;

/// A whole query: cores joined by UNION, ORDER BY, and TOP, which SQLite has at the end.
Select SelectTranslator::ParseSelect() {
  const auto guard = m_cursor.EnterNesting();
  m_cursor.Expect("SELECT");
  const bool isDistinct = m_cursor.Accept("DISTINCT");
  if (!isDistinct) m_cursor.Accept("ALL");
  const std::string limit = ParseTop();
  Select select = ParseCore();
  select.head = isDistinct ? "SELECT DISTINCT" : "SELECT";
  while (m_cursor.Accept("UNION")) {
    if (!limit.empty()) m_cursor.FailUnsupported("TOP together with UNION");
    select.tail += ParseUnion();
  }
  if (m_cursor.Is("ORDER")) select.tail += " " + ParseOrderBy(m_cursor, m_parts);
  select.tail += limit;
  return select;
}

std::string SelectTranslator::ParseUnion() {
  const bool keepsAll = m_cursor.Accept("ALL");
  m_cursor.Expect("SELECT");
  const bool isDistinct = m_cursor.Accept("DISTINCT");
  Select next = ParseCore();
  next.head = isDistinct ? "SELECT DISTINCT" : "SELECT";
  return fmt::format(" UNION {}{}", keepsAll ? "ALL " : "", next.Sql());
}

std::string SelectTranslator::ParseTop() {
  if (!m_cursor.Accept("TOP")) return {};
  const std::string count = m_parts.ParseOperand().sql;
  if (m_cursor.Is("PERCENT")) m_cursor.FailUnsupported("TOP .. PERCENT");
  return " LIMIT " + count;
}

/// From the select list to HAVING.
Select SelectTranslator::ParseCore() {
  Select select;
  do {
    select.items.push_back(ParseItem());
  } while (m_cursor.Accept(","));
  if (m_cursor.Is("INTO")) m_cursor.FailUnsupported("SELECT .. INTO");
  const auto isStar = [](const Select::Item& item) { return item.expression.sql == "*"; };
  select.tail = m_joins.ParseFrom(std::any_of(select.items.begin(), select.items.end(), isStar));
  select.tail += ParseWhere(m_cursor, m_parts);
  if (m_cursor.AcceptAll({"GROUP", "BY"})) select.tail += " GROUP BY " + ParseExpressionList(m_cursor, m_parts);
  if (m_cursor.Accept("HAVING")) select.tail += " HAVING " + m_parts.ParseExpression().sql;
  return select;
}

/// `*`, `@variable = expression`, `alias = expression` or `expression [AS] alias`.
Select::Item SelectTranslator::ParseItem() {
  if (m_cursor.Accept("*")) return {{"*", Kind::Unknown, true}, {}, {}};
  if (m_cursor.Peek().kind == TokenKind::Variable && m_cursor.Is("=", 1)) {
    const std::string name = m_cursor.Take().text;
    const std::size_t target = m_variables.Find(name, m_cursor.Peek().line);
    m_cursor.Expect("=");
    return {m_parts.ParseExpression(), {}, target};
  }
  if (m_cursor.IsName() && m_cursor.Is("=", 1)) {
    std::string alias = m_cursor.ExpectName();
    m_cursor.Expect("=");
    return {m_parts.ParseExpression(), std::move(alias), {}};
  }
  Expression expression = m_parts.ParseExpression();
  return {std::move(expression), ParseAlias(m_cursor), {}};
}

}  // namespace quorvel::ado::embedded
