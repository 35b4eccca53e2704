#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <wx/grid.h>

#include "grid/CellToolTip.h"
#include "grid/ColumnWidths.h"
#include "grid/GridContent.h"
#include "grid/GridCursor.h"
#include "grid/GridKeys.h"
#include "grid/GridMouse.h"
#include "grid/GridState.h"
#include "grid/GridWatcher.h"
#include "grid/LineHeights.h"

namespace quorvel {

namespace ado {
class Recordset;
}
class GridRenderer;
class GridTable;
class RecordsetSource;

/// A read-only grid that stores no rows: it asks a source, or a recordset, for what it shows. Rows are grouped by one
/// column under headings that carry the count and can be closed, sorted by a click on a caption (within the groups),
/// wrapped, and shown in alternating colours. GridContent defines row, line, column and position.
///
/// Keys: Up, Down, Page Up, Page Down, Home and End move; Left and - close a group, Right and + open it, Enter and
/// Space do either; Left on a row goes to its heading; Shift+Tab leaves the grid backwards; Ctrl+C copies the line. Tab
/// is left to the watcher; without a watcher it leaves the grid. Every other key goes on to the window. The menu key,
/// Shift+F10 and the right mouse button ask for a menu.
///
/// Changes of the layout (columns, groups, sort keys, source) show at the next Refetch.
class DataGrid : public wxGrid {
 public:
  /// `columns` in the order of their numbers; `columnOrder` holds the numbers from left to right.
  DataGrid(wxWindow* parent, std::vector<GridColumn> columns, std::vector<std::int32_t> columnOrder);
  ~DataGrid() override;
  DataGrid(const DataGrid&) = delete;
  DataGrid& operator=(const DataGrid&) = delete;

  /// The name of the grid for assistive technology while no line is current.
  void SetSpokenName(std::string name) { m_cursor.SetSpokenName(std::move(name)); }
  /// The words that the grid shows and speaks when it has no lines; none at first.
  void SetEmptyText(std::string text);
  void ShowColumn(std::int32_t column, bool visible) { m_state.content.ShowColumn(column, visible); }
  /// Opens all groups.
  void GroupBy(std::optional<SortKey> group) { m_state.content.GroupBy(group); }
  void SortBy(std::vector<SortKey> sort) { m_state.content.SortBy(std::move(sort)); }
  /// Whether the user may drag rows to another height.
  void AllowRowSizing(bool allow);
  /// In grid units: a text line of the grid's font is 190. Headings of groups are one text line high.
  void SetRowHeight(std::int32_t units);

  /// Unbound: asks `source`, which stays the caller's and outlives its use; null shows nothing.
  void SetSource(const RowSource* source);
  /// Bound: shows the recordset's rows that its filter lets through; the key of a column is the name of its field.
  void Bind(std::shared_ptr<ado::Recordset> recordset);
  using wxGrid::Bind;
  /// `hint` explains a row: as a tool tip, in RowHint and to assistive technology. An empty function explains none.
  void SetRowHint(std::function<std::string(std::int32_t rowIndex)> hint);

  /// Reads what the order depends on again and shows all rows. Closed groups and the user's sorting stay. The first
  /// line becomes current, if there is one. Throws what the source throws, and then nothing has changed.
  void Refetch();
  /// Makes a line current and brings it into view. Does nothing for a line that does not exist.
  void SelectLine(std::int32_t line);
  /// The same for the line of a row; opens its group.
  void SelectRowIndex(std::int32_t rowIndex);
  /// Leaves no line current. Down then goes to the first row from `resumeLine` on, Up to the line before `resumeLine`,
  /// which is 1 to one more than there are lines.
  void SelectNone(std::int32_t resumeLine = 1);
  /// Opens or closes the group whose heading is on `line`. When the current row is hidden, its heading becomes current.
  void SetGroupOpen(std::int32_t line, bool open);
  /// A click on the caption at `position`: sorts by its column, or reverses the order if the rows are sorted by it
  /// already. The current row or heading stays current.
  void SortByCaption(int position);

  [[nodiscard]] const GridContent& Content() const noexcept { return m_state.content; }
  /// 0 when no line is current.
  [[nodiscard]] std::int32_t CurrentLine() const noexcept { return m_state.currentLine; }
  /// As SelectNone says.
  [[nodiscard]] std::int32_t ResumeLine() const noexcept { return m_state.resumeLine; }
  /// The row on a line; 0 on headings and for lines that do not exist.
  [[nodiscard]] std::int32_t RowIndex(std::int32_t line) const noexcept;
  /// The explanation of the current row or of its mark; empty when there is none.
  [[nodiscard]] std::string RowHint() const noexcept { return m_state.Hint(m_state.currentLine); }
  /// The recordset's bookmark of a row. Error 5 when there is no such row, 91 when nothing is bound.
  [[nodiscard]] std::int32_t Bookmark(std::int32_t rowIndex) const;
  /// Null when the grid is unbound.
  [[nodiscard]] ado::Recordset* BoundRecordset() const;
  /// The part of the grid under a point, in pixels from the grid's corner.
  [[nodiscard]] GridArea HitTest(double x, double y) const;

  /// The one watcher, which outlives its watching; null ends it.
  void Watch(GridEvents* events) noexcept { m_watcher.Watch(events); }
  /// Another row or heading has become current, by the user or by a call. Runs after the grid has moved, so it may
  /// change the grid.
  std::function<void()> CurrentLineChanged;
  /// The user asks for a menu at a point of the grid; the line there, if any, is current. May be empty.
  std::function<void(const wxPoint& point)> MenuAsked;
  /// Receives what a handler, the source or the watcher threw, since nothing may pass through the toolkit. Errors of
  /// drawing arrive after the drawing, one until the next Refetch.
  std::function<void(std::exception_ptr)> Failed;

 private:
  void SetUpToolkit();
  void BindEvents();
  void BindMouse();
  template <typename Handler>
  auto Guarded(Handler handler);
  void ReportFailure(std::exception_ptr failure) noexcept;
  void ReadFailed() noexcept;

  void ShowLines(std::int32_t currentLine);
  void ShowLinesAt(const GridCursor::Mark& mark, std::int32_t fallback);
  void ShowColumns();
  void FitColumn(int position);
  void Paint(wxPaintEvent& event);
  void Announce();
  void Restyle();

  GridState m_state;
  std::unique_ptr<RecordsetSource> m_bound;
  GridRenderer* m_renderer;  ///< the table owns it
  GridTable* m_table;        ///< the base class owns it
  ColumnWidths m_widths;
  LineHeights m_heights;
  GridCursor m_cursor;
  CellToolTip m_toolTip;
  GridWatcher m_watcher;
  GridKeys m_keys;
  GridMouse m_mouse;
  bool m_readFailed = false;
};

}  // namespace quorvel
