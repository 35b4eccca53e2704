#pragma once

class wxContextMenuEvent;
class wxGridEvent;
class wxMouseEvent;
class wxPoint;

namespace quorvel {

class DataGrid;
class GridWatcher;

/// Handles the mouse in a grid: a press makes a line current, a press on a heading's triangle or a double-click on a
/// heading opens or closes the group, the right button asks for a menu.
class GridMouse {
 public:
  /// Both outlive the object.
  GridMouse(DataGrid& grid, const GridWatcher& watcher) : m_grid(grid), m_watcher(watcher) {}

  void Down(wxMouseEvent& event);
  void DoubleClick(wxMouseEvent& event);
  void CellClick(wxGridEvent& event);
  void RightUp(wxMouseEvent& event);
  /// Asks for a menu at the current line when the event comes from a key.
  void AskForMenu(const wxContextMenuEvent& event);

 private:
  void AskForMenuAt(const wxPoint& inCells);
  [[nodiscard]] bool IsOnRowBorder(const wxGridEvent& event) const;

  DataGrid& m_grid;
  const GridWatcher& m_watcher;
};

}  // namespace quorvel
