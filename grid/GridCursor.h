#pragma once

#include <cstdint>
#include <string>

#include "platform/Value.h"

class wxGrid;

namespace quorvel {

struct GridState;

/// The current line of a grid: moves it, keeps it in view and names it to assistive technology, which cannot read
/// lines that are drawn.
class GridCursor {
 public:
  /// A row or a heading, on whatever line it is.
  struct Mark {
    std::int32_t rowIndex = 0;  ///< 0 for a heading
    Value group;                ///< of a heading
  };

  /// Both outlive the object.
  GridCursor(wxGrid& grid, GridState& state) : m_grid(grid), m_state(state) {}

  /// The name of the grid for assistive technology while no line is current.
  void SetSpokenName(std::string name);

  /// Makes an existing line current, or none for 0, and brings it into view.
  void MoveTo(std::int32_t line);
  /// Makes a line current after the lines have changed; draws nothing.
  void Set(std::int32_t line);
  void Refresh();
  void Speak() const;

  [[nodiscard]] Mark Marked() const;
  /// The line of a marked row or heading; 0 when it is not shown.
  [[nodiscard]] std::int32_t LineOf(const Mark& mark) const;

  /// Scrolls to the current line, and to the heading above it if it is a group's first row. Waits until the grid has a
  /// size: before its window is laid out it would scroll everything away.
  void BringIntoView();
  /// The same when the grid is idle: a caller that selects another line first finds the view as it was.
  void BringIntoViewLater() noexcept { m_isToBeBroughtIntoView = true; }
  void Idle();

 private:
  wxGrid& m_grid;
  GridState& m_state;
  std::string m_spokenName;
  bool m_isToBeBroughtIntoView = false;
};

}  // namespace quorvel
