#include "grid/GridTable.h"

#include <algorithm>

#include "platform/wx/Text.h"

namespace quorvel {

GridTable::GridTable(const GridState& state, wxGridCellRenderer* renderer)
    : m_state(state), m_cell(new wxGridCellAttr) {
  m_cell->SetRenderer(renderer);
  m_cell->SetOverflow(false);
  m_cell->SetReadOnly();
  MakeAttributes();
}

void GridTable::MakeAttributes() {
  const auto columns = static_cast<int>(m_state.content.Shown().size());
  m_heading.clear();
  for (int column = 0; column < columns; ++column) {
    wxGridCellAttrPtr attribute(m_cell->Clone());
    if (column == 0) {
      attribute->SetSize(1, columns);
    } else {
      attribute->SetSize(0, -column);
    }
    m_heading.push_back(attribute);
  }
}

int GridTable::GetNumberRows() { return m_state.content.Rows().LineCount(); }

int GridTable::GetNumberCols() { return static_cast<int>(m_state.content.Shown().size()); }

wxString GridTable::GetValue(int row, int column) {
  return ui::ToWx(m_state.CellText(row + 1, static_cast<std::size_t>(column)));
}

wxString GridTable::GetColLabelValue(int column) {
  const GridContent& content = m_state.content;
  const wxString caption = ui::ToWx(content.ShownColumn(static_cast<std::size_t>(column)).caption);
  const bool isSorted =
      !content.Sort().empty() && content.Sort().front().column == content.Shown().at(static_cast<std::size_t>(column));
  // A character is as readable as the caption. The desktops' own arrows are faint in some themes.
  return isSorted ? caption + (content.Sort().front().ascending ? L" \u25B2" : L" \u25BC") : caption;
}

wxGridCellAttr* GridTable::GetAttr(int row, int column, wxGridCellAttr::wxAttrKind /*kind*/) {
  const auto position = static_cast<std::size_t>(std::max(column, 0));
  const bool isHeading = position < m_heading.size() && m_state.content.Rows().GroupAt(row + 1) != nullptr;
  wxGridCellAttr* const attribute = isHeading ? m_heading[position].get() : m_cell.get();
  attribute->IncRef();  // the caller's reference
  return attribute;
}

void GridTable::LinesChanged() {
  Resize(GetView()->GetNumberRows(), GetNumberRows(), wxGRIDTABLE_NOTIFY_ROWS_DELETED,
         wxGRIDTABLE_NOTIFY_ROWS_APPENDED);
}

void GridTable::ColumnsChanged() {
  MakeAttributes();
  Resize(GetView()->GetNumberCols(), GetNumberCols(), wxGRIDTABLE_NOTIFY_COLS_DELETED,
         wxGRIDTABLE_NOTIFY_COLS_APPENDED);
}

void GridTable::Resize(int before, int after, wxGridTableRequest remove, wxGridTableRequest append) {
  if (before == after) return;
  wxGridTableMessage message = after < before ? wxGridTableMessage(this, remove, after, before - after)
                                              : wxGridTableMessage(this, append, after - before);
  GetView()->ProcessTableMessage(message);
}

}  // namespace quorvel
