// Criteria are evaluated while they are read, a whole column at a time: every condition gives one flag per row, and AND
// and OR combine the flags. No tree is built.

#include "ado/Filter.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "ado/FilterCondition.h"
#include "ado/engine/AdoError.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::ado {
namespace {

/// Deeper than real criteria, and safe for the stack.
constexpr int kDeepestBrackets = 100;

bool IsWordCharacter(char c) {
  const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  const bool isNonAscii = (static_cast<unsigned char>(c) & 0x80U) != 0;
  return isLetter || isNonAscii || (c >= '0' && c <= '9') || c == '_' || c == '@' || c == '$';
}

/// One flag for each row.
using Mask = std::vector<bool>;

class CriteriaReader {
 public:
  CriteriaReader(const RowSet& rows, std::string_view text) : m_rows(rows), m_text(text) {}

  Mask Read() {
    Mask mask = ReadAlternatives();
    SkipBlanks();
    if (m_at < m_text.size()) Fail("AND, OR or the end");
    return mask;
  }

 private:
  Mask ReadAlternatives() {
    Mask mask = ReadConjunction();
    while (TakeWord("OR")) {
      const Mask other = ReadConjunction();
      std::transform(mask.begin(), mask.end(), other.begin(), mask.begin(), std::logical_or<>());
    }
    return mask;
  }

  Mask ReadConjunction() {
    Mask mask = ReadOperand();
    while (TakeWord("AND")) {
      const Mask other = ReadOperand();
      std::transform(mask.begin(), mask.end(), other.begin(), mask.begin(), std::logical_and<>());
    }
    return mask;
  }

  Mask ReadOperand() {
    if (!Take("(")) return ReadCondition();
    if (++m_depth > kDeepestBrackets) Fail("fewer brackets");
    Mask mask = ReadAlternatives();
    if (!Take(")")) Fail("a closing bracket");
    --m_depth;
    return mask;
  }

  Mask ReadCondition() {
    const std::size_t column = FindColumn(ReadName());
    const FilterOperator op = ReadOperator();
    const FilterCondition condition(m_rows, column, op, ReadLiteral());
    Mask mask(m_rows.RowCount());
    for (std::size_t row = 0; row < mask.size(); ++row) mask[row] = condition.Meets(row);
    return mask;
  }

  std::string_view ReadName() {
    const bool isBracketed = Take("[");
    const std::string_view name = isBracketed ? TakeUntil(']') : PeekWord();
    if (!isBracketed) m_at += name.size();
    if (name.empty()) Fail("the name of a field");
    return name;
  }

  [[nodiscard]] std::size_t FindColumn(std::string_view name) const {
    const auto column = m_rows.FindColumn(name);
    if (!column) ThrowAdoError(ErrorNumber::AdoItemNotFound, fmt::format("The filter names the field \"{}\".", name));
    return *column;
  }

  FilterOperator ReadOperator() {
    static constexpr std::array<std::pair<std::string_view, FilterOperator>, 6> kSigns{{
        {"<=", FilterOperator::LessOrEqual},
        {">=", FilterOperator::GreaterOrEqual},
        {"<>", FilterOperator::NotEqual},
        {"=", FilterOperator::Equal},
        {"<", FilterOperator::Less},
        {">", FilterOperator::Greater},
    }};
    for (const auto& [sign, op] : kSigns) {
      if (Take(sign)) return op;
    }
    if (!TakeWord("LIKE")) Fail("= <> < > <= >= or LIKE");
    return FilterOperator::Like;
  }

  FilterLiteral ReadLiteral() {
    if (Take("'")) return {FilterLiteral::Kind::Text, ReadQuoted()};
    if (Take("#")) return ReadDate();
    if (TakeWord("NULL")) return {FilterLiteral::Kind::Null, {}};
    const auto end = std::min(m_text.find_first_not_of("+-.0123456789eE", m_at), m_text.size());
    std::string number(m_text.substr(m_at, end - m_at));
    try {
      static_cast<void>(ToDouble(Value{number}));
    } catch (const Error&) {
      Fail("a text between single quotes, a date between #, a number or NULL");
    }
    m_at = end;
    return {FilterLiteral::Kind::Number, std::move(number)};
  }

  FilterLiteral ReadDate() {
    std::string date(TrimBlanks(TakeUntil('#')));
    if (!ParseDateTime(date)) Fail("a date as YYYY-MM-DD or YYYY-MM-DD HH:MM:SS between #");
    return {FilterLiteral::Kind::Date, std::move(date)};
  }

  /// The rest of a quoted text, whose quotes inside are doubled.
  std::string ReadQuoted() {
    std::string text(TakeUntil('\''));
    while (m_at < m_text.size() && m_text[m_at] == '\'') {
      ++m_at;
      text.append("'").append(TakeUntil('\''));
    }
    return text;
  }

  std::string_view TakeUntil(char end) {
    const auto found = m_text.find(end, m_at);
    if (found == std::string_view::npos) Fail(fmt::format("a closing {}", end));
    const std::string_view taken = m_text.substr(m_at, found - m_at);
    m_at = found + 1;
    return taken;
  }

  void SkipBlanks() { m_at = std::min(m_text.find_first_not_of(" \t\r\n", m_at), m_text.size()); }

  bool Take(std::string_view sign) {
    SkipBlanks();
    if (!m_text.substr(m_at).starts_with(sign)) return false;
    m_at += sign.size();
    return true;
  }

  std::string_view PeekWord() {
    SkipBlanks();
    std::size_t end = m_at;
    while (end < m_text.size() && IsWordCharacter(m_text[end])) ++end;
    return m_text.substr(m_at, end - m_at);
  }

  bool TakeWord(std::string_view word) {
    if (!EqualIgnoringCase(PeekWord(), word)) return false;
    m_at += word.size();
    return true;
  }

  [[noreturn]] void Fail(std::string_view expected) const {
    ThrowAdoError(ErrorNumber::AdoInvalidArgument,
                  fmt::format("The filter {} cannot be read: {} was expected at character {}.", m_text, expected,
                              CountCharacters(m_text.substr(0, m_at)) + 1));
  }

  const RowSet& m_rows;
  std::string_view m_text;
  std::size_t m_at = 0;
  int m_depth = 0;
};

}  // namespace

std::vector<std::uint32_t> SelectRows(const RowSet& rows, std::string_view criteria) {
  const Mask mask = CriteriaReader(rows, criteria).Read();
  std::vector<std::uint32_t> selected;
  for (std::size_t row = 0; row < mask.size(); ++row) {
    if (mask[row]) selected.push_back(static_cast<std::uint32_t>(row));
  }
  return selected;
}

}  // namespace quorvel::ado
