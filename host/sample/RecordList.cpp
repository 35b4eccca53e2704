#include "host/sample/RecordList.h"

namespace sample {

RecordList::RecordList(wxWindow* parent, const wxString& idCaption, const wxString& textCaption)
    : wxDataViewListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxDV_SINGLE) {
  const int character = GetCharWidth();
  AppendTextColumn(idCaption, wxDATAVIEW_CELL_INERT, 12 * character, wxALIGN_LEFT,
                   wxDATAVIEW_COL_RESIZABLE | wxDATAVIEW_COL_SORTABLE);
  AppendTextColumn(textCaption, wxDATAVIEW_CELL_INERT, 25 * character, wxALIGN_LEFT,
                   wxDATAVIEW_COL_RESIZABLE | wxDATAVIEW_COL_SORTABLE);
}

void RecordList::Fill(const std::vector<Line>& lines) {
  DeleteAllItems();
  for (const Line& line : lines) {
    wxVector<wxVariant> cells;
    cells.push_back(line.id);
    cells.push_back(line.text);
    AppendItem(cells);
  }
  if (!lines.empty()) SelectRow(0);
}

wxString RecordList::ChosenID() const {
  const int row = GetSelectedRow();
  return row == wxNOT_FOUND ? wxString() : GetTextValue(static_cast<unsigned>(row), 0);
}

}  // namespace sample
