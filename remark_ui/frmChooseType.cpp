#include "remark_ui/frmChooseType.h"

#include <vector>

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>

#include "platform/wx/MakeButton.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"
#include "remark_ui/CreatableTypes.h"
#include "runtime/RemarkContext.h"

namespace quorvel {

frmChooseType::frmChooseType() : ModalDialog("Choose Remark Type") {
  lstRemarkType = new wxListBox(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                                wxLB_SINGLE | wxLB_HSCROLL, wxDefaultValidator, "lstRemarkType");
  lstRemarkType->SetMinSize(wxSize(GetCharWidth() * 40, GetCharHeight() * 12));
  ui::SetAccessibleName(*lstRemarkType, "Remark type");
  ui::ShowFocus(*lstRemarkType);
  m_search.Attach(*lstRemarkType);
  cmdOK = ui::MakeButton(*this, "cmdOK", "OK");
  cmdCancel = ui::MakeButton(*this, "cmdCancel", "Cancel");
  cmdOK->SetDefault();
  LayOut();
  BindHandlers();
}

void frmChooseType::LayOut() {
  const int gap = FromDIP(8);
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->Add(cmdOK, wxSizerFlags().Border(wxRIGHT, gap));
  buttons->Add(cmdCancel);
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(lstRemarkType, wxSizerFlags(1).Expand().Border(wxALL, gap));
  content->Add(buttons, wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  SetSizerAndFit(content);
  CentreOnScreen();
}

void frmChooseType::BindHandlers() {
  const auto choose = UserAction([this] { cmdOK_Click(); });
  cmdOK->Bind(wxEVT_BUTTON, choose);
  lstRemarkType->Bind(wxEVT_LISTBOX_DCLICK, choose);
  cmdCancel->Bind(wxEVT_BUTTON, UserAction([this] { Finish(); }));
  lstRemarkType->Bind(wxEVT_LISTBOX, Guarded([this] { cmdOK->Enable(lstRemarkType->GetSelection() != wxNOT_FOUND); }));
}

std::shared_ptr<RemarkType> frmChooseType::ChooseType(const RemarkContext& context, std::int32_t& index) {
  index = -1;
  const std::vector<TypeChoice> choices = CreatableTypes(context);
  if (choices.empty()) return nullptr;
  std::size_t chosen = 0;
  if (choices.size() > 1) {
    lstRemarkType->Clear();
    for (const TypeChoice& choice : choices) lstRemarkType->Append(ui::ToWx(choice.caption));
    lstRemarkType->SetSelection(0);
    cmdOK->Enable();
    lstRemarkType->SetFocus();
    m_cancelled = true;  // unless OK closes the window
    RunModal();
    if (m_cancelled) return nullptr;
    chosen = static_cast<std::size_t>(lstRemarkType->GetSelection());
  }
  index = choices[chosen].position;
  return context.Item(std::int64_t{index});
}

void frmChooseType::cmdOK_Click() {
  if (lstRemarkType->GetSelection() == wxNOT_FOUND) return;
  m_cancelled = false;
  Finish();
}

}  // namespace quorvel
