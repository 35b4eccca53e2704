#include "admin/window/frmNewContext.h"

#include <utility>

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "admin/window/SearchCombo.h"
#include "data/modControls.h"
#include "data/modRecordsets.h"
#include "platform/CurrentPrompts.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/wx/MakeButton.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

constexpr int kLongestID = 30;
constexpr std::int32_t kOnlyEntity = 1;  // after "<none>"
constexpr int kSmallestWidth = 320;      // for the title and its buttons

}  // namespace

frmNewContext::frmNewContext() : ModalDialog({}) {
  lblContextID = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0, "lblContextID");
  txtContextID = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator,
                                "txtContextID");
  txtContextID->SetMaxLength(kLongestID);
  lblEntityType = new wxStaticText(this, wxID_ANY, "Remark &Entity");
  cboEntityType = new SearchCombo(*this, "cboEntityType", "Remark Entity");
  m_entities.Attach(*cboEntityType);
  cmdCreate = ui::MakeButton(*this, "cmdCreate", "&Create");
  cmdCancel = ui::MakeButton(*this, "cmdCancel", "Cancel");
  cmdCreate->SetDefault();
  LayOut();
  BindHandlers();
}

void frmNewContext::LayOut() {
  const int gap = FromDIP(8);
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->Add(cmdCreate, wxSizerFlags().Border(wxRIGHT, gap));
  buttons->Add(cmdCancel);
  auto* content = new wxBoxSizer(wxVERTICAL);
  const auto add = [&](wxWindow* label, wxWindow* control) {
    content->Add(label, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
    content->Add(control, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  };
  add(lblContextID, txtContextID);
  add(lblEntityType, cboEntityType);
  content->AddStretchSpacer();
  content->Add(buttons, wxSizerFlags().Right().Border(wxALL, gap));
  content->SetMinSize(FromDIP(wxSize(kSmallestWidth, -1)));
  SetSizer(content);
}

void frmNewContext::BindHandlers() {
  cmdCreate->Bind(wxEVT_BUTTON, UserAction([this] { cmdCreate_Click(); }));
  cmdCancel->Bind(wxEVT_BUTTON, UserAction([this] { Finish(); }));
}

void frmNewContext::SetUpForContext() {
  SetTitle("Create New Context");
  lblContextID->SetLabel("Please Enter New Context &ID");
}

void frmNewContext::SetUpForRemarkType() {
  SetTitle("Create New Remark Type");
  lblContextID->SetLabel("Please Enter New Remark Type &ID");
}

NewItem frmNewContext::Ask() {
  ui::SetAccessibleName(*txtContextID, ui::FromWx(lblContextID->GetLabelText()));
  Fill();
  GetSizer()->SetSizeHints(this);
  CentreOnScreen();
  txtContextID->SetFocus();
  m_answer = {};  // unless Create closes the dialog
  RunModal();
  return std::exchange(m_answer, {});
}

void frmNewContext::Fill() {
  modRecordsets::InitGlobalRecordsets();
  const auto& entities = modRecordsets::RemarkEntities();
  if (!entities) ThrowObjectNotSet();
  modControls::FillCombo(m_entities, entities->RecordCount(), "RemarkEntityID", "RemarkEntityKey", entities);
  m_entities.SetListIndex(m_entities.Count() == kOnlyEntity + 1 ? kOnlyEntity : 0);
}

void frmNewContext::cmdCreate_Click() {
  const std::string id = ui::FromWx(txtContextID->GetValue());
  if (TrimBlanks(id).empty()) return Refuse("Please enter new ID first. ", "Enter New ID", *txtContextID);
  const std::int32_t entity = m_entities.ListIndex();
  if (entity < kOnlyEntity) return Refuse("Please choose an entity first.", "Choose Entity", *cboEntityType);
  m_answer = {std::string(TrimBlanks(id)), m_entities.Datum(entity)};
  Finish();
}

void frmNewContext::Refuse(const char* text, const char* title, wxWindow& control) {
  CurrentPrompts().ShowMessage(text, title, PromptButtons::Ok, PromptIcon::Exclamation);
  control.SetFocus();
}

}  // namespace quorvel
