// One function for each level of precedence, from OR down to a name or a number.
#include "ado/embedded/ExpressionTranslator.h"

#include <fmt/format.h>

#include "ado/embedded/Clauses.h"
#include "ado/embedded/Quoting.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {

using Kind = Expression::Kind;

namespace {

/// The operators that SQLite takes in one sum or product: each is a level of nesting. Each copies what is to its left
/// here, so that a text with many more would take minutes before SQLite could refuse it.
constexpr int kMostOperators = 1000;

}  // namespace

Expression ExpressionTranslator::ParseExpression() {
  const auto guard = m_cursor.EnterNesting();
  Expression first = ParseAnd();
  if (!m_cursor.Is("OR")) return first;
  std::string sql = first.sql;
  while (m_cursor.Accept("OR")) sql += " OR " + ParseAnd().sql;
  return {fmt::format("({})", sql), Kind::Number};
}

Expression ExpressionTranslator::ParseAnd() {
  Expression first = ParseNot();
  if (!m_cursor.Is("AND")) return first;
  std::string sql = first.sql;
  while (m_cursor.Accept("AND")) sql += " AND " + ParseNot().sql;
  return {fmt::format("({})", sql), Kind::Number};
}

Expression ExpressionTranslator::ParseNot() {
  if (!m_cursor.Accept("NOT")) return ParseComparison();
  const auto guard = m_cursor.EnterNesting();
  return {fmt::format("(NOT {})", ParseNot().sql), Kind::Number};
}

Expression ExpressionTranslator::ParseComparison() {
  if (m_cursor.Accept("EXISTS")) return ParseExists();
  const Expression left = ParseSum();
  if (!m_cursor.IsAny({"=", "<>", "!=", "<=", ">=", "<", ">"})) return ParsePredicate(left);
  const std::string op = m_cursor.Take().text;
  return {Compared(left, op, ParseSum()), Kind::Number};
}

Expression ExpressionTranslator::ParseExists() {
  m_cursor.Expect("(");
  Expression result{fmt::format("EXISTS ({})", m_parts.ParseSubquery()), Kind::Number};
  m_cursor.Expect(")");
  return result;
}

/// IS NULL, IN, BETWEEN and LIKE, each with NOT; the expression itself when none of them follows.
Expression ExpressionTranslator::ParsePredicate(const Expression& left) {
  if (m_cursor.Accept("IS")) {
    const bool isNot = m_cursor.Accept("NOT");
    m_cursor.Expect("NULL");
    return {fmt::format("{} IS {}NULL", left.sql, isNot ? "NOT " : ""), Kind::Number};
  }
  const std::string negation = m_cursor.IsAny({"IN", "BETWEEN", "LIKE"}, 1) && m_cursor.Accept("NOT") ? "NOT " : "";
  if (m_cursor.Accept("IN")) return ParseIn(left, negation);
  if (m_cursor.Accept("BETWEEN")) return ParseBetween(left, negation);
  if (m_cursor.Accept("LIKE")) return {fmt::format("{} {}LIKE {}", left.sql, negation, ParseSum().sql), Kind::Number};
  return left;
}

Expression ExpressionTranslator::ParseIn(const Expression& left, const std::string& negation) {
  m_cursor.Expect("(");
  const std::string list = m_cursor.Is("SELECT") ? m_parts.ParseSubquery() : ParseExpressionList(m_cursor, m_parts);
  m_cursor.Expect(")");
  return {fmt::format("{} {}IN ({})", Collated(left), negation, list), Kind::Number};
}

Expression ExpressionTranslator::ParseBetween(const Expression& left, const std::string& negation) {
  const Expression low = ParseSum();
  m_cursor.Expect("AND");
  const Expression high = ParseSum();
  return {fmt::format("{} {}BETWEEN {} AND {}", Collated(left), negation, low.sql, high.sql), Kind::Number};
}

Expression ExpressionTranslator::ParseSum() {
  Expression left = ParseProduct();
  for (int operators = 0; m_cursor.IsAny({"+", "-", "&", "|"}); ++operators) {
    if (operators == kMostOperators) m_cursor.FailNesting();
    const std::string op = m_cursor.Take().text;
    const Expression right = ParseProduct();
    left = op == "+" ? Added(left, right) : Calculated(left, op, right);
  }
  return Closed(std::move(left));
}

