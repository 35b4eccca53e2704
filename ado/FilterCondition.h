#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "ado/engine/RowSet.h"

namespace quorvel::ado {

enum class FilterOperator { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual, Like };

/// The value of a criterion as it was written, without quotes or #.
struct FilterLiteral {
  enum class Kind { Null, Text, Number, Date };
  Kind kind;
  std::string text;
};

/// One `Field op value` of filter criteria. The literal is converted once to every type that it can be read as, and
/// each cell is then compared in its own type. Must not outlive `rows`.
class FilterCondition {
 public:
  /// adErrInvalidArgument when operator, value and the column's type do not match.
  FilterCondition(const RowSet& rows, std::size_t column, FilterOperator op, FilterLiteral literal);

  [[nodiscard]] bool Meets(std::size_t row) const;

 private:
  void ReadLiteral();
  [[nodiscard]] bool Fits(DataType columnType) const;
  void ReadPattern();
  [[nodiscard]] bool MeetsText(std::string_view text) const;
  [[nodiscard]] bool MatchesPattern(std::string_view text) const;
  /// Negative, 0 or positive as the cell is less than, equal to or greater than the literal; nothing when they cannot
  /// be compared.
  [[nodiscard]] std::optional<int> Compare(const Value& cell) const;
  [[nodiscard]] bool Holds(int order) const;

  const RowSet& m_rows;
  std::size_t m_column;
  FilterOperator m_operator;
  FilterLiteral m_literal;
  std::optional<bool> m_boolean;
  std::optional<std::int64_t> m_integer;
  std::optional<double> m_real;
  std::optional<DateTime> m_date;
  bool m_anyBefore = false;  ///< the pattern began with a wildcard
  bool m_anyAfter = false;   ///< the pattern ended with a wildcard
};

}  // namespace quorvel::ado
