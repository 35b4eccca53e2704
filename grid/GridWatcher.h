#pragma once

#include "grid/GridEvents.h"

class wxKeyEvent;
class wxMouseEvent;
class wxPoint;

namespace quorvel {

/// Passes what happens in a grid on to the one GridEvents that watches it, if any, in the codes of GridEvents.
class GridWatcher {
 public:
  /// Null ends the watching.
  void Watch(GridEvents* events) noexcept { m_events = events; }
  [[nodiscard]] bool IsWatched() const noexcept { return m_events != nullptr; }

  /// True when the watcher has handled the key and the grid must not.
  [[nodiscard]] bool TakesKey(const wxKeyEvent& event) const;
  /// `point` is counted from the grid's corner.
  void MouseDown(const wxMouseEvent& event, const wxPoint& point) const;
  void DoubleClick() const;

 private:
  GridEvents* m_events = nullptr;
};

}  // namespace quorvel