Expression ExpressionTranslator::ParseProduct() {
  Expression left = ParseSigned();
  for (int operators = 0; m_cursor.IsAny({"*", "/", "%"}); ++operators) {
    if (operators == kMostOperators) m_cursor.FailNesting();
    const std::string op = m_cursor.Take().text;
    left = Calculated(left, op, ParseSigned());
  }
  return Closed(std::move(left));
}

Expression ExpressionTranslator::ParseSigned() {
  if (!m_cursor.IsAny({"-", "+"})) return ParseOperand();
  const auto guard = m_cursor.EnterNesting();
  if (m_cursor.Accept("-")) return {fmt::format("(- {})", ParseSigned().sql), Kind::Number};
  m_cursor.Take();
  return ParseSigned();
}

Expression ExpressionTranslator::ParseOperand() {
  switch (m_cursor.Peek().kind) {
    case TokenKind::Number:
      return {m_cursor.Take().text, Kind::Number};
    case TokenKind::Text:
      return {QuoteText(m_cursor.Take().text), Kind::Text};
    case TokenKind::Variable:
      return ParseVariable();
    default:
      break;
  }
  if (m_cursor.Accept("NULL")) return {"NULL"};
  if (m_cursor.Accept("CASE")) return ParseCase();
  if (m_cursor.Accept("(")) return ParseBracketed();
  const bool isFunction = m_cursor.Is("(", 1) && m_cursor.Peek().kind == TokenKind::Name;
  if (isFunction) return m_functions.ParseCall(m_cursor.Take().text);
  return ParseName();
}

Expression ExpressionTranslator::ParseVariable() {
  const std::string name = m_cursor.Take().text;
  if (EqualIgnoringCase(name, "@@ROWCOUNT")) return {"tsql_rowcount()", Kind::Number};
  if (EqualIgnoringCase(name, "@@IDENTITY")) return {"last_insert_rowid()", Kind::Number};
  if (EqualIgnoringCase(name, "@@ERROR")) return {"0", Kind::Number};
  const std::size_t number = m_variables.Read(name, m_cursor.Peek().line);
  const DataType type = m_variables.TypeOf(number);
  const Kind kind = IsTextType(type) ? Kind::Text : type == DataType::DBTimeStamp ? Kind::Unknown : Kind::Number;
  return {fmt::format("?{}", number + 1), kind};
}

Expression ExpressionTranslator::ParseBracketed() {
  const Expression inner = m_cursor.Is("SELECT") ? Expression{m_parts.ParseSubquery()} : ParseExpression();
  m_cursor.Expect(")");
  return {fmt::format("({})", inner.sql), inner.kind};
}

Expression ExpressionTranslator::ParseCase() {
  std::string sql = "CASE";
  if (!m_cursor.Is("WHEN")) sql += " " + Collated(ParseExpression());
  Kind kind = Kind::Unknown;
  while (m_cursor.Accept("WHEN")) {
    const std::string condition = ParseExpression().sql;
    m_cursor.Expect("THEN");
    const Expression value = ParseExpression();
    kind = value.kind;
    sql += fmt::format(" WHEN {} THEN {}", condition, value.sql);
  }
  if (m_cursor.Accept("ELSE")) sql += " ELSE " + ParseExpression().sql;
  m_cursor.Expect("END");
  return {sql + " END", kind};
}

/// A column with its table before it at most: owner and database are dropped.
Expression ExpressionTranslator::ParseName() {
  std::string column = m_cursor.ExpectName();
  std::string table;
  while (m_cursor.Accept(".")) {
    table = column;
    if (m_cursor.Accept("*")) return {QuoteName(table) + ".*", Kind::Unknown, true};
    column = m_cursor.ExpectName();
  }
  return {table.empty() ? QuoteName(column) : QuoteName(table) + "." + QuoteName(column), Kind::Unknown, true};
}

}  // namespace quorvel::ado::embedded
