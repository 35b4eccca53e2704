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

/// A tool tip is a window: a longer text would be higher than a small screen, and so would one of many short lines.
constexpr std::size_t kMostCharacters = 1500;
constexpr std::size_t kCharactersOfLine = 75;

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
  std::string tip = HiddenText(line, position);
  const std::string hint = m_state.Hint(line);
  if (!tip.empty() && !hint.empty()) tip += '\n';
  tip += hint;
  if (!tip.empty()) cells.SetToolTip(ui::ToWx(BeginningOf(tip, kMostCharacters, kCharactersOfLine).text));
}

void CellToolTip::Forget() {
  m_line = 0;
  m_grid.GetGridWindow()->UnsetToolTip();
}

std::string CellToolTip::HiddenText(std::int32_t line, int position) const {
  std::string complete = m_state.CellTip(line, static_cast<std::size_t>(position));
  if (!complete.empty()) return complete;
  std::string text = m_state.Cell(line, static_cast<std::size_t>(position)).text;
  wxClientDC dc(m_grid.GetGridWindow());
  dc.SetFont(m_grid.GetDefaultCellFont());
  const bool isWhole = ShowsWhole(dc, text, {m_grid.GetColSize(position), m_grid.GetRowSize(line - 1)});
  return isWhole ? std::string() : text;
}

}  // namespace quorvel
