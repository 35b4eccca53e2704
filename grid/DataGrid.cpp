#include "grid/DataGrid.h"

#include <algorithm>
#include <utility>

#include <wx/dcclient.h>
#include <wx/settings.h>

#include "grid/ColumnWidths.h"
#include "grid/GridRenderer.h"
#include "grid/GridTable.h"
#include "grid/RecordsetSource.h"
#include "grid/WrappedText.h"
#include "platform/Error.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

constexpr std::int32_t kUnitsPerLine = 190;
constexpr std::int32_t kHeadingUnits = 265;
/// The toolkit goes through all lines for each heading of another height.
constexpr std::size_t kMostHeadingsOfOwnHeight = 200;
constexpr std::size_t kSpokenBytes = 200;  // of each value in a row

}  // namespace

DataGrid::DataGrid(wxWindow* parent, std::vector<GridColumn> columns, std::vector<std::int32_t> positions)
    : wxGrid(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS | wxBORDER_THEME),
      m_state{.content = {std::move(columns), std::move(positions)}, .readFailed = [this] { ReadFailed(); }},
      m_renderer(new GridRenderer(m_state)) {
  m_table = new GridTable(m_state, m_renderer);
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
  SetMargins(0, 0);
  AllowRowSizing(false);
  SetCanFocus(false);  // only the window inside that shows the cells: Tab would stop at both
  Restyle();
  ApplyColumns();
  ApplyRowHeights();
  BindEvents();
}

DataGrid::~DataGrid() = default;

void DataGrid::ShowColumn(std::int32_t column, bool visible) { m_state.content.ShowColumn(column, visible); }

void DataGrid::GroupBy(std::optional<SortKey> group) { m_state.content.GroupBy(group); }

void DataGrid::SortBy(std::vector<SortKey> keys) { m_state.content.sort = std::move(keys); }

void DataGrid::AllowRowSizing(bool allow) {
  EnableDragRowSize(allow);
  EnableDragGridSize(allow);
}

void DataGrid::SetRowHeight(std::int32_t units) {
  m_rowUnits = units;
  m_draggedHeights.clear();
  ApplyRowHeights();
}

void DataGrid::SetSource(const RowSource* source) {
  m_bound.reset();
  m_state.content.source = source;
}

void DataGrid::Bind(std::shared_ptr<ado::Recordset> recordset) {
  auto bound = recordset ? std::make_unique<RecordsetSource>(std::move(recordset), m_state.content.Columns()) : nullptr;
  m_state.content.source = bound.get();
  m_bound = std::move(bound);
}

void DataGrid::Refetch() {
  const std::vector<std::int32_t> shown = m_state.content.Shown();
  const std::int32_t rowCount = m_state.content.RowCount();
  m_state.content.Arrange();
  m_readFailed = false;
  if (m_state.content.RowCount() != rowCount) m_draggedHeights.clear();
  m_state.currentLine = m_state.content.Rows().LineCount() > 0 ? 1 : 0;
  if (m_state.content.Shown() != shown) ApplyColumns();
  ShowLines();
  // Later: who selects another row now shall find what was in view where it was.
  m_isToBeBroughtIntoView = true;
  ShowSortArrow();
  TellCurrentRow();
}

void DataGrid::SelectRow(std::int32_t row) {
  if (row >= 1 && row <= m_state.content.Rows().LineCount()) MakeCurrent(row);
}

void DataGrid::SelectRowIndex(std::int32_t rowIndex) {
  const GridRows& rows = m_state.content.Rows();
  if (const std::int32_t heading = rows.HeadingOf(rowIndex); heading > 0 && rows.LineOf(rowIndex) == 0) {
    SetGroupOpen(heading, true);
  }
  SelectRow(rows.LineOf(rowIndex));
}

void DataGrid::SelectNone() {
  RefreshLine(m_state.currentLine);
  m_state.currentLine = 0;
  TellCurrentRow();
}

void DataGrid::SetGroupOpen(std::int32_t row, bool open) {
  const GridRows::Group* group = m_state.content.Rows().GroupAt(row);
  if (group == nullptr || group->open == open) return;
  const Place place = PlaceOf(m_state.currentLine);
  m_state.content.SetOpen(row, open);
  // Only the current row's own group can hide it, and that group's heading stays on its line.
  ShowLinesAt(place, row);
}

