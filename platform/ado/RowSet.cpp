#include "platform/ado/RowSet.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace quorvel::ado {
namespace {

constexpr std::size_t kFirstBlock = std::size_t{4} * 1024;
constexpr std::size_t kLargestBlock = std::size_t{1024} * 1024;

}  // namespace

void RowSet::AppendNull() { AppendCell(Kind::Null, 0); }

void RowSet::AppendBoolean(bool value) { AppendCell(Kind::Boolean, value ? 1 : 0); }

void RowSet::AppendInteger(std::int64_t value) { AppendCell(Kind::Integer, value); }

void RowSet::AppendReal(double value) {
  Cell& cell = m_cells.emplace_back();
  cell.real = value;
  cell.kind = Kind::Real;
}

void RowSet::AppendDateTime(DateTime value) { AppendCell(Kind::DateTime, value.time_since_epoch().count()); }

void RowSet::AppendText(std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("text of 4 GB or more");
  const char* stored = Store(text);
  Cell& cell = m_cells.emplace_back();
  cell.text = stored;
  cell.length = static_cast<std::uint32_t>(text.size());
  cell.kind = Kind::Text;
}

void RowSet::AppendCell(Kind kind, std::int64_t value) {
  Cell& cell = m_cells.emplace_back();
  cell.integer = value;
  cell.kind = kind;
}

const char* RowSet::Store(std::string_view text) {
  if (text.empty()) return "";
  char* place = m_free;
  if (text.size() <= m_freeSize) {
    m_free += text.size();
    m_freeSize -= text.size();
  } else {
    place = AddBlock(text.size());
  }
  std::memcpy(place, text.data(), text.size());
  return place;
}

char* RowSet::AddBlock(std::size_t needed) {
  const std::size_t size = std::clamp(2 * m_blockSize, kFirstBlock, kLargestBlock);
  // A text that would leave little of a block gets one of its own, so that the rest of the current one stays in use.
  const bool standsAlone = needed > size / 4;
  const std::size_t allocated = standsAlone ? needed : size;
  char* place = m_blocks.emplace_back(std::make_unique_for_overwrite<char[]>(allocated)).get();
  if (!standsAlone) {
    m_blockSize = size;
    m_free = place + needed;
    m_freeSize = size - needed;
  }
  return place;
}

Value RowSet::At(std::size_t row, std::size_t column) const {
  const Cell& cell = CellAt(row, column);
  switch (cell.kind) {
    case Kind::Boolean:
      return cell.integer != 0;
    case Kind::Integer:
      return cell.integer;
    case Kind::Real:
      return cell.real;
    case Kind::DateTime:
      return quorvel::DateTime{std::chrono::milliseconds{cell.integer}};
    case Kind::Text:
      return std::string(cell.text, cell.length);
    case Kind::Null:
      break;
  }
  return Null{};
}

std::optional<std::string_view> RowSet::TextAt(std::size_t row, std::size_t column) const {
  const Cell& cell = CellAt(row, column);
  if (cell.kind != Kind::Text) return std::nullopt;
  return std::string_view(cell.text, cell.length);
}

const RowSet::Cell& RowSet::CellAt(std::size_t row, std::size_t column) const {
  static_assert(sizeof(Cell) == 16);
  return m_cells[row * m_columns.size() + column];
}

}  // namespace quorvel::ado
