#include <fmt/format.h>

#include "ado/embedded/QueryTranslator.h"

namespace quorvel::ado::embedded {
namespace {

using Select = QueryTranslator::Select;
using SelectItem = QueryTranslator::SelectItem;
using Kind = QueryTranslator::Kind;

/// What a text expression yields is compared like a column's text by whoever selects from it.
std::string ItemSql(const SelectItem& item) {
  const bool needsCollation = item.expression.kind == Kind::Text && !item.expression.isColumn;
  std::string sql = item.expression.sql + (needsCollation ? " COLLATE NOCASE" : "");
  return item.alias.empty() ? sql : sql + " AS " + QuoteName(item.alias);
}

}  // namespace

std::string Select::Sql() const {
  std::string list;
  for (const SelectItem& item : items) list += (list.empty() ? "" : ", ") + ItemSql(item);
  return fmt::format("{} {}{}", head, list, tail);
}

std::vector<std::size_t> Select::Targets() const {
  std::vector<std::size_t> targets;
  for (const SelectItem& item : items) {
    if (item.target) targets.push_back(*item.target);
  }
  return targets;
}

Query QueryTranslator::Finish(std::string sql) const { return {std::move(sql), {m_used.begin(), m_used.end()}, {}}; }

/// A whole query: cores joined by UNION, ORDER BY, and TOP, which SQLite says at the end.
Select QueryTranslator::ParseSelect() {
  const auto guard = m_cursor.EnterNesting();
  m_cursor.Expect("SELECT");
  const bool isDistinct = m_cursor.Accept("DISTINCT");
  if (!isDistinct) m_cursor.Accept("ALL");
  const std::string limit = ParseTop();
  Select select = ParseSelectCore();
  select.head = isDistinct ? "SELECT DISTINCT" : "SELECT";
  while (m_cursor.Accept("UNION")) {
    if (!limit.empty()) m_cursor.FailUnsupported("TOP together with UNION");
    const bool keepsAll = m_cursor.Accept("ALL");
    m_cursor.Expect("SELECT");
    const bool isNextDistinct = m_cursor.Accept("DISTINCT");
    Select next = ParseSelectCore();
    next.head = isNextDistinct ? "SELECT DISTINCT" : "SELECT";
    select.tail += fmt::format(" UNION {}{}", keepsAll ? "ALL " : "", next.Sql());
  }
  if (m_cursor.Is("ORDER")) select.tail += " " + ParseOrderBy();
  select.tail += limit;
  return select;
}

std::string QueryTranslator::ParseTop() {
  if (!m_cursor.Accept("TOP")) return {};
  const std::string count = ParsePrimary().sql;
  if (m_cursor.Is("PERCENT")) m_cursor.FailUnsupported("TOP .. PERCENT");
  return " LIMIT " + count;
}

/// From the select list to HAVING.
Select QueryTranslator::ParseSelectCore() {
  Select select;
  do {
    select.items.push_back(ParseSelectItem());
  } while (m_cursor.Accept(","));
  if (m_cursor.Is("INTO")) m_cursor.FailUnsupported("SELECT .. INTO");
  select.tail = ParseFrom();
  select.tail += ParseWhere();
  if (m_cursor.AcceptAll({"GROUP", "BY"})) select.tail += " GROUP BY " + ParseExpressionList();
  if (m_cursor.Accept("HAVING")) select.tail += " HAVING " + ParseExpression().sql;
  return select;
}

SelectItem QueryTranslator::ParseSelectItem() {
  if (m_cursor.Accept("*")) return {{"*", Kind::Unknown, true}, {}, {}};
  if (m_cursor.Peek().kind == TokenKind::Variable && m_cursor.Is("=", 1)) {
    const std::size_t target = FindVariable(m_cursor.Take().text);
    m_cursor.Expect("=");
    return {ParseExpression(), {}, target};
  }
  if (m_cursor.IsName() && m_cursor.Is("=", 1)) {
    std::string alias = m_cursor.ExpectName();
    m_cursor.Expect("=");
    return {ParseExpression(), std::move(alias), {}};
  }
  Expression expression = ParseExpression();
  return {std::move(expression), ParseAlias(), {}};
}

std::string QueryTranslator::ParseAlias() {
  if (m_cursor.Accept("AS")) {
    return m_cursor.Peek().kind == TokenKind::Text ? m_cursor.Take().text : m_cursor.ExpectName();
  }
  return m_cursor.IsName() ? m_cursor.ExpectName() : std::string();
}

std::string QueryTranslator::ParseFrom() {
  if (!m_cursor.Accept("FROM")) return {};
  std::string sources = ParseTableSource();
  while (m_cursor.Accept(",")) sources += ", " + ParseTableSource();
  return " FROM " + sources;
}

std::string QueryTranslator::ParseWhere() {
  return m_cursor.Accept("WHERE") ? " WHERE " + ParseExpression().sql : std::string();
}

bool QueryTranslator::IsJoin() const { return m_cursor.IsAny({"JOIN", "INNER", "LEFT", "RIGHT", "FULL", "CROSS"}); }

std::string QueryTranslator::ParseTableSource() {
  std::string source = ParseTablePrimary();
  while (IsJoin()) source = ParseJoinTail(source);
  return source;
}

/// A join after its left operand. When another join stands where ON is due, its ON comes first and the
/// right operand is that whole join: `a JOIN b JOIN c ON .. ON ..`. SQLite wants brackets for it.
std::string QueryTranslator::ParseJoinTail(const std::string& left) {
  const auto guard = m_cursor.EnterNesting();
  if (m_cursor.AcceptAll({"CROSS", "JOIN"})) return fmt::format("{} CROSS JOIN {}", left, ParseTablePrimary());
  std::string kind = m_cursor.IsAny({"INNER", "LEFT", "RIGHT", "FULL"}) ? m_cursor.Take().text : "INNER";
  m_cursor.Accept("OUTER");
  m_cursor.Expect("JOIN");
  std::string right = ParseTablePrimary();
  bool isNested = false;
  while (IsJoin()) {
    right = ParseJoinTail(right);
    isNested = true;
  }
  m_cursor.Expect("ON");
  const std::string condition = ParseExpression().sql;
  return fmt::format(fmt::runtime(isNested ? "{} {} JOIN ({}) ON {}" : "{} {} JOIN {} ON {}"), left, kind, right,
                     condition);
}

std::string QueryTranslator::ParseTablePrimary() {
  const auto guard = m_cursor.EnterNesting();
  std::string source;
  if (m_cursor.Accept("(")) {
    source = fmt::format("({})", m_cursor.Is("SELECT") ? ParseSelect().Sql() : ParseTableSource());
    m_cursor.Expect(")");
  } else {
    source = QuoteName(m_cursor.ExpectObjectName());
  }
  const std::string alias = ParseAlias();
  SkipHints();
  return alias.empty() ? source : source + " AS " + QuoteName(alias);
}

std::string QueryTranslator::ParseTableName() {
  std::string name = m_cursor.ExpectObjectName();
  SkipHints();
  return name;
}

/// Locking hints are for a server: here a writer locks the whole file.
void QueryTranslator::SkipHints() {
  if (!m_cursor.AcceptAll({"WITH", "("})) return;
  while (!m_cursor.Accept(")")) {
    if (m_cursor.AtEnd()) m_cursor.Fail();
    m_cursor.Take();
  }
}

std::string QueryTranslator::ParseOrderBy() {
  m_cursor.Expect("ORDER");
  m_cursor.Expect("BY");
  std::string sql = "ORDER BY ";
  do {
    if (!sql.ends_with(' ')) sql += ", ";
    const Expression key = ParseExpression();
    sql += key.sql;
    if (key.kind == Kind::Text && !key.isColumn) sql += " COLLATE NOCASE";
    if (m_cursor.Accept("DESC"))
      sql += " DESC";
    else
      m_cursor.Accept("ASC");
  } while (m_cursor.Accept(","));
  return sql;
}

}  // namespace quorvel::ado::embedded
