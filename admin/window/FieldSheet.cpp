#include "admin/window/FieldSheet.h"

#include <wx/checkbox.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "admin/window/SearchCombo.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

constexpr int kMemoLines = 4;
// Before its first layout a box needs room for its scroll bars, or GTK complains to the host's error output.
const wxSize kFirstMemoSize(200, 100);

std::string WithoutMark(std::string_view caption) { return ui::FromWx(wxControl::RemoveMnemonics(ui::ToWx(caption))); }

}  // namespace

FieldSheet::FieldSheet(wxWindow& panel) : m_panel(panel), m_rows(new wxFlexGridSizer(2, panel.FromDIP(wxSize(12, 8)))) {
  m_rows->AddGrowableCol(1);
  auto* border = new wxBoxSizer(wxVERTICAL);
  border->Add(m_rows, wxSizerFlags(1).Expand().Border(wxALL, panel.FromDIP(12)));
  panel.SetSizer(border);
}

wxTextCtrl& FieldSheet::AddLine(std::string_view name, std::string_view caption) {
  return AddText(name, caption, wxTE_PROCESS_ENTER);
}

wxTextCtrl& FieldSheet::AddShownLine(std::string_view name, std::string_view caption) {
  wxTextCtrl& box = AddText(name, caption, wxTE_READONLY);
  // Some desktops draw a box that is only shown like any other.
  box.SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
  return box;
}

wxTextCtrl& FieldSheet::AddText(std::string_view name, std::string_view caption, long style) {
  AddLabel(caption);
  auto* box = new wxTextCtrl(&m_panel, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, style);
  AddRow(*box, name, caption, Width::Full);
  return *box;
}

wxTextCtrl& FieldSheet::AddMemo(std::string_view name, std::string_view caption) {
  AddLabel(caption).SetFlag(wxALIGN_TOP | wxTOP);
  auto* box = new wxTextCtrl(&m_panel, wxID_ANY, wxString(), wxDefaultPosition, m_panel.FromDIP(kFirstMemoSize),
                             wxTE_MULTILINE | wxTE_BESTWRAP);
  box->SetMinSize({-1, kMemoLines * box->GetCharHeight() + m_panel.FromDIP(12)});
  ui::KeepScrollBars(*box);
  ui::LeadAccessKeyTo(*box, *box);
  ui::SetTextMargins(*box);
  AddRow(*box, name, caption, Width::Full);
  m_rows->AddGrowableRow(m_rows->GetItemCount() / 2 - 1);
  return *box;
}

wxSpinCtrl& FieldSheet::AddNumber(std::string_view name, std::string_view caption, int last) {
  AddLabel(caption);
  auto* box = new wxSpinCtrl(&m_panel, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                             wxSP_ARROW_KEYS | wxTE_PROCESS_ENTER, 0, last);
  // A user who scrolls over the box on the way must not change what it shows.
  box->Bind(wxEVT_MOUSEWHEEL, [box](wxMouseEvent& event) { event.Skip(box->HasFocus()); });
  AddRow(*box, name, caption, Width::Narrow);
  return *box;
}

SearchCombo& FieldSheet::AddCombo(std::string_view name, std::string_view caption) {
  AddLabel(caption);
  auto* box = new SearchCombo(m_panel, name, WithoutMark(caption));
  AddRow(*box, name, caption, Width::Narrow);
  return *box;
}

wxCheckBox& FieldSheet::AddCheck(std::string_view name, std::string_view caption) {
  m_rows->AddSpacer(0);
  auto* box = new wxCheckBox(&m_panel, wxID_ANY, ui::ToWx(caption));
  AddRow(*box, name, caption, Width::Narrow);
  return *box;
}

wxSizerItem& FieldSheet::AddLabel(std::string_view caption) {
  return *m_rows->Add(new wxStaticText(&m_panel, wxID_ANY, ui::ToWx(caption)),
                      wxSizerFlags().CentreVertical().Border(0, m_panel.FromDIP(6)));
}

void FieldSheet::AddRow(wxWindow& control, std::string_view name, std::string_view caption, Width width) {
  control.SetName(ui::ToWx(name));
  ui::SetAccessibleName(control, WithoutMark(caption));
  m_rows->Add(&control, width == Width::Full ? wxSizerFlags().Expand() : wxSizerFlags());
}

}  // namespace quorvel
