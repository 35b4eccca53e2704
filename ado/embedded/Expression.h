#pragma once

#include <string>

namespace quorvel::ado::embedded {

/// A T-SQL expression in SQLite's SQL, with what an operator must know of its operands.
struct Expression {
  /// Unknown until the statement runs, for a column or NULL.
  enum class Kind { Unknown, Text, Number };
  /// The operators of an unfinished chain such as `a + b - c`.
  enum class Chain { None, Arithmetic, Bits, Text };

  std::string sql;
  Kind kind = Kind::Unknown;
  bool isColumn = false;  ///< a bare column, which has a collation of its own
  Chain chain = Chain::None;
};

/// The expression as something that is compared: a text that is not a column needs the engine's collation.
[[nodiscard]] std::string Collated(const Expression& expression);
/// `left op right`, compared without regard to letter case when an operand is a text.
[[nodiscard]] std::string Compared(const Expression& left, const std::string& op, const Expression& right);

/// `left op right` for operators between numbers. The result may be continued; Closed ends the chain.
[[nodiscard]] Expression Calculated(const Expression& left, const std::string& op, const Expression& right);
/// `left + right`, which adds numbers and joins texts. When neither operand's kind is known, the values decide.
[[nodiscard]] Expression Added(const Expression& left, const Expression& right);
/// A finished chain, in brackets so that it can be an operand.
[[nodiscard]] Expression Closed(Expression chain);

}  // namespace quorvel::ado::embedded
