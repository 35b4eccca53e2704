#pragma once

class wxKeyEvent;

namespace quorvel {

class DataGrid;
class GridWatcher;

/// Handles the keys of a grid by a table of keys and actions. The comment of DataGrid lists them.
class GridKeys {
 public:
  /// Both outlive the object.
  GridKeys(DataGrid& grid, const GridWatcher& watcher) : m_grid(grid), m_watcher(watcher) {}

  /// Skips a key that is not the grid's.
  void KeyDown(wxKeyEvent& event);

 private:
  using Action = void (GridKeys::*)();
  [[nodiscard]] static Action ActionOf(int key);

  void Up();
  void Down();
  void First();
  void Last();
  void PageUp() { MoveByPage(-1); }
  void PageDown() { MoveByPage(1); }
  void MoveByPage(int direction);
  void Close();
  void CloseOrGoToHeading();
  void Open();
  void Toggle();
  void Copy();
  void Tab(const wxKeyEvent& event);

  DataGrid& m_grid;
  const GridWatcher& m_watcher;
};

}  // namespace quorvel