void DataGrid::SortByCaption(int place) {
  const std::vector<std::int32_t>& shown = m_state.content.Shown();
  if (place < 0 || static_cast<std::size_t>(place) >= shown.size()) return;
  const std::vector<SortKey> before = m_state.content.sort;
  const SortKey current = before.empty() ? SortKey{} : before.front();
  const std::int32_t column = shown[static_cast<std::size_t>(place)];
  const Place selected = PlaceOf(m_state.currentLine);
  m_state.content.sort = {{.column = column, .ascending = current.column != column || !current.ascending}};
  try {
    m_state.content.Arrange();
  } catch (...) {
    m_state.content.sort = before;
    throw;
  }
  ShowLinesAt(selected, std::min(m_state.currentLine, m_state.content.Rows().LineCount()));
  ShowSortArrow();
}

DataGrid::Place DataGrid::PlaceOf(std::int32_t line) const {
  const GridRows& rows = m_state.content.Rows();
  const GridRows::Group* heading = rows.GroupAt(line);
  return {.rowIndex = rows.RowIndex(line), .group = heading != nullptr ? heading->value : Value()};
}

std::int32_t DataGrid::LineOf(const Place& place) const {
  const GridRows& rows = m_state.content.Rows();
  if (place.rowIndex > 0) return rows.LineOf(place.rowIndex);
  for (const GridRows::Group& group : rows.Groups()) {
    if (CompareValues(group.value, place.group) == 0) return group.line;
  }
  return 0;
}

/// Tells the toolkit how many lines there are now, and draws them.
void DataGrid::ShowLines() {
  {
    const wxGridUpdateLocker batch(this);
    const int before = GetNumberRows();
    const int after = m_table->GetNumberRows();
    if (after < before) {
      wxGridTableMessage fewer(m_table, wxGRIDTABLE_NOTIFY_ROWS_DELETED, after, before - after);
      ProcessTableMessage(fewer);
    } else if (after > before) {
      wxGridTableMessage more(m_table, wxGRIDTABLE_NOTIFY_ROWS_APPENDED, after - before);
      ProcessTableMessage(more);
    }
    ApplyRowHeights();
  }
  m_toolTipLine = 0;
  ForceRefresh();
  if (m_state.currentLine > 0) SetGridCursor(m_state.currentLine - 1, 0);
}

void DataGrid::ShowLinesAt(const Place& place, std::int32_t fallback) {
  const std::int32_t line = LineOf(place);
  m_state.currentLine = line > 0 ? line : fallback;
  ShowLines();
  BringIntoView();
  if (line == 0) TellCurrentRow();
}

int DataGrid::LineHeightOf(std::int32_t units) const {
  wxClientDC dc(GetGridWindow());
  dc.SetFont(GetDefaultCellFont());
  return static_cast<int>(std::int64_t{units} * dc.GetCharHeight() / kUnitsPerLine);
}

void DataGrid::ApplyRowHeights() {
  const wxGridUpdateLocker batch(this);
  const int height = std::max(LineHeightOf(m_rowUnits), GetRowMinimalAcceptableHeight());
  SetDefaultRowSize(height, true);
  SetScrollRate(GetScrollLineX(), LineHeightOf(kUnitsPerLine));
  const GridRows& rows = m_state.content.Rows();
  const int headingHeight = LineHeightOf(kHeadingUnits);
  if (headingHeight != height && rows.Groups().size() <= kMostHeadingsOfOwnHeight) {
    for (const GridRows::Group& group : rows.Groups()) SetRowSize(group.line - 1, headingHeight);
  }
  for (const auto& [rowIndex, dragged] : m_draggedHeights) {
    if (const std::int32_t line = rows.LineOf(rowIndex); line > 0) SetRowSize(line - 1, dragged);
  }
}

void DataGrid::ApplyColumns() {
  const wxGridUpdateLocker batch(this);
  m_widths.clear();
  for (std::size_t place = 0; place < m_state.content.Shown().size(); ++place) {
    m_widths.push_back(FromDIP(m_state.content.ShownColumn(place).width));
  }
  m_table->MakeAttributes();
  const int before = GetNumberCols();
  const int after = m_table->GetNumberCols();
  if (after < before) {
    wxGridTableMessage fewer(m_table, wxGRIDTABLE_NOTIFY_COLS_DELETED, after, before - after);
    ProcessTableMessage(fewer);
  } else if (after > before) {
    wxGridTableMessage more(m_table, wxGRIDTABLE_NOTIFY_COLS_APPENDED, after - before);
    ProcessTableMessage(more);
  }
  ShareColumns(std::nullopt);
}

