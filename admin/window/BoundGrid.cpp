#include "admin/window/BoundGrid.h"

#include <utility>

#include <wx/stattext.h>

#include "grid/DataGrid.h"
#include "platform/wx/Text.h"

namespace quorvel {

void BoundGrid::Attach(DataGrid& grid, wxStaticText& explanation) {
  m_grid = &grid;
  m_explanation = &explanation;
  grid.CurrentLineChanged = [this] { ShowExplanation(); };
}

void BoundGrid::Show(std::shared_ptr<ado::Recordset> rows) {
  m_grid->SetRowHint({});
  m_grid->Bind(std::move(rows));
  m_grid->Refetch();
}

void BoundGrid::Explain(Explanation explanation) { m_grid->SetRowHint(std::move(explanation)); }

// A label would take an ampersand for the mark of an access key.
void BoundGrid::ShowExplanation() {
  const wxString text = ui::ToWx(m_grid->RowHint());
  m_explanation->SetLabelText(text);
  m_explanation->SetToolTip(text);
}

}  // namespace quorvel
