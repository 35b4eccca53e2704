#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "ado/engine/RowSet.h"

namespace quorvel::ado {

enum class FilterOperator { Equal, NotEqual, Less, Greater, LessOrEqual, GreaterOrEqual, Like };

/// The value of a criterion as it was written: what stood between the quotes, the digits of a number.
struct FilterLiteral {
  enum class Kind { Null, Text, Number, Date };
  Kind kind;
  std::string text;
};

/// One `Field op value` of filter criteria. Must not outlive `rows`.
class FilterCondition {
 public:
  /// adErrInvalidArgument where operator, value and the column's type do not go together.
  FilterCondition(const RowSet& rows, std::size_t column, FilterOperator op, FilterLiteral literal);

  [[nodiscard]] bool Meets(std::size_t row) const;

 private:
  void ReadLiteral();
  void Check(DataType columnType) const;
  void ReadPattern();
  [[nodiscard]] bool MeetsText(std::string_view text) const;
  [[nodiscard]] bool MatchesPattern(std::string_view text) const;
  /// How the cell stands to the literal; nothing when they cannot be compared.
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
  bool m_isOpenInFront = false;  ///< the pattern began with a wildcard
  bool m_isOpenBehind = false;
};

}  // namespace quorvel::ado
