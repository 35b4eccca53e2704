#include "remark_ui/FindField.h"

#include <string>

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "grid/DataGrid.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel {

FindField::FindField(wxWindow& parent, DataGrid& grid)
    : pnlFind(new wxPanel(&parent)), txtFind(new wxTextCtrl(pnlFind, wxID_ANY)), m_grid(grid) {
  pnlFind->SetName("pnlFind");
  txtFind->SetName("txtFind");
  txtFind->SetMinSize({-1, txtFind->GetCharHeight() + pnlFind->FromDIP(12)});
  m_result = new wxStaticText(pnlFind, wxID_ANY, "Not found");
  m_result->SetName("lblFindResult");
  const int gap = pnlFind->FromDIP(5);
  auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
  sizer->Add(new wxStaticText(pnlFind, wxID_ANY, "Find"), wxSizerFlags().CentreVertical().Border(wxTOP | wxRIGHT, gap));
  sizer->Add(txtFind, wxSizerFlags(1).CentreVertical().Border(wxTOP, gap));
  sizer->Add(m_result, wxSizerFlags(2).CentreVertical().Border(wxTOP | wxLEFT, gap).ReserveSpaceEvenIfHidden());
  pnlFind->SetSizer(sizer);
  ui::ShowFocus(*txtFind);
  pnlFind->Hide();
  SayFound(true);
}

bool FindField::IsOpen() const { return pnlFind->IsShown(); }

void FindField::Open(const wxString& typed) {
  pnlFind->Show();
  Toggled();
  txtFind->SetFocus();
  if (typed.empty()) return txtFind->SelectAll();
  txtFind->SetValue(typed);
  txtFind->SetInsertionPointEnd();  // some desktops select the text of a field that gets the focus
}

void FindField::Close() {
  if (!IsOpen()) return;
  // A hidden control would keep the focus.
  if (pnlFind->IsDescendant(wxWindow::FindFocus())) m_grid.SetFocus();
  pnlFind->Hide();
  Toggled();
}

void FindField::Reset() {
  Close();
  txtFind->ChangeValue({});
  SayFound(true);
}

bool FindField::TakesKey(const wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  const bool isPlain = (event.GetModifiers() & ~wxMOD_SHIFT) == 0;
  const bool isInField = IsOpen() && txtFind->HasFocus();
  const bool isEnter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
  if (key == 'F' && event.GetModifiers() == wxMOD_CONTROL) {
    Open({});
  } else if (isPlain && (key == WXK_F3 || (isEnter && isInField))) {
    GoOn(event.ShiftDown());
  } else if (key == WXK_ESCAPE && !event.HasAnyModifiers() && IsOpen()) {
    m_grid.SetFocus();
    Close();
  } else {
    return false;
  }
  return true;
}

bool FindField::TakesCharacter(const wxKeyEvent& event) {
  const wxChar typed = event.GetUnicodeKey();
  if (typed <= ' ' || typed == WXK_DELETE || event.ControlDown() || event.AltDown()) return false;
  Open(typed);
  return true;
}

void FindField::GoOn(bool upwards) {
  if (txtFind->IsEmpty()) return Open({});
  // A closed field cannot say that nothing was found.
  if (!Find(upwards ? SearchFrom::Previous : SearchFrom::Next) && !IsOpen()) Open({});
}

bool FindField::Find(SearchFrom from) {
  const std::string text = ui::FromWx(txtFind->GetValue());
  const std::int32_t rowIndex = FindRow(m_grid.Content(), m_grid.CurrentLine(), text, from);
  SayFound(rowIndex > 0 || text.empty());
  if (rowIndex > 0) m_grid.SelectRowIndex(rowIndex);
  return rowIndex > 0;
}

void FindField::SayFound(bool isFound) {
  m_result->Show(!isFound);
  ui::SetAccessibleName(*txtFind, isFound ? "Find" : "Find: not found");
}

}  // namespace quorvel
