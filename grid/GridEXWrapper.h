#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "grid/WatchedGrid.h"
#include "platform/Value.h"

namespace quorvel {

/// Stands between a window and its grid: keeps a bound recordset on the grid's current row, turns Enter and
/// double-click on a data row into RowChosen, and makes a plain Tab leave the grid. Works on any grid that offers
/// WatchedGrid. Used on the window's thread; the grid outlives its being watched.
class GridEXWrapper : private GridEvents {
 public:
  /// `sendKeys` types keys in the notation "^{TAB}" (Ctrl+Tab) as if the user had.
  explicit GridEXWrapper(std::function<void(std::string_view)> sendKeys);
  ~GridEXWrapper() override;
  GridEXWrapper(const GridEXWrapper&) = delete;
  GridEXWrapper& operator=(const GridEXWrapper&) = delete;

  [[nodiscard]] WatchedGrid* Grid() const noexcept { return m_oGrid; }
  /// Watches `grid` from now on and no other; null watches none.
  void SetGrid(WatchedGrid* grid);

  /// Of the last mouse press: button, shift state, and place in grid units.
  [[nodiscard]] std::int16_t Button() const noexcept { return m_button; }
  [[nodiscard]] std::int16_t Shift() const noexcept { return m_shift; }
  [[nodiscard]] std::int32_t X() const noexcept { return m_x; }
  [[nodiscard]] std::int32_t Y() const noexcept { return m_y; }

  /// Moves the bound recordset to the current row; does nothing where that cannot be done.
  void SyncRecordset() noexcept;
  /// Index of the current row; 0 or less when no data row is current. Error 91 without a grid, its source decorated.
  [[nodiscard]] std::int32_t RowIndex() const;
  /// The bound recordset's field of that name in the current row; empty when there is none.
  [[nodiscard]] quorvel::Value Value(std::string_view column) noexcept;

  /// Raised when the user chooses the current row.
  std::function<void()> RowChosen;

 private:
  void KeyDown(std::int16_t& keyCode, std::int16_t& shift) override;
  void MouseDown(std::int16_t button, std::int16_t shift, double x, double y) override;
  void DoubleClick() override;

  std::function<void(std::string_view)> m_sendKeys;
  WatchedGrid* m_oGrid = nullptr;
  std::int16_t m_button = 0;
  std::int16_t m_shift = 0;
  std::int32_t m_x = 0;
  std::int32_t m_y = 0;
};

}  // namespace quorvel
