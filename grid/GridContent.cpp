// GridRows says which row is on a line. This file adds the columns and makes each text when it is asked for, so that
// nothing is stored per cell.

#include "grid/GridContent.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "platform/Text.h"

namespace quorvel {
namespace {

constexpr std::size_t kSpokenBytes = 200;
constexpr std::size_t kCopiedBytes = 16U << 20U;

class NoRows : public RowSource {
 public:
  [[nodiscard]] std::int32_t RowCount() const override { return 0; }
  [[nodiscard]] Value At(std::int32_t /*rowIndex*/, std::int32_t /*column*/) const override { return {}; }
};

/// Cuts `text` to `limit` bytes at most, not within a character.
void Cut(std::string& text, std::size_t limit) {
  if (text.size() <= limit) return;
  while (limit > 0 && (static_cast<unsigned char>(text[limit]) & 0xC0U) == 0x80U) --limit;
  text.resize(limit);
}

}  // namespace

GridContent::GridContent(std::vector<GridColumn> columns, std::vector<std::int32_t> columnOrder)
    : m_columns(std::move(columns)), m_columnOrder(std::move(columnOrder)) {
  Arrange();
}

void GridContent::ShowColumn(std::int32_t column, bool visible) {
  m_columns.at(static_cast<std::size_t>(column - 1)).visible = visible;
}

void GridContent::GroupBy(std::optional<SortKey> group) {
  m_group = group;
  m_opensAll = true;
}

void GridContent::Arrange() {
  std::vector<std::int32_t> shown;
  for (const std::int32_t column : m_columnOrder) {
    if (m_columns.at(static_cast<std::size_t>(column - 1)).visible) shown.push_back(column);
  }
  ArrangeBy(m_sort);
  if (std::exchange(m_opensAll, false)) m_rows.OpenAll();
  m_shown = std::move(shown);
}

void GridContent::ArrangeBy(const std::vector<SortKey>& sort) {
  const NoRows noRows;
  m_rows.Arrange(m_source != nullptr ? *m_source : static_cast<const RowSource&>(noRows), m_group, sort);
}

void GridContent::SortByPosition(std::size_t position) {
  const SortKey current = m_sort.empty() ? SortKey{} : m_sort.front();
  const std::int32_t column = m_shown.at(position);
  std::vector<SortKey> sort = {{.column = column, .ascending = current.column != column || !current.ascending}};
  ArrangeBy(sort);
  m_sort = std::move(sort);
}

const GridColumn& GridContent::ShownColumn(std::size_t position) const {
  return m_columns.at(static_cast<std::size_t>(m_shown.at(position) - 1));
}

std::optional<Value> GridContent::ValueAt(std::int32_t line, std::size_t position) const {
  const std::int32_t rowIndex = m_rows.RowIndex(line);
  if (rowIndex < 1 || m_source == nullptr || position >= m_shown.size()) return std::nullopt;
  return m_source->At(rowIndex, m_shown[position]);
}

ShownCell GridContent::Cell(std::int32_t line, std::size_t position) const {
  std::optional<Value> value = ValueAt(line, position);
  return value ? ShowCell(std::move(*value), ShownColumn(position).format) : ShownCell();
}

std::string GridContent::CellText(std::int32_t line, std::size_t position) const {
  std::optional<Value> value = ValueAt(line, position);
  return value ? FormatCell(std::move(*value), ShownColumn(position).format) : std::string();
}

std::string GridContent::SpokenCell(std::int32_t line, std::size_t position) const {
  std::optional<Value> value = ValueAt(line, position);
  if (!value) return {};
  const GridColumn& column = ShownColumn(position);
  return SpeakCell(std::move(*value), column.format, column.caption);
}

bool GridContent::RowHas(std::int32_t rowIndex, std::string_view folded) const {
  return m_source != nullptr && std::ranges::any_of(m_shown, [&](std::int32_t column) {
           const CellFormat format = m_columns.at(static_cast<std::size_t>(column - 1)).format;
           return FoldCase(FormatCell(m_source->At(rowIndex, column), format)).find(folded) != std::string::npos;
         });
}

std::string GridContent::CellTip(std::int32_t line, std::size_t position) const {
  const std::optional<Value> value = ValueAt(line, position);
  return value ? CompleteCell(*value, ShownColumn(position).format) : std::string();
}

std::string GridContent::MarkOf(std::int32_t line) const {
  const std::int32_t rowIndex = m_rows.RowIndex(line);
  return rowIndex > 0 && m_source != nullptr ? m_source->MarkOf(rowIndex) : std::string();
}

std::string GridContent::HeadingText(const RowGroup& group) const {
  if (!m_group) return {};
  const GridColumn& column = m_columns.at(static_cast<std::size_t>(m_group->column - 1));
  return fmt::format("{}: {} ({})", column.caption, FormatCell(group.value, column.format), group.count);
}

std::string GridContent::SpokenLine(std::int32_t line) const {
  return Join(line, ", ", kSpokenBytes, &GridContent::SpokenCell);
}

std::string GridContent::CopiedLine(std::int32_t line) const {
  return Join(line, "\t", kCopiedBytes, &GridContent::CellText);
}

std::string GridContent::Join(std::int32_t line, std::string_view separator, std::size_t limit, ReadCell read) const {
  if (const RowGroup* group = m_rows.GroupAt(line)) return HeadingText(*group);
  std::string text;
  for (std::size_t position = 0; position < m_shown.size(); ++position) {
    if (position > 0) text += separator;
    std::string cell = (this->*read)(line, position);
    Cut(cell, limit);
    text += cell;
  }
  return text;
}

}  // namespace quorvel
