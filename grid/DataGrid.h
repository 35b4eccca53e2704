#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include <wx/grid.h>

#include "grid/GridContent.h"
#include "grid/GridState.h"
#include "grid/WatchedGrid.h"

namespace quorvel {

class GridRenderer;
class GridTable;
class RecordsetSource;

/// A grid of rows that it never keeps: it asks a source, or a recordset, for what it shows. Rows are grouped by one
/// column under headings that carry the count and close, sorted by a click on a caption (within the groups), wrapped,
/// and coloured by turns. Nothing is edited in it. Columns and row indexes are 1-based; lines (CurrentRow) count
/// headings.
///
/// Keys: Up, Down, Page Up, Page Down, Home and End move; Left and - close a group, Right and + open it, Enter and the
/// blank do either; Shift+Tab leaves the grid backwards; Ctrl+C copies the row. Tab is the watcher's to send on;
/// without a watcher it leaves the grid. Every other key goes on to the window.
///
/// Changes of the layout (columns, groups, sort keys, source) show at the next Refetch.
class DataGrid : public wxGrid, public WatchedGrid {
 public:
  /// `columns` in the order of their numbers; `positions` are the column numbers from left to right.
  DataGrid(wxWindow* parent, std::vector<GridColumn> columns, std::vector<std::int32_t> positions);
  ~DataGrid() override;
  DataGrid(const DataGrid&) = delete;
  DataGrid& operator=(const DataGrid&) = delete;

  void ShowColumn(std::int32_t column, bool visible);
  /// All groups are open then.
  void GroupBy(std::optional<SortKey> group);
  void SortBy(std::vector<SortKey> keys);
  /// Whether the user may drag rows to another height.
  void AllowRowSizing(bool allow);
  /// In grid units: a text line of the grid's font is 190. Headings of groups are one line high.
  void SetRowHeight(std::int32_t units);

  /// Unbound: asks `source`, which stays the caller's and outlives its use; null shows nothing.
  void SetSource(const RowSource* source);
  /// Bound: shows the recordset's rows that its filter lets through, each column the field that is its key.
  void Bind(std::shared_ptr<ado::Recordset> recordset);
  using wxGrid::Bind;

  /// Reads what the order depends on again and shows all anew; which groups are closed and what the user sorts by stay.
  /// The current row is then the first, or none. Throws what the source throws, and then nothing has changed.
  void Refetch();
  /// Makes a line current and brings it into view. Does nothing for one that is not there.
  void SelectRow(std::int32_t row);
  /// The same for a data row; opens its group.
  void SelectRowIndex(std::int32_t rowIndex);
  /// Leaves no line current. The keys then begin at the first.
  void SelectNone();
  /// Opens or closes the group whose heading is on that line. A current row that is closed away gives way to its
  /// heading.
  void SetGroupOpen(std::int32_t row, bool open);
  /// What a click on a caption does: sorts by a visible column (counted from 0), by the one that it is sorted by
  /// already the other way round. The current row stays current.
  void SortByCaption(int place);

  [[nodiscard]] const GridContent& Content() const noexcept { return m_state.content; }

  /// Another row or heading has become current, by the user or by this class. Runs when the grid has done moving, so
  /// that the grid may be changed in it.
  std::function<void()> RowChanged;
  /// An error that a handler, the source or the watcher threw; nothing may pass through the toolkit. While the grid is
  /// drawn errors come after the drawing, once until the next Refetch.
  std::function<void(std::exception_ptr)> Failed;

  [[nodiscard]] std::int32_t CurrentRow() const override;
  [[nodiscard]] std::int32_t RowIndex(std::int32_t row) const override;
  [[nodiscard]] std::int32_t Bookmark(std::int32_t rowIndex) const override;
  [[nodiscard]] ado::Recordset* BoundRecordset() const override;
  [[nodiscard]] GridArea HitTest(double x, double y) const override;
  void Watch(GridEvents* events) override;

 private:
  /// Which row or heading a line shows, whatever line that becomes.
  struct Place {
    std::int32_t rowIndex = 0;
    Value group;
  };

  void BindEvents();
  template <typename Handler>
  auto Guarded(Handler handler);
  void Report(std::exception_ptr failure) noexcept;
  void ReadFailed() noexcept;

  [[nodiscard]] Place PlaceOf(std::int32_t line) const;
  [[nodiscard]] std::int32_t LineOf(const Place& place) const;
  void ShowLines();
  void ShowLinesAt(const Place& place, std::int32_t fallback);
  void ApplyRowHeights();
  void ApplyColumns();
  void ShareColumns(std::optional<int> dragged);
  void ShowSortArrow();
  [[nodiscard]] int LineHeightOf(std::int32_t units) const;
  void MakeCurrent(std::int32_t line);
  void BringIntoView();
  void TellCurrentRow();
  void RefreshLine(std::int32_t line);
  void Restyle();

  void OnKeyDown(wxKeyEvent& event);
  [[nodiscard]] bool TellKeyDown(const wxKeyEvent& event);
  [[nodiscard]] bool MoveByKey(int key);
  [[nodiscard]] bool ToggleByKey(int key);
  void OnTab(const wxKeyEvent& event);
  void CopyRow() const;
  void MoveByPage(int direction);
  void OnMouseDown(wxMouseEvent& event);
  void OnDoubleClick(wxMouseEvent& event);
  void OnMotion(wxMouseEvent& event);
  void OnCellClick(wxGridEvent& event);
  void OnRowSized(wxGridSizeEvent& event);
  [[nodiscard]] wxPoint GridPoint(const wxMouseEvent& event) const;

  GridState m_state;
  std::unique_ptr<RecordsetSource> m_bound;
  GridTable* m_table;        ///< the base class's
  GridRenderer* m_renderer;  ///< the table's
  GridEvents* m_events = nullptr;
  std::vector<int> m_widths;                     ///< of the visible columns, as designed or dragged
  std::map<std::int32_t, int> m_draggedHeights;  ///< by row index
  std::int32_t m_rowUnits = 265;
  std::int32_t m_toolTipLine = 0;
  int m_toolTipColumn = -1;
  bool m_isToBeBroughtIntoView = false;
  bool m_readFailed = false;
};

}  // namespace quorvel
