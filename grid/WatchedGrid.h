#pragma once

#include <cstdint>

namespace quorvel {

namespace ado {
class Recordset;
}

/// What happens in a grid, for whoever watches it. Shift states are the sum of 1 (Shift), 2 (Ctrl) and 4 (Alt), buttons
/// 1 (left), 2 (right) and 4 (middle), key codes the classic ones (9 Tab, 13 Enter, 27 Esc).
class GridEvents {
 public:
  virtual ~GridEvents() = default;
  /// Before the grid handles a key; a key code set to 0 is not handled.
  virtual void KeyDown(std::int16_t& keyCode, std::int16_t& shift) = 0;
  /// `x` and `y` in grid units (pixels from the grid's corner).
  virtual void MouseDown(std::int16_t button, std::int16_t shift, double x, double y) = 0;
  virtual void DoubleClick() = 0;
};

/// Codes of HitTest. The first four are no data.
enum class GridArea : std::int16_t {
  ColumnHeader = 1,
  RowHeader = 2,
  Cell = 3,
  ColumnSeparator = 4,
  GroupRow = 5,
  Nowhere = 7,
};

/// The operations of a grid that GridEXWrapper stands on.
class WatchedGrid {
 public:
  virtual ~WatchedGrid() = default;
  /// Lines are 1-based and count group headings; 0 when there is none.
  [[nodiscard]] virtual std::int32_t CurrentRow() const = 0;
  /// The data row on a line, 1-based; 0 or less on headings and elsewhere.
  [[nodiscard]] virtual std::int32_t RowIndex(std::int32_t row) const = 0;
  /// The recordset's bookmark of a data row. Error 5 when there is no such row, 91 when nothing is bound.
  [[nodiscard]] virtual std::int32_t Bookmark(std::int32_t rowIndex) const = 0;
  /// Null when the grid is unbound.
  [[nodiscard]] virtual ado::Recordset* BoundRecordset() const = 0;
  [[nodiscard]] virtual GridArea HitTest(double x, double y) const = 0;
  /// The one watcher; null takes it away. It outlives its being watched for.
  virtual void Watch(GridEvents* events) = 0;
};

}  // namespace quorvel
