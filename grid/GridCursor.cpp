#include "grid/GridCursor.h"

#include <utility>

#include <wx/grid.h>

#include "grid/GridState.h"
#include "grid/WrappedText.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel {

void GridCursor::SetSpokenName(std::string name) {
  m_spokenName = std::move(name);
  ui::SetAccessibleName(m_grid, m_spokenName);
  Speak();
}

void GridCursor::Speak() const {
  if (m_state.currentLine == 0) {
    const bool isEmpty = m_state.content.Rows().LineCount() == 0 && !m_state.emptyText.empty();
    const std::string name = isEmpty ? m_spokenName + ". " + m_state.emptyText : m_spokenName;
    return ui::SetAccessibleName(*m_grid.GetGridWindow(), name);
  }
  std::string line = m_state.SpokenLine(m_state.currentLine);
  if (const std::string hint = m_state.Hint(m_state.currentLine); !hint.empty()) line += ". " + hint;
  // The toolkit's text holds nothing that is not UTF-8.
  const std::string spoken = ui::FromWx(ui::ToWx(BeginningOf(line, line.size()).text));
  ui::SetAccessibleName(*m_grid.GetGridWindow(), spoken);
}

void GridCursor::MoveTo(std::int32_t line) {
  if (line != m_state.currentLine) {
    Refresh();
    Set(line);
    Refresh();
  }
  if (line > 0) BringIntoView();
}

void GridCursor::Set(std::int32_t line) {
  m_state.currentLine = line;
  if (line > 0) m_grid.SetGridCursor(line - 1, 0);
}

void GridCursor::Refresh() {
  const std::int32_t line = m_state.currentLine;
  if (line < 1 || line > m_grid.GetNumberRows() || m_grid.GetNumberCols() == 0) return;
  m_grid.RefreshBlock(line - 1, 0, line - 1, m_grid.GetNumberCols() - 1);
}

GridCursor::Mark GridCursor::Marked() const {
  const GridRows& rows = m_state.content.Rows();
  const RowGroup* heading = rows.GroupAt(m_state.currentLine);
  return {.rowIndex = rows.RowIndex(m_state.currentLine), .group = heading != nullptr ? heading->value : Value()};
}

std::int32_t GridCursor::LineOf(const Mark& mark) const {
  const GridRows& rows = m_state.content.Rows();
  if (mark.rowIndex > 0) return rows.LineOf(mark.rowIndex);
  for (const RowGroup& group : rows.Groups()) {
    if (CompareValues(group.value, mark.group) == 0) return group.line;
  }
  return 0;
}

void GridCursor::BringIntoView() {
  const std::int32_t line = m_state.currentLine;
  m_isToBeBroughtIntoView = line > 0 && m_grid.GetGridWindow()->GetClientSize().y < 2 * m_grid.GetDefaultRowSize();
  if (line == 0 || m_isToBeBroughtIntoView) return;
  if (m_state.content.Rows().GroupAt(line - 1) != nullptr) m_grid.MakeCellVisible(line - 2, 0);
  m_grid.MakeCellVisible(line - 1, 0);
}

void GridCursor::Idle() {
  if (m_isToBeBroughtIntoView) BringIntoView();
}

}  // namespace quorvel
