#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Value.h"

namespace quorvel {

/// Where a grid's values come from. Asked only for what is shown, sorted or grouped by.
class RowSource {
 public:
  virtual ~RowSource() = default;
  [[nodiscard]] virtual std::int32_t RowCount() const = 0;
  /// Both 1-based. An error passes through the grid to whoever runs the window.
  [[nodiscard]] virtual Value At(std::int32_t rowIndex, std::int32_t column) const = 0;
};

struct SortKey {
  std::int32_t column = 0;  ///< 1-based
  bool ascending = true;
};

/// The order that rows are sorted and grouped by: less than, equal or greater than 0. Texts are compared without regard
/// to letter case, null comes first; values of different kinds are ordered by their kind.
[[nodiscard]] int CompareValues(const Value& left, const Value& right) noexcept;

/// Which line of a grid shows which row of its source: grouped by one column (or none), sorted inside the groups,
/// groups open or closed. Lines and row indexes are 1-based. Holds four bytes a row and nothing of the rows' values.
///
/// Rows that compare equal keep the source's order.
class GridRows {
 public:
  struct Group {
    Value value;             ///< as the source's first row of the group has it
    std::int32_t count = 0;  ///< rows
    std::int32_t first = 0;  ///< its first row's 0-based place among all rows
    std::int32_t line = 0;   ///< of its heading
    bool open = true;
  };

  /// Reads the sorted and grouped columns of every row of `source` once. Groups that were closed stay closed where a
  /// group of the same value is still there. Strong guarantee.
  void Arrange(const RowSource& source, std::optional<SortKey> group, const std::vector<SortKey>& sort);

  [[nodiscard]] std::int32_t LineCount() const noexcept;
  /// The row on a line; 0 for a group's heading and for lines that are not there.
  [[nodiscard]] std::int32_t RowIndex(std::int32_t line) const noexcept;
  /// The line of a row; 0 when its group is closed or there is no such row.
  [[nodiscard]] std::int32_t LineOf(std::int32_t rowIndex) const noexcept;
  /// The line of the heading of a row's group; 0 without groups and for rows that are not there.
  [[nodiscard]] std::int32_t HeadingOf(std::int32_t rowIndex) const noexcept;
  [[nodiscard]] std::int32_t RowCount() const noexcept { return static_cast<std::int32_t>(m_order.size()); }
  /// The group whose heading is on that line, or null.
  [[nodiscard]] const Group* GroupAt(std::int32_t line) const noexcept;
  [[nodiscard]] const std::vector<Group>& Groups() const noexcept;
  /// True on every second row within its group, counted from the first.
  [[nodiscard]] bool IsEvenRow(std::int32_t line) const noexcept;
  /// Opens or closes the group whose heading is on `line`; does nothing on other lines.
  void SetOpen(std::int32_t line, bool open);
  void OpenAll() noexcept;

 private:
  [[nodiscard]] const Group* GroupOfLine(std::int32_t line) const noexcept;
  [[nodiscard]] const Group* GroupOfPlace(std::int32_t place) const noexcept;
  [[nodiscard]] std::optional<std::int32_t> PlaceOf(std::int32_t rowIndex) const noexcept;
  void NumberLines() noexcept;

  std::vector<std::int32_t> m_order;  ///< row indexes, group after group, as sorted
  std::vector<Group> m_groups;        ///< none where rows are not grouped
  std::int32_t m_lineCount = 0;
};

}  // namespace quorvel
