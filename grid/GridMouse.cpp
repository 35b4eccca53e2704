#include "grid/GridMouse.h"

#include <algorithm>

#include "grid/DataGrid.h"
#include "grid/GridRenderer.h"
#include "grid/GridWatcher.h"

namespace quorvel {
namespace {

/// From the corner of the grid, though the event counts from the window inside it that was pressed.
wxPoint GridPoint(const wxMouseEvent& event) {
  const auto* const window = dynamic_cast<const wxWindow*>(event.GetEventObject());
  return window != nullptr ? event.GetPosition() + window->GetPosition() : event.GetPosition();
}

}  // namespace

void GridMouse::Down(wxMouseEvent& event) {
  event.Skip();
  m_watcher.MouseDown(event, GridPoint(event));
}

void GridMouse::DoubleClick(wxMouseEvent& event) {
  const wxPoint point = GridPoint(event);
  m_watcher.DoubleClick();
  if (m_grid.HitTest(point.x, point.y) != GridArea::GroupRow) return event.Skip();
  const std::int32_t line = m_grid.CurrentLine();
  const RowGroup* const group = m_grid.Content().Rows().GroupAt(line);
  if (group != nullptr) m_grid.SetGroupOpen(line, !group->open);
}

void GridMouse::RightUp(wxMouseEvent& event) {
  event.Skip();
  AskForMenuAt(event.GetPosition());
}

// The toolkit also reports the right button in this way, but on some desktops only; RightUp does that on all of them.
void GridMouse::AskForMenu(const wxContextMenuEvent& event) {
  if (event.GetPosition() != wxDefaultPosition) return;
  const int row = std::max(m_grid.CurrentLine(), 1) - 1;
  wxPoint point;
  if (row < m_grid.GetNumberRows()) point = m_grid.CalcScrolledPosition(m_grid.CellToRect(row, 0).GetBottomLeft());
  // The line may be out of sight.
  AskForMenuAt({point.x, std::clamp(point.y, 0, m_grid.GetGridWindow()->GetClientSize().y)});
}

void GridMouse::AskForMenuAt(const wxPoint& inCells) {
  if (m_grid.MenuAsked) m_grid.MenuAsked(inCells + m_grid.GetGridWindow()->GetPosition());
}

bool GridMouse::IsOnRowBorder(const wxGridEvent& event) const {
  const int y = m_grid.CalcUnscrolledPosition({0, event.GetPosition().y - m_grid.GetColLabelSize()}).y;
  return m_grid.CanDragGridRowEdges() && m_grid.YToEdgeOfRow(y) != wxNOT_FOUND;
}

void GridMouse::CellClick(wxGridEvent& event) {
  const bool isLeft = event.GetEventType() == wxEVT_GRID_CELL_LEFT_CLICK;
  if (isLeft && IsOnRowBorder(event)) return event.Skip();  // begins to drag it
  const std::int32_t line = event.GetRow() + 1;
  const RowGroup* const group = m_grid.Content().Rows().GroupAt(line);
  const bool isOnTriangle = group != nullptr && GridRenderer::IsOnTriangle(m_grid, event.GetPosition().x);
  const bool opens = group != nullptr && !group->open;
  m_grid.SelectLine(line);
  if (isLeft && isOnTriangle) m_grid.SetGroupOpen(line, opens);
}

}  // namespace quorvel
