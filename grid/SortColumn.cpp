#include "grid/SortColumn.h"

#include <limits>
#include <string>
#include <utility>

#include "platform/Text.h"
#include "platform/Utf.h"

namespace quorvel {
namespace {

/// Counted in characters, since letter case is folded one character for one: two cut texts compare as the whole texts
/// do, unless they are equal.
constexpr std::size_t kKeptCharacters = 64;

std::size_t BytesOfBeginning(const std::string& text) {
  std::size_t position = 0;
  for (std::size_t i = 0; i < kKeptCharacters && position < text.size(); ++i) utf::Take(text, position);
  return position;
}

Value Beginning(Value value) {
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr || text->size() <= kKeptCharacters) return value;
  return std::string(*text, 0, BytesOfBeginning(*text));
}

bool MayBeCut(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr && text->size() >= kKeptCharacters && CountCharacters(*text) >= kKeptCharacters;
}

}  // namespace

SortColumn::SortColumn(const RowSource& source, SortKey key, std::int32_t rowCount) : m_source(source), m_key(key) {
  if (ReadNumbers(rowCount)) return;
  m_numbers = {};
  ReadValues(rowCount);
}

bool SortColumn::ReadNumbers(std::int32_t rowCount) {
  const std::size_t noKind = Value().index();
  std::size_t kind = noKind;
  m_numbers.reserve(static_cast<std::size_t>(rowCount));
  for (std::int32_t row = 1; row <= rowCount; ++row) {
    const Value value = m_source.At(row, m_key.column);
    if (IsNull(value)) {
      m_numbers.push_back(std::numeric_limits<std::int64_t>::min());
      continue;
    }
    if (kind == noKind) kind = value.index();
    if (value.index() != kind) return false;
    if (const auto* date = std::get_if<DateTime>(&value)) {
      m_numbers.push_back(date->time_since_epoch().count());
    } else if (const auto* number = std::get_if<std::int64_t>(&value)) {
      m_numbers.push_back(*number);
    } else {
      return false;
    }
  }
  return true;
}

void SortColumn::ReadValues(std::int32_t rowCount) {
  m_values.reserve(static_cast<std::size_t>(rowCount));
  for (std::int32_t row = 1; row <= rowCount; ++row) m_values.push_back(Beginning(m_source.At(row, m_key.column)));
}

int SortColumn::Compare(std::int32_t left, std::int32_t right) const {
  const int order = CompareRows(left, right);
  return m_key.ascending ? order : -order;
}

int SortColumn::CompareRows(std::int32_t left, std::int32_t right) const {
  const auto i = static_cast<std::size_t>(left - 1);
  const auto j = static_cast<std::size_t>(right - 1);
  if (m_values.empty())
    return static_cast<int>(m_numbers[i] > m_numbers[j]) - static_cast<int>(m_numbers[i] < m_numbers[j]);
  const int order = CompareValues(m_values[i], m_values[j]);
  if (order != 0 || !MayBeCut(m_values[i])) return order;
  const Value whole = m_source.At(left, m_key.column);
  return CompareValues(whole, m_source.At(right, m_key.column));
}

}  // namespace quorvel
