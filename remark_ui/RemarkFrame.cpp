#include "remark_ui/RemarkFrame.h"

#include <wx/arrstr.h>
#include <wx/choice.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"
#include "platform/wx/Twips.h"

namespace quorvel {
namespace {

constexpr int kPadding = 75;
constexpr int kTypeWidth = 2100;
constexpr int kTextLines = 4;

}  // namespace

// The list of types is beside the text, not above it, because a remark needs the lines. The controls in the frame are
// children of the window: on Windows a frame would not pass on the access keys that are pressed in it.
RemarkFrame::RemarkFrame(wxWindow& parent, const ui::TwipScale& scale)
    : fmViewRemark(new wxStaticBox(&parent, wxID_ANY, "View/Edit Remark")),
      Label2(new wxStaticText(&parent, wxID_ANY, "Type Change")),
      cboRemarkType(new wxChoice(&parent, wxID_ANY)),
      lblStamp(new wxStaticText(&parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE)),
      txtRemark(new wxTextCtrl(&parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                               wxTE_MULTILINE | wxTE_BESTWRAP)),
      m_undo(*txtRemark) {
  fmViewRemark->SetName("fmViewRemark");
  Label2->SetName("Label2");
  cboRemarkType->SetName("cboRemarkType");
  lblStamp->SetName("lblStamp");
  txtRemark->SetName("txtRemark");
  ui::SetAccessibleName(*cboRemarkType, "Type Change");
  ui::SetAccessibleName(*txtRemark, "Remark");
  ui::KeepScrollBars(*txtRemark);
  ui::HoldScrollBar(*txtRemark);
  ui::ShowFocus(*txtRemark);
  ui::ShowFocus(*cboRemarkType);
  ui::SetTextMargins(*txtRemark);
  // A user who scrolls over the closed list on the way must not change the remark's type.
  cboRemarkType->Bind(wxEVT_MOUSEWHEEL, [](wxMouseEvent&) {});
  // An empty list is lower than one that shows a type, and the layout does not change with the remark.
  cboRemarkType->Append(Label2->GetLabel());
  cboRemarkType->SetSelection(0);
  cboRemarkType->SetMinSize({scale.ToPixels(kTypeWidth), cboRemarkType->GetBestSize().GetHeight()});
  cboRemarkType->Clear();
  txtRemark->SetMinSize({-1, kTextLines * txtRemark->GetCharHeight()});

  const int padding = scale.ToPixels(kPadding);
  auto* type = new wxBoxSizer(wxVERTICAL);
  type->Add(Label2, wxSizerFlags().Border(wxBOTTOM, padding / 2));
  type->Add(cboRemarkType, wxSizerFlags().Expand());
  // Beside the label of the types, so that the text begins beside the list of types.
  auto* text = new wxBoxSizer(wxVERTICAL);
  text->Add(lblStamp, wxSizerFlags().Expand().Border(wxBOTTOM, padding / 2));
  text->Add(txtRemark, wxSizerFlags(1).Expand());
  auto* frame = new wxStaticBoxSizer(fmViewRemark, wxHORIZONTAL);
  frame->Add(type, wxSizerFlags().Border(wxALL, padding));
  frame->Add(text, wxSizerFlags(1).Expand().Border(wxTOP | wxRIGHT | wxBOTTOM, padding));
  m_sizer = frame;
}

void RemarkFrame::Show(const RemarkDisplay& display) {
  ShowText(display);
  ShowTypes(display);
  fmViewRemark->SetLabel(ui::ToWx(display.caption));
  lblStamp->SetLabelText(ui::ToWx(display.stamp));
}

void RemarkFrame::ShowText(const RemarkDisplay& display) {
  const wxString text = ui::ToWx(display.text);
  const bool isOtherText = txtRemark->GetValue() != text;
  if (isOtherText) {
    txtRemark->ChangeValue(text);
    txtRemark->SetInsertionPoint(0);
    txtRemark->ShowPosition(0);
  }
  // Also a remark with the same text must not get an earlier text of the one before.
  if (isOtherText || display.remark != m_shown) m_undo.Forget();
  m_shown = display.remark;
  m_filledText = txtRemark->GetValue();
  txtRemark->SetEditable(!display.isLocked);
  // Some desktops draw a locked box like any other.
  txtRemark->SetBackgroundColour(display.isLocked ? wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE) : wxNullColour);
  // The colour also becomes that of the text, which would keep it when the box gets its own colour back.
  txtRemark->SetDefaultStyle({});
}

void RemarkFrame::ShowTypes(const RemarkDisplay& display) {
  const int selected = display.selectedType ? static_cast<int>(*display.selectedType) : wxNOT_FOUND;
  // Filling a list that is open would take it from the user.
  if (display.types == m_types && cboRemarkType->GetSelection() == selected) return;
  m_types = display.types;
  wxArrayString captions;
  for (const TypeChoice& choice : m_types) captions.Add(ui::ToWx(choice.caption));
  cboRemarkType->Set(captions);
  cboRemarkType->SetSelection(selected);
}

std::optional<TypeChoice> RemarkFrame::SelectedType() const {
  const int selected = cboRemarkType->GetSelection();
  if (selected == wxNOT_FOUND) return std::nullopt;
  return m_types.at(static_cast<std::size_t>(selected));
}

RemarkInput RemarkFrame::Input() const {
  const wxString text = txtRemark->GetValue();
  return {ui::FromWx(text), text != m_filledText, SelectedType()};
}

}  // namespace quorvel
