#pragma once

#include <cstdint>
#include <string>

class wxGrid;
class wxPoint;

namespace quorvel {

struct GridState;

/// Shows the whole text of the cell under the pointer where the cell cuts it, the time of a date, and the explanation
/// of the row.
class CellToolTip {
 public:
  /// Both outlive the object.
  CellToolTip(wxGrid& grid, const GridState& state) : m_grid(grid), m_state(state) {}

  /// To be called when the pointer has moved to `point` in the window of the cells.
  void PointerMoved(const wxPoint& point);
  /// To be called when other cells may be under the pointer.
  void Forget();

 private:
  /// A date with its time, or the text of a cell that does not show all of it; else the empty text.
  [[nodiscard]] std::string HiddenText(std::int32_t line, int position) const;

  wxGrid& m_grid;
  const GridState& m_state;
  std::int32_t m_line = 0;  ///< the cell that the tip was set for
  int m_position = -1;
};

}  // namespace quorvel
