#include "ado/embedded/Expression.h"

#include <fmt/format.h>

#include <string_view>

namespace quorvel::ado::embedded {
namespace {

using Kind = Expression::Kind;
using Chain = Expression::Chain;

constexpr std::string_view kCollation = " COLLATE NOCASE";

bool NeedsCollation(const Expression& expression) { return expression.kind == Kind::Text && !expression.isColumn; }

std::string Bracketed(const std::string& sql) { return "(" + sql + ")"; }

/// Operators of one kind form one chain: brackets around every pair would exceed SQLite's limit on nesting.
Expression Chained(const Expression& left, const std::string& op, const Expression& right, Chain chain) {
  const bool continues = left.chain == Chain::None || left.chain == chain;
  return {fmt::format("{} {} {}", continues ? left.sql : Bracketed(left.sql), op, right.sql),
          chain == Chain::Text ? Kind::Text : Kind::Number, false, chain};
}

}  // namespace

std::string Collated(const Expression& expression) {
  return NeedsCollation(expression) ? expression.sql + std::string(kCollation) : expression.sql;
}

std::string Compared(const Expression& left, const std::string& op, const Expression& right) {
  const bool needsCollation = NeedsCollation(left) || NeedsCollation(right);
  return fmt::format("{} {} {}{}", left.sql, op, right.sql, needsCollation ? kCollation : "");
}

Expression Calculated(const Expression& left, const std::string& op, const Expression& right) {
  return Chained(left, op, right, op == "&" || op == "|" ? Chain::Bits : Chain::Arithmetic);
}

Expression Added(const Expression& left, const Expression& right) {
  if (left.kind == Kind::Number || right.kind == Kind::Number) return Calculated(left, "+", right);
  if (left.kind == Kind::Text || right.kind == Kind::Text) return Chained(left, "||", right, Chain::Text);
  return {fmt::format("tsql_plus({}, {})", left.sql, right.sql)};
}

Expression Closed(Expression chain) {
  if (chain.chain == Chain::None) return chain;
  return {Bracketed(chain.sql), chain.kind};
}

}  // namespace quorvel::ado::embedded
