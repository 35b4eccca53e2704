#include <fmt/format.h>

#include <algorithm>

#include "ado/embedded/QueryTranslator.h"
#include "ado/embedded/SqlType.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {
namespace {

using Expression = QueryTranslator::Expression;
using Kind = QueryTranslator::Kind;

/// A bare column compares by its own collation; any other text needs to be told.
std::string Comparable(const Expression& left, const Expression& right) {
  const bool needsCollation =
      (left.kind == Kind::Text && !left.isColumn) || (right.kind == Kind::Text && !right.isColumn);
  return needsCollation ? right.sql + " COLLATE NOCASE" : right.sql;
}

std::string SelfComparable(const Expression& left) {
  return left.kind == Kind::Text && !left.isColumn ? left.sql + " COLLATE NOCASE" : left.sql;
}

std::string Bracketed(const std::string& sql) { return "(" + sql + ")"; }

/// A finished chain of operators, in brackets so that it can be an operand.
Expression Closed(Expression chain) {
  if (chain.chain.empty()) return chain;
  return {Bracketed(chain.sql), chain.kind};
}

/// `left op right`. Operators of one kind form one chain: brackets round every pair would exceed SQLite's nesting.
Expression Chained(const Expression& left, const std::string& op, const Expression& right, Kind kind) {
  const std::string chain = op == "||" ? "text" : op == "&" || op == "|" ? "bits" : "arithmetic";
  const bool continues = left.chain.empty() || left.chain == chain;
  return {fmt::format("{} {} {}", continues ? left.sql : Bracketed(left.sql), op, right.sql), kind, false, chain};
}

/// `+` adds numbers and joins texts; when neither operand tells, the values decide.
Expression Plus(const Expression& left, const Expression& right) {
  if (left.kind == Kind::Number || right.kind == Kind::Number) return Chained(left, "+", right, Kind::Number);
  if (left.kind == Kind::Text || right.kind == Kind::Text) return Chained(left, "||", right, Kind::Text);
  return {fmt::format("tsql_plus({}, {})", left.sql, right.sql)};
}

}  // namespace

Expression QueryTranslator::ParseExpression() {
  const auto guard = m_cursor.EnterNesting();
  Expression first = ParseAnd();
  if (!m_cursor.Is("OR")) return first;
  std::string sql = first.sql;
  while (m_cursor.Accept("OR")) sql += " OR " + ParseAnd().sql;
  return {Bracketed(sql), Kind::Number};
}

Expression QueryTranslator::ParseAnd() {
  Expression first = ParseNot();
  if (!m_cursor.Is("AND")) return first;
  std::string sql = first.sql;
  while (m_cursor.Accept("AND")) sql += " AND " + ParseNot().sql;
  return {Bracketed(sql), Kind::Number};
}

Expression QueryTranslator::ParseNot() {
  if (!m_cursor.Accept("NOT")) return ParseComparison();
  const auto guard = m_cursor.EnterNesting();
  return {fmt::format("(NOT {})", ParseNot().sql), Kind::Number};
}

Expression QueryTranslator::ParseComparison() {
  if (m_cursor.Accept("EXISTS")) {
    m_cursor.Expect("(");
    Expression result{fmt::format("EXISTS ({})", ParseSelect().Sql()), Kind::Number};
    m_cursor.Expect(")");
    return result;
  }
  const Expression left = ParseSum();
  for (const std::string_view op : {"=", "<>", "!=", "<=", ">=", "<", ">"}) {
    if (!m_cursor.Accept(op)) continue;
    const Expression right = ParseSum();
    return {fmt::format("{} {} {}", left.sql, op, Comparable(left, right)), Kind::Number};
  }
  return ParsePredicateTail(left);
}

/// IS NULL, IN, BETWEEN and LIKE, each with NOT; the expression itself when none of them follows.
Expression QueryTranslator::ParsePredicateTail(const Expression& left) {
  if (m_cursor.Accept("IS")) {
    const bool isNot = m_cursor.Accept("NOT");
    m_cursor.Expect("NULL");
    return {fmt::format("{} IS {}NULL", left.sql, isNot ? "NOT " : ""), Kind::Number};
  }
  const std::string negation = m_cursor.IsAny({"IN", "BETWEEN", "LIKE"}, 1) && m_cursor.Accept("NOT") ? "NOT " : "";
  if (m_cursor.Accept("IN")) {
    m_cursor.Expect("(");
    const std::string list = m_cursor.Is("SELECT") ? ParseSelect().Sql() : ParseExpressionList();
    m_cursor.Expect(")");
    return {fmt::format("{} {}IN ({})", SelfComparable(left), negation, list), Kind::Number};
  }
  if (m_cursor.Accept("BETWEEN")) {
    const Expression low = ParseSum();
    m_cursor.Expect("AND");
    const Expression high = ParseSum();
    return {fmt::format("{} {}BETWEEN {} AND {}", SelfComparable(left), negation, low.sql, high.sql), Kind::Number};
  }
  if (m_cursor.Accept("LIKE")) return {fmt::format("{} {}LIKE {}", left.sql, negation, ParseSum().sql), Kind::Number};
  return left;
}

