// The literal is read once as every type that it can be. A cell is then compared in its own type, a text without regard
// to letter case and trailing blanks. Only a comparison with NULL can find a cell without a value.

#include "ado/FilterCondition.h"

#include <fmt/format.h>

#include <utility>

#include "ado/engine/AdoError.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::ado {
namespace {

constexpr std::string_view kWildcards = "*%";

template <typename Number>
int Order(Number left, Number right) {
  if (left < right) return -1;
  return left > right ? 1 : 0;
}

/// The literal as `reader` reads it, or nothing.
template <typename Reader>
auto Attempt(Reader reader, const std::string& text) -> std::optional<decltype(reader(Value{}))> {
  try {
    return reader(Value{text});
  } catch (const Error&) {
    return std::nullopt;
  }
}

std::string_view WithoutTrailingBlanks(std::string_view text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

}  // namespace

FilterCondition::FilterCondition(const RowSet& rows, std::size_t column, FilterOperator op, FilterLiteral literal)
    : m_rows(rows), m_column(column), m_operator(op), m_literal(std::move(literal)) {
  ReadLiteral();
  if (!Fits(rows.Columns()[column].type)) {
    ThrowAdoError(ErrorNumber::AdoInvalidArgument,
                  fmt::format(R"(The filter cannot compare the field "{}" with the value "{}" in this way.)",
                              rows.Columns()[column].name, m_literal.text));
  }
  if (op == FilterOperator::Like) ReadPattern();
}

void FilterCondition::ReadLiteral() {
  if (m_literal.kind == FilterLiteral::Kind::Null) return;
  m_date = ParseDateTime(m_literal.text);
  if (m_literal.kind == FilterLiteral::Kind::Date) return;
  m_boolean = Attempt(ToBoolean, m_literal.text);
  m_real = Attempt(ToDouble, m_literal.text);
  // A key beyond 2^53 must not become a double, and a fraction must not be rounded away.
  const auto whole = Attempt(ToInt64, m_literal.text);
  if (whole && m_real && static_cast<double>(*whole) == *m_real) m_integer = whole;
}

bool FilterCondition::Fits(DataType columnType) const {
  using Kind = FilterLiteral::Kind;
  const bool isLike = m_operator == FilterOperator::Like;
  if (m_literal.kind == Kind::Null)
    return m_operator == FilterOperator::Equal || m_operator == FilterOperator::NotEqual;
  if (columnType == DataType::Empty) return !isLike || m_literal.kind == Kind::Text;
  if (IsTextType(columnType)) return m_literal.kind == Kind::Text || (m_literal.kind == Kind::Number && !isLike);
  if (isLike) return false;
  if (columnType == DataType::DBTimeStamp) return m_date.has_value();
  if (columnType == DataType::Boolean) return m_boolean.has_value();
  return m_real.has_value();
}

void FilterCondition::ReadPattern() {
  std::string_view pattern = m_literal.text;
  if (!pattern.empty() && kWildcards.find(pattern.front()) != std::string_view::npos) {
    m_anyBefore = true;
    pattern.remove_prefix(1);
  }
  if (!pattern.empty() && kWildcards.find(pattern.back()) != std::string_view::npos) {
    m_anyAfter = true;
    pattern.remove_suffix(1);
  }
  if (pattern.find_first_of(kWildcards) != std::string_view::npos) {
    ThrowAdoError(
        ErrorNumber::AdoInvalidArgument,
        fmt::format("The filter's LIKE takes a wildcard only at the beginning and the end: \"{}\".", m_literal.text));
  }
  m_literal.text = FoldCase(m_anyAfter ? pattern : WithoutTrailingBlanks(pattern));
}

bool FilterCondition::Meets(std::size_t row) const {
  const auto text = m_rows.TextAt(row, m_column);
  if (m_literal.kind == FilterLiteral::Kind::Null) {
    const bool isNull = !text && IsNull(m_rows.At(row, m_column));
    return isNull == (m_operator == FilterOperator::Equal);
  }
  if (text) return MeetsText(*text);
  const auto order = Compare(m_rows.At(row, m_column));
  return order && Holds(*order);
}

bool FilterCondition::MeetsText(std::string_view text) const {
  if (m_operator == FilterOperator::Like) return MatchesPattern(text);
  return Holds(CompareIgnoringCase(WithoutTrailingBlanks(text), WithoutTrailingBlanks(m_literal.text)));
}

bool FilterCondition::MatchesPattern(std::string_view text) const {
  const std::string folded = FoldCase(m_anyAfter ? text : WithoutTrailingBlanks(text));
  const std::string& pattern = m_literal.text;
  if (m_anyBefore && m_anyAfter) return folded.find(pattern) != std::string::npos;
  if (m_anyBefore) return folded.ends_with(pattern);
  return m_anyAfter ? folded.starts_with(pattern) : folded == pattern;
}

std::optional<int> FilterCondition::Compare(const Value& cell) const {
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) {
    if (m_integer) return Order(*whole, *m_integer);
    if (m_real) return Order(static_cast<double>(*whole), *m_real);
  } else if (const auto* real = std::get_if<double>(&cell)) {
    if (m_real) return Order(*real, *m_real);
  } else if (const auto* date = std::get_if<DateTime>(&cell)) {
    if (m_date) return Order(*date, *m_date);
  } else if (const auto* truth = std::get_if<bool>(&cell)) {
    if (m_boolean) return Order(*truth, *m_boolean);
  }
  return std::nullopt;
}

bool FilterCondition::Holds(int order) const {
  switch (m_operator) {
    case FilterOperator::Equal:
      return order == 0;
    case FilterOperator::NotEqual:
      return order != 0;
    case FilterOperator::Less:
      return order < 0;
    case FilterOperator::Greater:
      return order > 0;
    case FilterOperator::LessOrEqual:
      return order <= 0;
    case FilterOperator::GreaterOrEqual:
      return order >= 0;
    case FilterOperator::Like:
      break;
  }
  return false;
}

}  // namespace quorvel::ado
