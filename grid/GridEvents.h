#pragma once

#include <cstdint>

namespace quorvel {

/// The events of a grid, for the one object that watches it. Shift states are the sum of 1 (Shift), 2 (Ctrl) and 4
/// (Alt), buttons 1 (left), 2 (right) and 4 (middle), key codes the classic ones (9 Tab, 13 Enter, 27 Esc).
class GridEvents {
 public:
  virtual ~GridEvents() = default;
  /// Before the grid handles a key. The grid ignores the key when this sets the key code to 0.
  virtual void KeyDown(std::int16_t& keyCode, std::int16_t& shift) = 0;
  /// `x` and `y` in pixels from the grid's corner.
  virtual void MouseDown(std::int16_t button, std::int16_t shift, double x, double y) = 0;
  virtual void DoubleClick() = 0;
};

/// Codes of a hit test. 1, 2, 4 and 7 are not data.
enum class GridArea : std::int16_t {
  ColumnHeader = 1,
  RowHeader = 2,
  Cell = 3,
  ColumnSeparator = 4,
  GroupRow = 5,
  Nowhere = 7,
};

}  // namespace quorvel
