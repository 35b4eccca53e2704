#include "grid/GridContent.h"

#include <fmt/format.h>

#include <utility>

#include "platform/ShortDate.h"

namespace quorvel {
namespace {

std::string Formatted(Value value, CellFormat format) {
  if (IsNull(value)) return {};
  const auto* date = std::get_if<DateTime>(&value);
  return date != nullptr && format == CellFormat::ShortDate ? FormatShortDate(*date) : ToText(std::move(value));
}

class NoRows : public RowSource {
 public:
  [[nodiscard]] std::int32_t RowCount() const override { return 0; }
  [[nodiscard]] Value At(std::int32_t /*rowIndex*/, std::int32_t /*column*/) const override { return {}; }
};

void Cut(std::string& text, std::size_t limit) {
  if (text.size() <= limit) return;
  // Not within a character.
  while (limit > 0 && (static_cast<unsigned char>(text[limit]) & 0xC0U) == 0x80U) --limit;
  text.resize(limit);
}

}  // namespace

GridContent::GridContent(std::vector<GridColumn> columns, std::vector<std::int32_t> positions)
    : m_columns(std::move(columns)), m_positions(std::move(positions)) {
  Arrange();
}

void GridContent::ShowColumn(std::int32_t column, bool visible) {
  m_columns.at(static_cast<std::size_t>(column - 1)).visible = visible;
}

void GridContent::GroupBy(std::optional<SortKey> key) {
  m_group = key;
  m_opensAll = true;
}

const GridColumn& GridContent::ShownColumn(std::size_t place) const {
  return m_columns.at(static_cast<std::size_t>(m_shown.at(place) - 1));
}

void GridContent::Arrange() {
  std::vector<std::int32_t> shown;
  for (const std::int32_t column : m_positions) {
    if (m_columns.at(static_cast<std::size_t>(column - 1)).visible) shown.push_back(column);
  }
  const NoRows noRows;
  const RowSource& rows = source != nullptr ? *source : static_cast<const RowSource&>(noRows);
  m_rows.Arrange(rows, m_group, sort);
  if (std::exchange(m_opensAll, false)) m_rows.OpenAll();
  m_shown = std::move(shown);
}

std::string GridContent::CellText(std::int32_t line, std::size_t place) const {
  const std::int32_t row = m_rows.RowIndex(line);
  if (row < 1 || source == nullptr || place >= m_shown.size()) return {};
  return Formatted(source->At(row, m_shown[place]), ShownColumn(place).format);
}

std::string GridContent::HeadingText(const GridRows::Group& heading) const {
  if (!m_group) return {};
  const GridColumn& column = m_columns.at(static_cast<std::size_t>(m_group->column - 1));
  return fmt::format("{}: {} ({})", column.caption, Formatted(heading.value, column.format), heading.count);
}

std::string GridContent::LineText(std::int32_t line, std::string_view separator, std::size_t limit) const {
  if (const GridRows::Group* heading = m_rows.GroupAt(line)) return HeadingText(*heading);
  std::string text;
  for (std::size_t place = 0; place < m_shown.size(); ++place) {
    if (place > 0) text += separator;
    std::string cell = CellText(line, place);
    Cut(cell, limit);
    text += cell;
  }
  return text;
}

}  // namespace quorvel
