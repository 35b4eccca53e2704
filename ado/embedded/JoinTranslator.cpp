#include "ado/embedded/JoinTranslator.h"

#include <fmt/format.h>

#include "ado/embedded/Clauses.h"
#include "ado/embedded/Quoting.h"
#include "platform/AtScopeEnd.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {

std::string JoinTranslator::ParseFrom(bool keepsColumnOrder) {
  if (!m_cursor.Accept("FROM")) return {};
  // A subquery in the clause sets its own.
  const AtScopeEnd restore([this, outer = m_keepsColumnOrder] { m_keepsColumnOrder = outer; });
  m_keepsColumnOrder = keepsColumnOrder;
  std::string sources = ParseSource();
  while (m_cursor.Accept(",")) sources += ", " + ParseSource();
  return " FROM " + sources;
}

std::string JoinTranslator::ParseSource() {
  std::string source = ParseTable();
  while (IsJoin()) source = ParseJoin(source);
  return source;
}

/// A join after its left operand. In `a JOIN b JOIN c ON .. ON ..` the first ON belongs to the inner join, and the
/// right operand of the outer join is the whole inner one. SQLite needs brackets around that operand.
std::string JoinTranslator::ParseJoin(const std::string& left) {
  const auto guard = m_cursor.EnterNesting();
  if (m_cursor.AcceptAll({"CROSS", "JOIN"})) return fmt::format("{} CROSS JOIN {}", left, ParseTable());
  const std::string kind = m_cursor.IsAny({"INNER", "LEFT", "RIGHT", "FULL"}) ? m_cursor.Take().text : "INNER";
  m_cursor.Accept("OUTER");
  m_cursor.Expect("JOIN");
  std::string right = ParseTable();
  const bool isNested = IsJoin();
  while (IsJoin()) right = ParseJoin(right);
  if (isNested) right = fmt::format("({})", right);
  m_cursor.Expect("ON");
  const std::string condition = m_parts.ParseExpression().sql;
  // SQLite reads the right operand of a RIGHT JOIN whole before a WHERE can narrow it.
  if (EqualIgnoringCase(kind, "RIGHT") && !m_keepsColumnOrder) {
    return fmt::format("{} LEFT JOIN ({}) ON {}", right, left, condition);
  }
  return fmt::format("{} {} JOIN {} ON {}", left, kind, right, condition);
}

/// A table, a subquery or a join in brackets, with its alias.
std::string JoinTranslator::ParseTable() {
  const auto guard = m_cursor.EnterNesting();
  std::string source;
  if (m_cursor.Accept("(")) {
    source = fmt::format("({})", m_cursor.Is("SELECT") ? m_parts.ParseSubquery() : ParseSource());
    m_cursor.Expect(")");
  } else {
    source = QuoteName(m_cursor.ExpectObjectName());
  }
  const std::string alias = ParseAlias(m_cursor);
  SkipTableHints(m_cursor);
  return alias.empty() ? source : source + " AS " + QuoteName(alias);
}

bool JoinTranslator::IsJoin() const { return m_cursor.IsAny({"JOIN", "INNER", "LEFT", "RIGHT", "FULL", "CROSS"}); }

}  // namespace quorvel::ado::embedded
