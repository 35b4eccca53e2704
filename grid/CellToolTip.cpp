#include "grid/CellToolTip.h"

#include <string>

#include <wx/dcclient.h>
#include <wx/grid.h>

#include "grid/CellLayout.h"
#include "grid/GridState.h"
#include "grid/WrappedText.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

/// A tool tip is a window: for a text of megabytes it would be larger than any screen.
constexpr std::size_t kMostCharacters = 4000;

}  // namespace

void CellToolTip::PointerMoved(const wxPoint& point) {
  const wxPoint unscrolled = m_grid.CalcUnscrolledPosition(point);
  const std::int32_t line = m_grid.YToRow(unscrolled.y) + 1;
  const int position = m_grid.XToCol(unscrolled.x);
  if (line == m_line && position == m_position) return;
  m_line = line;
  m_position = position;
  wxWindow& cells = *m_grid.GetGridWindow();
  cells.UnsetToolTip();
  if (position == wxNOT_FOUND || m_state.content.Rows().RowIndex(line) < 1) return;
  const std::string text = m_state.Cell(line, static_cast<std::size_t>(position)).text;
  wxClientDC dc(&cells);
  dc.SetFont(m_grid.GetDefaultCellFont());
  if (ShowsWhole(dc, text, {m_grid.GetColSize(position), m_grid.GetRowSize(line - 1)})) return;
  cells.SetToolTip(ui::ToWx(BeginningOf(text, kMostCharacters).text));
}

}  // namespace quorvel