/// Spreads the visible columns over the window's width; after a drag only those right of the border that was dragged.
void DataGrid::ShareColumns(std::optional<int> dragged) {
  const int total = GetGridWindow()->GetClientSize().x;
  if (total <= 0 || m_widths.empty()) return;
  if (dragged) {
    for (std::size_t place = 0; place < m_widths.size(); ++place) m_widths[place] = GetColSize(static_cast<int>(place));
    m_widths = ShareWidthAfter(m_widths, static_cast<std::size_t>(*dragged), total);
  }
  const std::vector<int> widths = ShareWidth(m_widths, total);
  const wxGridUpdateLocker batch(this);
  for (std::size_t place = 0; place < widths.size(); ++place) SetColSize(static_cast<int>(place), widths[place]);
}

void DataGrid::ShowSortArrow() {
  const std::vector<SortKey>& sort = m_state.content.sort;
  const std::vector<std::int32_t>& shown = m_state.content.Shown();
  const auto found = sort.empty() ? shown.end() : std::find(shown.begin(), shown.end(), sort.front().column);
  if (found == shown.end()) {
    UnsetSortingColumn();
  } else {
    SetSortingColumn(static_cast<int>(found - shown.begin()), sort.front().ascending);
  }
  GetGridColLabelWindow()->Refresh();
}

void DataGrid::MakeCurrent(std::int32_t line) {
  if (line != m_state.currentLine) {
    RefreshLine(m_state.currentLine);
    m_state.currentLine = line;
    RefreshLine(line);
    SetGridCursor(line - 1, 0);
    BringIntoView();
    TellCurrentRow();
  } else {
    BringIntoView();
  }
}

/// The current line, and the heading above it if it is a group's first row. Waits until the window has a size: in one
/// that was not laid out yet everything would be scrolled away.
void DataGrid::BringIntoView() {
  const std::int32_t line = m_state.currentLine;
  m_isToBeBroughtIntoView = line > 0 && GetGridWindow()->GetClientSize().y < 2 * GetDefaultRowSize();
  if (line == 0 || m_isToBeBroughtIntoView) return;
  if (m_state.content.Rows().GroupAt(line - 1) != nullptr) MakeCellVisible(line - 2, 0);
  MakeCellVisible(line - 1, 0);
}

/// The lines are drawn: who cannot see them hears the current one.
void DataGrid::TellCurrentRow() {
  const std::string row = m_state.LineText(m_state.currentLine, ", ", kSpokenBytes);
  // By way of the toolkit's text, which holds nothing that is not UTF-8.
  const std::string spoken = ui::FromWx(ui::ToWx(BeginningOf(row, row.size()).text));
  ui::SetAccessibleName(*GetGridWindow(), m_state.currentLine == 0 ? "Remarks" : spoken);
  if (RowChanged) RowChanged();
}

void DataGrid::RefreshLine(std::int32_t line) {
  if (line < 1 || line > GetNumberRows() || GetNumberCols() == 0) return;
  RefreshBlock(line - 1, 0, line - 1, GetNumberCols() - 1);
}

void DataGrid::Restyle() {
  m_renderer->TakeStyle(*this);
  SetDefaultCellBackgroundColour(m_renderer->EmptySpace());
  ForceRefresh();
}

std::int32_t DataGrid::CurrentRow() const { return m_state.currentLine; }

std::int32_t DataGrid::RowIndex(std::int32_t row) const { return m_state.content.Rows().RowIndex(row); }

std::int32_t DataGrid::Bookmark(std::int32_t rowIndex) const {
  if (!m_bound) ThrowObjectNotSet();
  if (rowIndex < 1 || rowIndex > m_bound->RowCount()) ThrowInvalidCall();
  return m_bound->Bound().BookmarkAt(rowIndex);
}

ado::Recordset* DataGrid::BoundRecordset() const { return m_bound ? &m_bound->Bound() : nullptr; }

GridArea DataGrid::HitTest(double x, double y) const {
  const wxPoint point(static_cast<int>(x), static_cast<int>(y) - GetColLabelSize());
  wxPoint place;
  CalcUnscrolledPosition(point.x, point.y, &place.x, &place.y);
  const bool isBesideColumns = x < 0 || XToCol(place.x) == wxNOT_FOUND;
  if (y < 0 || isBesideColumns) return GridArea::Nowhere;
  if (point.y < 0) return XToEdgeOfCol(place.x) != wxNOT_FOUND ? GridArea::ColumnSeparator : GridArea::ColumnHeader;
  const int row = YToRow(place.y);
  if (row == wxNOT_FOUND) return GridArea::Nowhere;
  return m_state.content.Rows().GroupAt(row + 1) != nullptr ? GridArea::GroupRow : GridArea::Cell;
}

void DataGrid::Watch(GridEvents* events) { m_events = events; }

}  // namespace quorvel
