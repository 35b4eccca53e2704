#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "grid/GridColumn.h"
#include "grid/GridRows.h"

namespace quorvel {

/// The content of a grid, without a window: its columns, its lines and the text of each cell.
///
/// These words mean the same everywhere in the grid's files:
///   row       a data row of the source; a row index counts from 1
///   line      what is shown from top to bottom, headings of groups included; counts from 1
///   column    a column's number as designed, visible or not; counts from 1
///   position  a visible column's number from left to right; counts from 0
class GridContent {
 public:
  /// `columns` in the order of their numbers; `columnOrder` holds the numbers from left to right.
  GridContent(std::vector<GridColumn> columns, std::vector<std::int32_t> columnOrder);

  // Changes of these show at the next Arrange.
  void ShowColumn(std::int32_t column, bool visible);
  /// Opens all groups at the next Arrange.
  void GroupBy(std::optional<SortKey> group);
  void SortBy(std::vector<SortKey> sort) { m_sort = std::move(sort); }
  /// `source` outlives its use; null shows nothing.
  void SetSource(const RowSource* source) noexcept { m_source = source; }

  /// Reads what the order depends on. Throws what the source throws, and then nothing has changed.
  void Arrange();
  /// Sorts by a visible column alone, or reverses the order if the rows are sorted by it already. Throws as Arrange.
  void SortByPosition(std::size_t position);
  void SetOpen(std::int32_t line, bool open) { m_rows.SetOpen(line, open); }

  [[nodiscard]] const std::vector<GridColumn>& Columns() const noexcept { return m_columns; }
  /// Numbers of the visible columns from left to right, as they were at the last Arrange.
  [[nodiscard]] const std::vector<std::int32_t>& Shown() const noexcept { return m_shown; }
  [[nodiscard]] const GridColumn& ShownColumn(std::size_t position) const;
  [[nodiscard]] const std::vector<SortKey>& Sort() const noexcept { return m_sort; }
  [[nodiscard]] const GridRows& Rows() const noexcept { return m_rows; }

  // Cells are empty on headings and where there is no such line.
  [[nodiscard]] ShownCell Cell(std::int32_t line, std::size_t position) const;
  [[nodiscard]] std::string CellText(std::int32_t line, std::size_t position) const;
  /// Whether a row, also one of a closed group, shows `folded` (a text with its case folded) in a visible column.
  [[nodiscard]] bool RowHas(std::int32_t rowIndex, std::string_view folded) const;
  /// The cell completely, where it shows a part of its value: a date with its time. Otherwise empty.
  [[nodiscard]] std::string CellTip(std::int32_t line, std::size_t position) const;
  /// Why the row on a line has a mark; empty when it has none.
  [[nodiscard]] std::string MarkOf(std::int32_t line) const;
  /// "Type: Collections (12)".
  [[nodiscard]] std::string HeadingText(const RowGroup& group) const;
  /// A line for screen readers: its cells, of each 200 bytes at most, or its heading.
  [[nodiscard]] std::string SpokenLine(std::int32_t line) const;
  /// A line for the clipboard: its cells with tabs between them, of each 16 MB at most, or its heading.
  [[nodiscard]] std::string CopiedLine(std::int32_t line) const;

 private:
  using ReadCell = std::string (GridContent::*)(std::int32_t line, std::size_t position) const;

  void ArrangeBy(const std::vector<SortKey>& sort);
  [[nodiscard]] std::optional<Value> ValueAt(std::int32_t line, std::size_t position) const;
  [[nodiscard]] std::string SpokenCell(std::int32_t line, std::size_t position) const;
  [[nodiscard]] std::string Join(std::int32_t line, std::string_view separator, std::size_t limit, ReadCell read) const;

  std::vector<GridColumn> m_columns;
  std::vector<std::int32_t> m_columnOrder;
  std::vector<std::int32_t> m_shown;
  std::optional<SortKey> m_group;
  std::vector<SortKey> m_sort;
  const RowSource* m_source = nullptr;
  GridRows m_rows;
  bool m_opensAll = false;
};

}  // namespace quorvel
