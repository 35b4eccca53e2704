// The toolkit's grid scrolls and calls back; the members of DataGrid each do one part: content, drawing, widths,
// heights, current line, keys, mouse. This file connects them, and shows the lines again after each change.

#include "grid/DataGrid.h"

#include <algorithm>
#include <utility>

#include <wx/dcclient.h>
#include <wx/settings.h>

#include "grid/CellLayout.h"
#include "grid/GridRenderer.h"
#include "grid/GridTable.h"
#include "grid/RecordsetSource.h"
#include "platform/Error.h"
#include "platform/wx/GuardedHandler.h"
#include "platform/wx/NativeControls.h"

namespace quorvel {

DataGrid::DataGrid(wxWindow* parent, std::vector<GridColumn> columns, std::vector<std::int32_t> columnOrder)
    : wxGrid(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_THEME),
      m_state{.content = {std::move(columns), std::move(columnOrder)}, .readFailed = [this] { ReadFailed(); }},
      m_renderer(new GridRenderer(m_state)),
      m_table(new GridTable(m_state, m_renderer)),
      m_widths(*this),
      m_heights(*this),
      m_cursor(*this, m_state),
      m_toolTip(*this, m_state),
      m_keys(*this, m_watcher),
      m_mouse(*this, m_watcher) {
  SetUpToolkit();
  Restyle();
  ShowColumns();
  m_heights.Apply(m_state.content.Rows());
  BindEvents();
  BindMouse();
}

DataGrid::~DataGrid() = default;

void DataGrid::SetUpToolkit() {
  SetDefaultCellFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
  SetTable(m_table, true, wxGridSelectNone);
  EnableEditing(false);
  EnableGridLines(false);  // the renderer draws them, since a heading has none
  SetCellHighlightPenWidth(0);
  SetCellHighlightROPenWidth(0);
  HideRowLabels();
  SetLabelFont(GetDefaultCellFont());
  SetUseNativeColLabels();
  SetColLabelAlignment(wxALIGN_LEFT, wxALIGN_CENTRE_VERTICAL);
  SetColLabelSize(GetCharHeight() + FromDIP(10));
  ShowScrollbars(wxSHOW_SB_NEVER, wxSHOW_SB_DEFAULT);
  ui::KeepScrollBars(*this);
  ui::ShowOutline(*this);
  ui::ShowFocus(*this);
  SetMargins(0, 0);
  AllowRowSizing(false);
  SetCanFocus(false);  // only the window inside that shows the cells: Tab would stop at both
}

template <typename Handler>
auto DataGrid::Guarded(Handler handler) {
  return ui::GuardedHandler(std::move(handler),
                            [this](std::exception_ptr failure) { ReportFailure(std::move(failure)); });
}

void DataGrid::BindEvents() {
  wxWindow* const cells = GetGridWindow();
  Bind(wxEVT_KEY_DOWN, Guarded([this](wxKeyEvent& event) { m_keys.KeyDown(event); }));
  Bind(wxEVT_GRID_LABEL_LEFT_CLICK, Guarded([this](wxGridEvent& event) { SortByCaption(event.GetCol()); }));
  Bind(wxEVT_GRID_COL_SIZE, Guarded([this](wxGridSizeEvent& event) { m_widths.BorderDragged(event.GetRowOrCol()); }));
  Bind(wxEVT_GRID_COL_AUTO_SIZE, Guarded([this](wxGridSizeEvent& event) { FitColumn(event.GetRowOrCol()); }));
  Bind(wxEVT_GRID_ROW_SIZE, Guarded([this](wxGridSizeEvent& event) {
         const std::int32_t rowIndex = RowIndex(event.GetRowOrCol() + 1);
         if (rowIndex > 0) m_heights.RowDragged(rowIndex, GetRowSize(event.GetRowOrCol()));
       }));
  cells->Bind(wxEVT_PAINT, Guarded([this](wxPaintEvent& event) { Paint(event); }));
  cells->Bind(wxEVT_SIZE, Guarded([this](wxSizeEvent& event) {
                event.Skip();
                m_widths.Share();
                m_toolTip.Forget();
              }));
  const auto onFocus = Guarded([this](wxFocusEvent& event) {
    event.Skip();
    m_renderer->SetFocused(event.GetEventType() == wxEVT_SET_FOCUS);
    m_cursor.Refresh();
  });
  cells->Bind(wxEVT_SET_FOCUS, onFocus);
  cells->Bind(wxEVT_KILL_FOCUS, onFocus);
  Bind(wxEVT_IDLE, Guarded([this](wxIdleEvent& event) {
         event.Skip();
         m_cursor.Idle();
       }));
  Bind(wxEVT_SYS_COLOUR_CHANGED, Guarded([this](wxSysColourChangedEvent& event) {
         event.Skip();
         Restyle();
       }));
}

void DataGrid::BindMouse() {
  const auto onCellClick = Guarded([this](wxGridEvent& event) { m_mouse.CellClick(event); });
  Bind(wxEVT_GRID_CELL_LEFT_CLICK, onCellClick);
  Bind(wxEVT_GRID_CELL_RIGHT_CLICK, onCellClick);
  for (wxWindow* const window : {GetGridWindow(), GetGridColLabelWindow()}) {
    for (const auto& button : {wxEVT_LEFT_DOWN, wxEVT_RIGHT_DOWN, wxEVT_MIDDLE_DOWN}) {
      window->Bind(button, Guarded([this](wxMouseEvent& event) { m_mouse.Down(event); }));
    }
    window->Bind(wxEVT_LEFT_DCLICK, Guarded([this](wxMouseEvent& event) { m_mouse.DoubleClick(event); }));
  }
  GetGridWindow()->Bind(wxEVT_MOTION, Guarded([this](wxMouseEvent& event) {
                          event.Skip();
                          m_toolTip.PointerMoved(event.GetPosition());
                        }));
  GetGridWindow()->Bind(wxEVT_RIGHT_UP, Guarded([this](wxMouseEvent& event) { m_mouse.RightUp(event); }));
  GetGridWindow()->Bind(wxEVT_CONTEXT_MENU, Guarded([this](wxContextMenuEvent& event) { m_mouse.AskForMenu(event); }));
}

void DataGrid::Paint(wxPaintEvent& event) {
  if (m_state.content.Rows().LineCount() > 0 || m_state.emptyText.empty()) return event.Skip();
  wxPaintDC dc(GetGridWindow());
  m_renderer->DrawEmptyText(dc, GetGridWindow()->GetClientSize());
}

void DataGrid::ReportFailure(std::exception_ptr failure) noexcept {
  if (Failed) Failed(std::move(failure));
}

void DataGrid::ReadFailed() noexcept {
  if (std::exchange(m_readFailed, true)) return;
  // Later: the toolkit is drawing, and the receiver may open a window.
  CallAfter([this, failure = std::current_exception()] { ReportFailure(failure); });
}

void DataGrid::AllowRowSizing(bool allow) {
  EnableDragRowSize(allow);
  EnableDragGridSize(allow);
}

void DataGrid::SetRowHeight(std::int32_t units) {
  m_heights.SetRowHeight(units);
  m_heights.Apply(m_state.content.Rows());
}

void DataGrid::SetSource(const RowSource* source) {
  m_bound.reset();
  m_state.content.SetSource(source);
}

void DataGrid::Bind(std::shared_ptr<ado::Recordset> recordset) {
  auto bound = recordset ? std::make_unique<RecordsetSource>(std::move(recordset), m_state.content.Columns()) : nullptr;
  m_state.content.SetSource(bound.get());
  m_bound = std::move(bound);
}

void DataGrid::SetEmptyText(std::string text) {
  m_state.emptyText = std::move(text);
  m_cursor.Speak();
  ForceRefresh();
}

void DataGrid::SetRowHint(std::function<std::string(std::int32_t rowIndex)> hint) {
  m_state.rowHint = std::move(hint);
  m_toolTip.Forget();
  Announce();
}

void DataGrid::Refetch() {
  const std::vector<std::int32_t> shown = m_state.content.Shown();
  const std::int32_t rowCount = m_state.content.Rows().RowCount();
  m_state.content.Arrange();
  m_readFailed = false;
  if (m_state.content.Rows().RowCount() != rowCount) m_heights.ForgetDragged();
  if (m_state.content.Shown() != shown) ShowColumns();
  ShowLines(m_state.content.Rows().LineCount() > 0 ? 1 : 0);
  m_cursor.BringIntoViewLater();
  GetGridColLabelWindow()->Refresh();  // with the arrow of the sort order
  Announce();
}

void DataGrid::SelectLine(std::int32_t line) {
  if (line < 1 || line > m_state.content.Rows().LineCount()) return;
  const bool isChange = line != m_state.currentLine;
  m_cursor.MoveTo(line);
  if (isChange) Announce();
}

void DataGrid::SelectRowIndex(std::int32_t rowIndex) {
  const GridRows& rows = m_state.content.Rows();
  if (rows.LineOf(rowIndex) == 0) SetGroupOpen(rows.HeadingOf(rowIndex), true);
  SelectLine(rows.LineOf(rowIndex));
}

void DataGrid::SelectNone(std::int32_t resumeLine) {
  m_state.resumeLine = resumeLine;
  m_cursor.MoveTo(0);
  Announce();
}

void DataGrid::SetGroupOpen(std::int32_t line, bool open) {
  const RowGroup* group = m_state.content.Rows().GroupAt(line);
  if (group == nullptr || group->open == open) return;
  const GridCursor::Mark mark = m_cursor.Marked();
  m_state.content.SetOpen(line, open);
  // Only this group can hide the current row, and its heading stays on its line.
  ShowLinesAt(mark, line);
}

void DataGrid::SortByCaption(int position) {
  if (position < 0 || static_cast<std::size_t>(position) >= m_state.content.Shown().size()) return;
  const GridCursor::Mark mark = m_cursor.Marked();
  m_state.content.SortByPosition(static_cast<std::size_t>(position));
  ShowLinesAt(mark, std::min(m_state.currentLine, m_state.content.Rows().LineCount()));
  GetGridColLabelWindow()->Refresh();  // with the arrow of the sort order
}

/// Reports to the toolkit how many lines there are now, and draws them.
void DataGrid::ShowLines(std::int32_t currentLine) {
  m_state.currentLine = currentLine;
  {
    const wxGridUpdateLocker batch(this);
    m_table->LinesChanged();
    m_heights.Apply(m_state.content.Rows());
  }
  m_toolTip.Forget();
  ForceRefresh();
  m_cursor.Set(currentLine);
}

void DataGrid::ShowLinesAt(const GridCursor::Mark& mark, std::int32_t fallback) {
  const bool hadLine = CurrentLine() > 0;
  const std::int32_t line = m_cursor.LineOf(mark);
  ShowLines(line > 0 ? line : fallback);
  m_cursor.BringIntoView();
  if (hadLine && line == 0) Announce();
}

void DataGrid::ShowColumns() {
  const wxGridUpdateLocker batch(this);
  m_table->ColumnsChanged();
  m_widths.Reset(m_state.content);
}

// Only the lines on the screen: the user sees no others, and there may be thousands.
void DataGrid::FitColumn(int position) {
  const int top = CalcUnscrolledPosition({0, 0}).y;
  const int first = YToRow(top, true);
  const int last = YToRow(top + GetGridWindow()->GetClientSize().y, true);
  wxClientDC dc(GetGridWindow());
  dc.SetFont(GetLabelFont());
  int width = dc.GetTextExtent(GetColLabelValue(position)).x;
  dc.SetFont(GetDefaultCellFont());
  for (int row = first; row >= 0 && row <= last; ++row) {
    if (RowIndex(row + 1) > 0) width = std::max(width, dc.GetMultiLineTextExtent(GetCellValue(row, position)).x);
  }
  m_widths.Fit(position, width + 2 * kCellMargin + FromDIP(2));
}

void DataGrid::Announce() {
  m_cursor.Speak();
  if (CurrentLineChanged) CurrentLineChanged();
}

void DataGrid::Restyle() {
  m_renderer->TakeStyle(*this);
  SetDefaultCellBackgroundColour(m_renderer->EmptySpace());
  ForceRefresh();
}

std::int32_t DataGrid::RowIndex(std::int32_t line) const noexcept { return m_state.content.Rows().RowIndex(line); }

std::int32_t DataGrid::Bookmark(std::int32_t rowIndex) const {
  if (!m_bound) ThrowObjectNotSet();
  if (rowIndex < 1 || rowIndex > m_bound->RowCount()) ThrowInvalidCall();
  return m_bound->Bound().BookmarkAt(rowIndex);
}

ado::Recordset* DataGrid::BoundRecordset() const { return m_bound ? &m_bound->Bound() : nullptr; }

GridArea DataGrid::HitTest(double x, double y) const {
  const int belowCaptions = static_cast<int>(y) - GetColLabelSize();
  const wxPoint point = CalcUnscrolledPosition({static_cast<int>(x), belowCaptions});
  const bool isBesideColumns = x < 0 || XToCol(point.x) == wxNOT_FOUND;
  if (y < 0 || isBesideColumns) return GridArea::Nowhere;
  if (belowCaptions < 0) {
    return XToEdgeOfCol(point.x) != wxNOT_FOUND ? GridArea::ColumnSeparator : GridArea::ColumnHeader;
  }
  const int line = YToRow(point.y) + 1;
  if (line == 0) return GridArea::Nowhere;  // wxNOT_FOUND is -1
  return m_state.content.Rows().GroupAt(line) != nullptr ? GridArea::GroupRow : GridArea::Cell;
}

}  // namespace quorvel
