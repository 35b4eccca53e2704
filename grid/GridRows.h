#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "grid/RowGroup.h"
#include "grid/RowSource.h"
#include "grid/SortKey.h"

namespace quorvel {

/// Which line of a grid shows which row of its source: grouped by one column (or none), sorted inside the groups,
/// groups open or closed. Lines and row indexes are 1-based. Holds four bytes a row and nothing of the rows' values.
///
/// Rows that compare equal keep the source's order.
class GridRows {
 public:
  /// Reads the sorted and grouped columns of every row of `source` once. A closed group stays closed if there still is
  /// a group of the same value. Strong guarantee.
  void Arrange(const RowSource& source, std::optional<SortKey> group, const std::vector<SortKey>& sort);

  [[nodiscard]] std::int32_t LineCount() const noexcept { return m_lineCount; }
  /// The row on a line; 0 for a group's heading and for lines that do not exist.
  [[nodiscard]] std::int32_t RowIndex(std::int32_t line) const noexcept;
  /// The line of a row; 0 when its group is closed or the row does not exist.
  [[nodiscard]] std::int32_t LineOf(std::int32_t rowIndex) const noexcept;
  /// The line of the heading of a row's group; 0 without groups and for rows that do not exist.
  [[nodiscard]] std::int32_t HeadingOf(std::int32_t rowIndex) const noexcept;
  /// All rows, those of closed groups included.
  [[nodiscard]] std::int32_t RowCount() const noexcept { return static_cast<std::int32_t>(m_order.size()); }
  /// The group whose heading is on `line`, or null.
  [[nodiscard]] const RowGroup* GroupAt(std::int32_t line) const noexcept;
  /// The indexes of all rows, group after group, as sorted.
  [[nodiscard]] const std::vector<std::int32_t>& Order() const noexcept { return m_order; }
  /// A row's place in Order, counted from 0.
  [[nodiscard]] std::optional<std::int32_t> RankOf(std::int32_t rowIndex) const noexcept;
  [[nodiscard]] const std::vector<RowGroup>& Groups() const noexcept { return m_groups; }
  /// True for every second row of a group, counted from the first.
  [[nodiscard]] bool IsEvenRow(std::int32_t line) const noexcept;
  /// Opens or closes the group whose heading is on `line`; does nothing on other lines.
  void SetOpen(std::int32_t line, bool open);
  void OpenAll() noexcept;

 private:
  [[nodiscard]] const RowGroup* GroupOfLine(std::int32_t line) const noexcept;
  [[nodiscard]] const RowGroup* GroupOfRank(std::int32_t rank) const noexcept;
  void NumberLines() noexcept;

  std::vector<std::int32_t> m_order;  ///< row indexes, group after group, as sorted
  std::vector<RowGroup> m_groups;     ///< none where rows are not grouped
  std::int32_t m_lineCount = 0;
};

}  // namespace quorvel
