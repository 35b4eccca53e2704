// Cells and texts are in blocks that never move, so a cell can point to its text, and appending copies nothing that is
// already there.

#include "ado/engine/RowSet.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "ado/engine/Names.h"

namespace quorvel::ado {
namespace {

constexpr std::size_t kFirstBlock = std::size_t{4} * 1024;
constexpr std::size_t kLargestBlock = std::size_t{32} * 1024;

}  // namespace

void RowSet::AppendNull() { (void)AddCell(Kind::Null); }

void RowSet::AppendBoolean(bool value) { AddCell(Kind::Boolean).integer = value ? 1 : 0; }

void RowSet::AppendInteger(std::int64_t value) { AddCell(Kind::Integer).integer = value; }

void RowSet::AppendReal(double value) { AddCell(Kind::Real).real = value; }

void RowSet::AppendDateTime(DateTime value) { AddCell(Kind::DateTime).integer = value.time_since_epoch().count(); }

void RowSet::AppendText(std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("text of 4 GB or more");
  const char* stored = Store(text);
  Cell& cell = AddCell(Kind::Text);
  cell.text = stored;
  cell.length = static_cast<std::uint32_t>(text.size());
}

RowSet::Cell& RowSet::AddCell(Kind kind) {
  const std::size_t place = m_cellCount % kCellsPerBlock;
  if (place == 0) m_cellBlocks.push_back(std::make_unique_for_overwrite<Cell[]>(kCellsPerBlock));
  Cell& cell = m_cellBlocks.back()[place];
  cell.kind = kind;
  ++m_cellCount;
  return cell;
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
  // A long text gets its own block, so that the rest of the current block stays in use.
  const bool hasOwnBlock = needed > size / 4;
  const std::size_t allocated = hasOwnBlock ? needed : size;
  char* place = m_textBlocks.emplace_back(std::make_unique_for_overwrite<char[]>(allocated)).get();
  if (!hasOwnBlock) {
    m_blockSize = size;
    m_free = place + needed;
    m_freeSize = size - needed;
  }
  return place;
}

std::optional<std::size_t> RowSet::FindColumn(std::string_view name) const noexcept {
  const auto find = [this](const auto& matches) { return std::find_if(m_columns.begin(), m_columns.end(), matches); };
  // Nearly every caller writes a name as the database does, and asks for every row.
  auto found = find([name](const Column& each) { return each.name == name; });
  if (found == m_columns.end()) found = find([name](const Column& each) { return SameName(each.name, name); });
  if (found == m_columns.end()) return std::nullopt;
  return static_cast<std::size_t>(found - m_columns.begin());
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
  const std::size_t index = row * m_columns.size() + column;
  return m_cellBlocks[index / kCellsPerBlock][index % kCellsPerBlock];
}

}  // namespace quorvel::ado
