#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

class wxGrid;

namespace quorvel {

class GridContent;

/// No column becomes narrower than this, in pixels: the user could not drag its border any more.
inline constexpr int kLeastColumnWidth = 24;

/// Shares `total` pixels among columns in proportion to `widths`; the last column takes the rest. A column gets at
/// least its width in `least`, which may be empty.
[[nodiscard]] std::vector<int> ShareWidth(const std::vector<int>& widths, int total,
                                          const std::vector<int>& least = {});

/// The widths after the border right of `position` was dragged: columns up to that border keep `widths`, the columns
/// right of it share the rest.
[[nodiscard]] std::vector<int> ShareWidthAfter(const std::vector<int>& widths, std::size_t position, int total);

/// Keeps the visible columns of a grid as wide as its window.
class ColumnWidths {
 public:
  /// `grid` outlives the object.
  explicit ColumnWidths(wxGrid& grid) : m_grid(grid) {}

  /// Takes the widths that the user has given these visible columns, else the designed ones. With a large font a column
  /// of dates gets a larger share, as far as it needs one.
  void Reset(const GridContent& content);
  /// To be called when the window's width has changed.
  void Share();
  /// Gives a column that width, as far as the window has room for the other columns.
  void Fit(int position, int width);
  /// To be called when the user has dragged the border right of `position`.
  void BorderDragged(int position);

 private:
  [[nodiscard]] int WidthOfDates() const;

  wxGrid& m_grid;
  std::vector<int> m_widths;            ///< by position, as designed or dragged
  std::vector<int> m_least;             ///< by position; empty when the user has dragged a border
  std::vector<std::int32_t> m_columns;  ///< by position
  std::map<std::vector<std::int32_t>, std::vector<int>> m_dragged;  ///< m_widths by m_columns
};

}  // namespace quorvel