Expression QueryTranslator::ParseSum() {
  Expression left = ParseProduct();
  while (m_cursor.IsAny({"+", "-", "&", "|"})) {
    const std::string op = m_cursor.Take().text;
    left = op == "+" ? Plus(left, ParseProduct()) : Chained(left, op, ParseProduct(), Kind::Number);
  }
  return Closed(std::move(left));
}

Expression QueryTranslator::ParseProduct() {
  Expression left = ParseUnary();
  while (m_cursor.IsAny({"*", "/", "%"})) {
    const std::string op = m_cursor.Take().text;
    left = Chained(left, op, ParseUnary(), Kind::Number);
  }
  return Closed(std::move(left));
}

Expression QueryTranslator::ParseUnary() {
  if (!m_cursor.IsAny({"-", "+"})) return ParsePrimary();
  const auto guard = m_cursor.EnterNesting();
  if (m_cursor.Accept("-")) return {fmt::format("(- {})", ParseUnary().sql), Kind::Number};
  m_cursor.Take();
  return ParseUnary();
}

Expression QueryTranslator::ParsePrimary() {
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
  if (isFunction) return ParseFunction(m_cursor.Take().text);
  return ParseName();
}

Expression QueryTranslator::ParseVariable() {
  const std::string name = m_cursor.Take().text;
  if (EqualIgnoringCase(name, "@@ROWCOUNT")) return {"tsql_rowcount()", Kind::Number};
  if (EqualIgnoringCase(name, "@@IDENTITY")) return {"last_insert_rowid()", Kind::Number};
  if (EqualIgnoringCase(name, "@@ERROR")) return {"0", Kind::Number};
  const std::size_t index = FindVariable(name);
  m_used.insert(index);
  const DataType type = m_variables[index].info.type;
  const Kind kind = IsTextType(type) ? Kind::Text : type == DataType::DBTimeStamp ? Kind::Unknown : Kind::Number;
  return {fmt::format("?{}", index + 1), kind};
}

std::size_t QueryTranslator::FindVariable(const std::string& name) const {
  const auto found = std::find_if(m_variables.begin(), m_variables.end(), [&](const Variable& variable) {
    return EqualIgnoringCase(variable.info.name, name);
  });
  if (found == m_variables.end()) {
    throw DriverError("42000", 137, fmt::format("Must declare the scalar variable \"{}\".", name),
                      m_cursor.Peek().line);
  }
  return static_cast<std::size_t>(found - m_variables.begin());
}

Expression QueryTranslator::ParseBracketed() {
  Expression inner = m_cursor.Is("SELECT") ? Expression{ParseSelect().Sql()} : ParseExpression();
  m_cursor.Expect(")");
  return {fmt::format("({})", inner.sql), inner.kind};
}

Expression QueryTranslator::ParseCase() {
  std::string sql = "CASE";
  if (!m_cursor.Is("WHEN")) sql += " " + SelfComparable(ParseExpression());
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

/// A column, with at most its table before it: owner and database are dropped.
Expression QueryTranslator::ParseName() {
  std::string column = m_cursor.ExpectName();
  std::string table;
  while (m_cursor.Accept(".")) {
    table = column;
    if (m_cursor.Accept("*")) return {QuoteName(table) + ".*", Kind::Unknown, true};
    column = m_cursor.ExpectName();
  }
  return {table.empty() ? QuoteName(column) : QuoteName(table) + "." + QuoteName(column), Kind::Unknown, true};
}

std::vector<Expression> QueryTranslator::ParseArguments() {
  std::vector<Expression> arguments;
  m_cursor.Expect("(");
  if (m_cursor.Accept(")")) return arguments;
  do {
    arguments.push_back(ParseExpression());
  } while (m_cursor.Accept(","));
  m_cursor.Expect(")");
  return arguments;
}

std::string QueryTranslator::ParseExpressionList() {
  std::string list = ParseExpression().sql;
  while (m_cursor.Accept(",")) list += ", " + ParseExpression().sql;
  return list;
}

}  // namespace quorvel::ado::embedded
