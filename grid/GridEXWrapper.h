#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "grid/GridEvents.h"
#include "platform/Value.h"

namespace quorvel {

class DataGrid;

/// Watches a grid for its window: keeps a bound recordset on the grid's current row, turns Enter and a double-click on
/// a row into RowChosen, and makes a plain Tab leave the grid. The grid outlives the watching.
class GridEXWrapper : private GridEvents {
 public:
  /// `sendKeys` types keys in the notation "^{TAB}" (Ctrl+Tab) as the user would.
  explicit GridEXWrapper(std::function<void(std::string_view)> sendKeys);
  ~GridEXWrapper() override;
  GridEXWrapper(const GridEXWrapper&) = delete;
  GridEXWrapper& operator=(const GridEXWrapper&) = delete;

  [[nodiscard]] DataGrid* Grid() const noexcept { return m_oGrid; }
  /// Watches `grid` instead of the one before; null watches none.
  void SetGrid(DataGrid* grid);

  /// Of the last mouse press: button, shift state, and point in pixels from the grid's corner.
  [[nodiscard]] std::int16_t Button() const noexcept { return m_button; }
  [[nodiscard]] std::int16_t Shift() const noexcept { return m_shift; }
  [[nodiscard]] std::int32_t X() const noexcept { return m_x; }
  [[nodiscard]] std::int32_t Y() const noexcept { return m_y; }

  /// Moves the bound recordset to the current row; does nothing when that fails.
  void SyncRecordset() noexcept;
  /// Index of the current row; 0 when no row is current. Error 91 without a grid, its source decorated.
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
  DataGrid* m_oGrid = nullptr;
  std::int16_t m_button = 0;
  std::int16_t m_shift = 0;
  std::int32_t m_x = 0;
  std::int32_t m_y = 0;
};

}  // namespace quorvel
