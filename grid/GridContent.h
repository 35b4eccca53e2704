#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "grid/GridRows.h"

namespace quorvel {

enum class CellFormat { General, ShortDate };

struct GridColumn {
  std::string key;
  std::string caption;
  std::int32_t width = 0;  ///< device-independent pixels
  bool visible = true;
  CellFormat format = CellFormat::General;
};

/// What a grid shows, before anybody draws it: its columns from left to right, its lines, and the text of each cell.
class GridContent {
 public:
  GridContent(std::vector<GridColumn> columns, std::vector<std::int32_t> positions);

  void ShowColumn(std::int32_t column, bool visible);
  [[nodiscard]] const std::vector<GridColumn>& Columns() const noexcept { return m_columns; }
  /// Numbers of the visible columns from left to right, as they were at the last Arrange.
  [[nodiscard]] const std::vector<std::int32_t>& Shown() const noexcept { return m_shown; }
  [[nodiscard]] const GridColumn& ShownColumn(std::size_t place) const;

  /// Groups that were closed stay closed only as long as this is not called.
  void GroupBy(std::optional<SortKey> key);
  std::vector<SortKey> sort;
  const RowSource* source = nullptr;

  /// Throws what the source throws, and then nothing has changed.
  void Arrange();
  [[nodiscard]] const GridRows& Rows() const noexcept { return m_rows; }
  /// All rows, those of closed groups included.
  [[nodiscard]] std::int32_t RowCount() const noexcept { return m_rows.RowCount(); }
  void SetOpen(std::int32_t line, bool open) { m_rows.SetOpen(line, open); }

  /// A cell's value as text; `place` counts the visible columns from 0. Empty on headings and where there is no line.
  [[nodiscard]] std::string CellText(std::int32_t line, std::size_t place) const;
  /// "Type: Collections (12)".
  [[nodiscard]] std::string HeadingText(const GridRows::Group& heading) const;
  /// All cells of a line, or its heading, for who hears the grid or copies from it; values of `limit` bytes and more
  /// are cut.
  [[nodiscard]] std::string LineText(std::int32_t line, std::string_view separator, std::size_t limit) const;

 private:
  std::vector<GridColumn> m_columns;
  std::optional<SortKey> m_group;
  bool m_opensAll = false;
  std::vector<std::int32_t> m_positions;
  std::vector<std::int32_t> m_shown;
  GridRows m_rows;
};

}  // namespace quorvel
