#pragma once

#include <cstdint>
#include <map>

class wxGrid;

namespace quorvel {

class GridRows;

/// How high a grid's lines are. Heights are given in grid units: a text line of the grid's font is 190.
class LineHeights {
 public:
  /// `grid` outlives the object.
  explicit LineHeights(wxGrid& grid) : m_grid(grid) {}

  /// The height of all rows. Headings of groups are as high as one text line.
  void SetRowHeight(std::int32_t units);
  /// To be called when the user has dragged a row to another height, in pixels; the row keeps it on whatever line.
  void RowDragged(std::int32_t rowIndex, int height) { m_dragged[rowIndex] = height; }
  void ForgetDragged() { m_dragged.clear(); }

  /// Sets the height of every line of the grid.
  void Apply(const GridRows& rows);

 private:
  [[nodiscard]] int PixelsOf(std::int32_t units) const;

  wxGrid& m_grid;
  std::int32_t m_rowUnits = 265;
  std::map<std::int32_t, int> m_dragged;  ///< by row index
};

}  // namespace quorvel
