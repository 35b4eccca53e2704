#include "ado/embedded/JoinTranslator.h"

#include <fmt/format.h>

#include "ado/embedded/Clauses.h"
#include "ado/embedded/Quoting.h"

namespace quorvel::ado::embedded {

std::string JoinTranslator::ParseFrom() {
  if (!m_cursor.Accept("FROM")) return {};
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
  return fmt::format("{} {} JOIN {} ON {}", left, kind, right, m_parts.ParseExpression().sql);
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
