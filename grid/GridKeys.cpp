// The watcher sees each key first. An action selects another line, opens or closes the group of the current line, or
// copies it.

#include "grid/GridKeys.h"

#include <algorithm>
#include <array>
#include <utility>

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include "grid/DataGrid.h"
#include "grid/GridWatcher.h"
#include "platform/wx/SendKeys.h"
#include "platform/wx/Text.h"

namespace quorvel {

void GridKeys::KeyDown(wxKeyEvent& event) {
  if (m_watcher.TakesKey(event)) return;
  const int key = event.GetKeyCode();
  if (key == WXK_TAB) return Tab(event);
  if (event.ControlDown() && key == 'C') return Copy();
  const Action action = event.AltDown() ? nullptr : ActionOf(key);
  if (action == nullptr) return event.Skip();
  (this->*action)();
}

GridKeys::Action GridKeys::ActionOf(int key) {
  static constexpr std::array<std::pair<int, Action>, 23> kActions = {{
      {WXK_UP, &GridKeys::Up},
      {WXK_NUMPAD_UP, &GridKeys::Up},
      {WXK_DOWN, &GridKeys::Down},
      {WXK_NUMPAD_DOWN, &GridKeys::Down},
      {WXK_HOME, &GridKeys::First},
      {WXK_NUMPAD_HOME, &GridKeys::First},
      {WXK_END, &GridKeys::Last},
      {WXK_NUMPAD_END, &GridKeys::Last},
      {WXK_PAGEUP, &GridKeys::PageUp},
      {WXK_NUMPAD_PAGEUP, &GridKeys::PageUp},
      {WXK_PAGEDOWN, &GridKeys::PageDown},
      {WXK_NUMPAD_PAGEDOWN, &GridKeys::PageDown},
      {WXK_LEFT, &GridKeys::CloseOrGoToHeading},
      {WXK_NUMPAD_LEFT, &GridKeys::CloseOrGoToHeading},
      {'-', &GridKeys::Close},
      {WXK_NUMPAD_SUBTRACT, &GridKeys::Close},
      {WXK_RIGHT, &GridKeys::Open},
      {WXK_NUMPAD_RIGHT, &GridKeys::Open},
      {'+', &GridKeys::Open},
      {WXK_NUMPAD_ADD, &GridKeys::Open},
      // On a row the grid takes these three keys and ignores them.
      {WXK_RETURN, &GridKeys::Toggle},
      {WXK_NUMPAD_ENTER, &GridKeys::Toggle},
      {WXK_SPACE, &GridKeys::Toggle},
  }};
  for (const auto& [code, action] : kActions) {
    if (code == key) return action;
  }
  return nullptr;
}

void GridKeys::Up() {
  const std::int32_t current = m_grid.CurrentLine();
  m_grid.SelectLine((current > 0 ? current : m_grid.ResumeLine()) - 1);
}

void GridKeys::Down() {
  if (m_grid.CurrentLine() > 0) return m_grid.SelectLine(m_grid.CurrentLine() + 1);
  const GridRows& rows = m_grid.Content().Rows();
  std::int32_t line = m_grid.ResumeLine();
  while (rows.GroupAt(line) != nullptr) ++line;
  m_grid.SelectLine(std::min(line, rows.LineCount()));
}

void GridKeys::First() { m_grid.SelectLine(1); }
void GridKeys::Last() { m_grid.SelectLine(m_grid.Content().Rows().LineCount()); }

void GridKeys::MoveByPage(int direction) {
  if (m_grid.CurrentLine() == 0) return First();
  const wxRect current = m_grid.CellToRect(m_grid.CurrentLine() - 1, 0);
  const int page = std::max(m_grid.GetGridWindow()->GetClientSize().y - current.height, current.height);
  m_grid.SelectLine(m_grid.YToRow(std::max(current.y + direction * page, 0), true) + 1);
}

void GridKeys::Close() { m_grid.SetGroupOpen(m_grid.CurrentLine(), false); }

/// As in a tree: from a row to its heading; on a heading the group closes.
void GridKeys::CloseOrGoToHeading() {
  const GridRows& rows = m_grid.Content().Rows();
  if (rows.GroupAt(m_grid.CurrentLine()) != nullptr) return Close();
  m_grid.SelectLine(rows.HeadingOf(m_grid.RowIndex(m_grid.CurrentLine())));
}

void GridKeys::Open() { m_grid.SetGroupOpen(m_grid.CurrentLine(), true); }

void GridKeys::Toggle() {
  const std::int32_t line = m_grid.CurrentLine();
  const RowGroup* const group = m_grid.Content().Rows().GroupAt(line);
  if (group != nullptr) m_grid.SetGroupOpen(line, !group->open);
}

void GridKeys::Copy() {
  const wxClipboardLocker clipboard;
  if (!clipboard || m_grid.CurrentLine() == 0) return;
  wxTheClipboard->SetData(new wxTextDataObject(ui::ToWx(m_grid.Content().CopiedLine(m_grid.CurrentLine()))));
}

/// The toolkit's grid would go from cell to cell, which cannot be seen here.
void GridKeys::Tab(const wxKeyEvent& event) {
  if (event.ShiftDown()) {
    ui::SendKeys("+^{TAB}");
  } else if (event.ControlDown() || !m_watcher.IsWatched()) {
    ui::SendKeys("^{TAB}");
  }
}

}  // namespace quorvel
