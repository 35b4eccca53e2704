#include "grid/GridMouse.h"

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
