#include "admin/window/ListPairPanel.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include "admin/window/EntryListBox.h"
#include "platform/wx/MakeButton.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

constexpr int kListCharacters = 14;
constexpr int kListLines = 8;
// Before its first layout a list needs room for its scroll bars, or GTK complains to the host's error output.
const wxSize kFirstListSize(200, 100);

}  // namespace

ListPairPanel::ListPairPanel(wxWindow& panel, const std::string& member, const Captions& captions)
    : m_panel(panel), m_content(new wxBoxSizer(wxVERTICAL)) {
  auto* remaining = new wxBoxSizer(wxVERTICAL);
  auto* moves = new wxBoxSizer(wxVERTICAL);
  auto* current = new wxBoxSizer(wxVERTICAL);
  lstRemaining = AddList(*remaining, "lstRemaining" + member, captions.remaining);
  moves->AddStretchSpacer();
  cmdAdd = AddMove(*moves, "cmdAdd" + member, "&Add >");
  cmdRemove = AddMove(*moves, "cmdRemove" + member, "< Remo&ve");
  moves->AddStretchSpacer();
  lstCurrent = AddList(*current, "lstCurrent" + member, captions.current);

  auto* lists = new wxBoxSizer(wxHORIZONTAL);
  lists->Add(remaining, wxSizerFlags(1).Expand());
  lists->Add(moves, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, panel.FromDIP(12)));
  lists->Add(current, wxSizerFlags(1).Expand());
  m_content->Add(lists, wxSizerFlags(1).Expand());
  auto* border = new wxBoxSizer(wxVERTICAL);
  border->Add(m_content, wxSizerFlags(1).Expand().Border(wxALL, panel.FromDIP(12)));
  panel.SetSizer(border);
}

wxListBox* ListPairPanel::AddList(wxSizer& column, const std::string& name, std::string_view caption) {
  column.Add(new wxStaticText(&m_panel, wxID_ANY, ui::ToWx(caption)),
             wxSizerFlags().Border(wxBOTTOM, m_panel.FromDIP(4)));
  auto* list = new EntryListBox(&m_panel, wxID_ANY, wxDefaultPosition, m_panel.FromDIP(kFirstListSize), 0, nullptr,
                                wxLB_SINGLE, wxDefaultValidator, ui::ToWx(name));
  list->SetMinSize({kListCharacters * list->GetCharWidth(), kListLines * list->GetCharHeight()});
  ui::SetAccessibleName(*list, ui::FromWx(wxControl::RemoveMnemonics(ui::ToWx(caption))));
  ui::KeepScrollBars(*list);
  ui::ShowFocus(*list);
  ui::LeadAccessKeyTo(*list, *list);
  ui::ExpectManyItems(*list);
  column.Add(list, wxSizerFlags(1).Expand());
  return list;
}

wxButton* ListPairPanel::AddMove(wxSizer& column, const std::string& name, std::string_view caption) {
  wxButton* button = ui::MakeButton(m_panel, name, caption);
  column.Add(button, wxSizerFlags().Expand().Border(wxBOTTOM, m_panel.FromDIP(8)));
  return button;
}

// The controls in the frame are children of the panel: on Windows a frame would not pass on the access keys that are
// pressed in it.
void ListPairPanel::AddFrame(std::string_view caption) {
  m_frame = new wxStaticBoxSizer(wxHORIZONTAL, &m_panel, ui::ToWx(caption));
  m_content->Add(m_frame, wxSizerFlags().Expand().Border(wxTOP, m_panel.FromDIP(8)));
}

wxCheckBox& ListPairPanel::AddCheck(std::string_view name, std::string_view caption) {
  auto* box = new wxCheckBox(&m_panel, wxID_ANY, ui::ToWx(caption), wxDefaultPosition, wxDefaultSize, 0,
                             wxDefaultValidator, ui::ToWx(name));
  m_frame->Add(box, wxSizerFlags().CentreVertical().Border(wxALL, m_panel.FromDIP(6)));
  return *box;
}

wxButton& ListPairPanel::AddButton(std::string_view name, std::string_view caption) {
  wxButton* button = ui::MakeButton(m_panel, name, caption);
  m_frame->Add(button, wxSizerFlags().CentreVertical().Border(wxALL, m_panel.FromDIP(6)));
  return *button;
}

}  // namespace quorvel
