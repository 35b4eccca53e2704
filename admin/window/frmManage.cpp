// The window binds each event to one operation of Administration. Before an operation that may show another record it
// writes the texts that the user has changed, because the managers then fill the boxes again.

#include "admin/window/frmManage.h"

#include <algorithm>
#include <exception>
#include <utility>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "admin/window/Panels.h"
#include "admin/window/SearchCombo.h"
#include "admin/window/TabPanels.h"
#include "admin/window/ViewBar.h"
#include "admin/window/frmNewContext.h"
#include "data/modControls.h"
#include "grid/DataGrid.h"
#include "platform/AtScopeEnd.h"
#include "platform/wx/Desktop.h"
#include "platform/wx/MakeButton.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"
#include "runtime/EditBehavior.h"

namespace quorvel {
namespace {

constexpr int kFirstWidth = 860;
constexpr int kFirstHeight = 600;

}  // namespace

frmManage::frmManage()
    : ModalDialog({}, ui::FailurePolicy::ShowAndStay),
      m_administration(*this, m_controls.Faces(*this)),
      m_texts(m_administration, m_controls) {
  SetWindowStyleFlag(GetWindowStyleFlag() | wxMINIMIZE_BOX);
  MakeControls();
  LayOut();
  FillEditBehavior();
  BindHandlers();
}

void frmManage::MakeControls() {
  bbViews = new ViewBar(*this);
  picView = new wxStaticBitmap(this, wxID_ANY, wxBitmapBundle());
  lblView = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0, "lblView");
  lblView->SetFont(lblView->GetFont().Bold().Scaled(1.4F));
}

void frmManage::LayOut() {
  const int gap = FromDIP(8);
  auto* heading = new wxBoxSizer(wxHORIZONTAL);
  heading->Add(picView, wxSizerFlags().CentreVertical().Border(wxRIGHT, gap));
  heading->Add(lblView, wxSizerFlags().CentreVertical());

  auto* record = new wxBoxSizer(wxHORIZONTAL);
  record->Add(new wxStaticText(this, wxID_ANY, "&ID"), wxSizerFlags().CentreVertical().Border(wxRIGHT, gap));
  auto* cboID = new SearchCombo(*this, "cboID", "ID");
  m_controls.cboID.Attach(*cboID);
  record->Add(cboID, wxSizerFlags(1).CentreVertical());
  cmdNew = ui::MakeButton(*this, "cmdNew", "&New");
  cmdDelete = ui::MakeButton(*this, "cmdDelete", "&Delete");
  record->Add(cmdNew, wxSizerFlags().CentreVertical().Border(wxLEFT, gap));
  record->Add(cmdDelete, wxSizerFlags().CentreVertical().Border(wxLEFT, gap));

  tabPanels = new TabPanels(*this);
  MakePanels(*tabPanels, m_controls);

  auto* right = new wxBoxSizer(wxVERTICAL);
  right->Add(heading, wxSizerFlags().Border(wxBOTTOM, gap));
  right->Add(record, wxSizerFlags().Expand().Border(wxBOTTOM, gap));
  right->Add(tabPanels, wxSizerFlags(1).Expand());
  auto* content = new wxBoxSizer(wxHORIZONTAL);
  content->Add(bbViews, wxSizerFlags().Border(wxALL, gap));
  content->Add(right, wxSizerFlags(1).Expand().Border(wxTOP | wxRIGHT | wxBOTTOM, gap));
  SetSizer(content);
  SetSmallestInside(content->GetMinSize());
  wxSize size = FromDIP(wxSize(kFirstWidth, kFirstHeight));
  size.IncTo(content->GetMinSize());
  SetClientSize(size);
  CentreOnScreen();
}

void frmManage::FillEditBehavior() {
  for (const auto& [text, behavior] : {std::pair("AutoSave", EditBehavior::AutoSaveOnClose),
                                       {"NoAutoSave", EditBehavior::NoAutoSave},
                                       {"PromptSave", EditBehavior::PromptForSave}}) {
    m_controls.cboEditBehavior.Add(text, static_cast<std::int32_t>(behavior));
  }
}

// The user picks a record first. The toolkit would begin in a text box, and the next keys would change its text.
void frmManage::RunModal() {
  ModalDialog::RunModal([this] { m_controls.cboID.Box().SetFocus(); });
}

void frmManage::ShowModeless() {
  m_life.emplace();
  Show();
  Raise();
  m_controls.cboID.Box().SetFocus();
}

void frmManage::SetTitle(std::string_view title) { SetTitle(ui::ToWx(title)); }

void frmManage::SelectButton(std::string_view view) { bbViews->Select(view); }

void frmManage::ShowPanels(std::string_view view, std::string_view caption) {
  wxWindow* const focus = wxWindow::FindFocus();
  picView->SetBitmap(ViewBar::Picture(view));
  lblView->SetLabelText(ui::ToWx(caption));
  tabPanels->ShowView(view);
  Layout();
  KeepOutOfTexts(focus);
}

void frmManage::SelectTab(std::string_view key) {
  wxWindow* const focus = wxWindow::FindFocus();
  tabPanels->SelectTab(key);
  KeepOutOfTexts(focus);
}

// Some desktops give the focus to a text of the tab that comes up, and what the user types next would change it.
void frmManage::KeepOutOfTexts(wxWindow* focus) {
  if (!IsShown()) return;
  const bool wasInTabs = focus == nullptr || tabPanels->IsDescendant(focus);
  (wasInTabs ? &m_controls.cboID.Box() : focus)->SetFocus();
}

std::string frmManage::SelectedTab() const { return tabPanels->SelectedTab(); }

NewItem frmManage::AskForContext() {
  const ui::VisualStyles styles;
  frmNewContext dialog;
  dialog.SetUpForContext();
  return dialog.Ask();
}

NewItem frmManage::AskForRemarkType() {
  const ui::VisualStyles styles;
  frmNewContext dialog;
  dialog.SetUpForRemarkType();
  return dialog.Ask();
}

void frmManage::BindHandlers() {
  BindRecords();
  BindTexts();
  BindRowHeight();
  BindFields();
  for (std::size_t i = 0; i < m_controls.lstCurrent.size(); ++i) BindPair(i);
  for (BoundGrid& grid : m_controls.grdForm) {
    grid.Grid().Failed = [this](std::exception_ptr failure) { HandleFailure(std::move(failure)); };
  }
  Bind(wxEVT_CHAR_HOOK, UserAction([this](wxKeyEvent& event) { KeyPressed(event); }));
  Bind(wxEVT_CLOSE_WINDOW, Guarded([this](wxCloseEvent& event) { CloseWindow(event); }));
}

void frmManage::BindRecords() {
  bbViews->Chosen = [this](std::string_view view) { Guard([&] { bbViews_Click(view); }); };
  tabPanels->Leaving = [this] {
    bool leaves = false;
    Guard([&] { AfterTexts([&] { leaves = true; }); });
    return leaves;
  };
  tabPanels->Clicked = [this] { Guard([this] { m_administration.ClickTab(); }); };
  m_controls.cboID.Box().Bind(wxEVT_COMBOBOX, UserAction([this] { cboID_Click(); }));
  const auto click = [this](void (Administration::*operation)()) {
    return UserAction([this, operation] { AfterTexts([&] { (m_administration.*operation)(); }); });
  };
  cmdNew->Bind(wxEVT_BUTTON, UserAction([this] { AfterTexts([this] { cmdNew_Click(); }); }));
  cmdDelete->Bind(wxEVT_BUTTON, UserAction([this] { AfterTexts([this] { cmdDelete_Click(); }); }));
  m_controls.cmdUp.Button().Bind(wxEVT_BUTTON, click(&Administration::ClickUp));
  m_controls.cmdDown.Button().Bind(wxEVT_BUTTON, click(&Administration::ClickDown));
}

void frmManage::bbViews_Click(std::string_view view) {
  AfterTexts([&] { m_administration.ClickView(view); });
  bbViews->Select(m_administration.CurrentView());
}

// The user goes on with the texts of the new record. When there is none, the next keys must not change another's.
void frmManage::cmdNew_Click() {
  const std::int32_t former = m_texts.ShownKey();
  m_administration.ClickNew();
  if (m_texts.ShownKey() == former || m_administration.IsBusy()) return;
  const auto first = std::ranges::find(m_controls.typed, m_administration.CurrentView(), &TypedField::view);
  if (first != m_controls.typed.end()) first->text->Box().SetFocus();
}

// The next keys must not change or delete the record that is shown now.
void frmManage::cmdDelete_Click() {
  const std::int32_t former = m_texts.ShownKey();
  m_administration.ClickDelete();
  if (m_texts.ShownKey() != former) m_controls.cboID.Box().SetFocus();
}

void frmManage::cboID_Click() {
  bool isPicked = false;
  AfterTexts([&] {
    m_administration.ClickID();
    isPicked = true;
  });
  if (!isPicked) m_controls.cboID.SetListIndex(m_shownID);
}

// A message box must not open while the focus moves, so a box that was left is written a moment later.
void frmManage::BindTexts() {
  for (const TypedField& field : m_controls.typed) {
    wxTextCtrl& box = field.text->Box();
    const auto commit = UserAction([this, &field] { m_texts.Commit(field); });
    box.Bind(wxEVT_KILL_FOCUS, UserAction([this, &field](wxFocusEvent& event) {
               event.Skip();
               CallAfter([this, &field] { Guard([&] { m_texts.Commit(field); }); });
             }));
    if (!box.IsMultiLine()) box.Bind(wxEVT_TEXT_ENTER, commit);
  }
}

void frmManage::BindRowHeight() {
  wxSpinCtrl& box = m_controls.udRowHeight.Box();
  box.Bind(wxEVT_SPINCTRL, UserAction([this] { m_texts.CommitRowHeight(); }));
  box.Bind(wxEVT_TEXT_ENTER, UserAction([this] { m_texts.CommitRowHeight(); }));
  box.Bind(wxEVT_KILL_FOCUS, UserAction([this](wxFocusEvent& event) {
             event.Skip();
             CallAfter([this] { Guard([this] { m_texts.CommitRowHeight(); }); });
           }));
}

void frmManage::BindFields() {
  for (std::size_t i = 0; i < m_controls.chkRight.size(); ++i) {
    BindField(m_controls.chkRight.at(i), "chkRight" + std::to_string(i));
  }
  BindField(m_controls.chkUserActive, "Active");
  BindField(m_controls.chkGroupByType, "chkGroupByType");
  BindField(m_controls.chkAllowRowSizing, "chkAllowRowSizing");
  BindField(m_controls.cboBranch, "Branch");
  BindField(m_controls.cboEditBehavior, "EditBehavior");
}

void frmManage::BindField(BoundCheck& check, std::string field) {
  check.Box().Bind(wxEVT_CHECKBOX, UserAction([this, field = std::move(field)] { m_texts.ClickField(field); }));
}

void frmManage::BindField(BoundCombo& combo, std::string field) {
  combo.Box().Bind(wxEVT_COMBOBOX, UserAction([this, field = std::move(field)] { m_texts.ClickField(field); }));
}

void frmManage::BindPair(std::size_t i) {
  wxListBox& current = m_controls.lstCurrent.at(i).Box();
  wxListBox& remaining = m_controls.lstRemaining.at(i).Box();
  current.Bind(wxEVT_LISTBOX, UserAction([this, i] {
                 m_isAdded.at(i) = false;
                 ChooseAfterError(m_controls.lstCurrent.at(i));
                 m_administration.SelectCurrent(i);
               }));
  remaining.Bind(wxEVT_LISTBOX, UserAction([this, i] {
                   ChooseAfterError(m_controls.lstRemaining.at(i));
                   m_administration.SelectRemaining(i);
                 }));
  current.Bind(wxEVT_KILL_FOCUS, UserAction([this, i](wxFocusEvent& event) {
                 event.Skip();
                 m_administration.LeaveCurrent(i);
               }));
  remaining.Bind(wxEVT_KILL_FOCUS, UserAction([this, i](wxFocusEvent& event) {
                   event.Skip();
                   m_administration.LeaveRemaining(i);
                 }));
  BindMoves(i);
}

// An entry that was just added is selected already, so a click on it selects nothing. The user who comes to it by mouse
// or key wants to see its link.
void frmManage::BindMoves(std::size_t i) {
  wxListBox& current = m_controls.lstCurrent.at(i).Box();
  const auto showAdded = [this, i](auto& event) {
    event.Skip();
    CallAfter([this, i] { Guard([&] { ShowAddedLink(i); }); });
  };
  current.Bind(wxEVT_SET_FOCUS, showAdded);
  current.Bind(wxEVT_LEFT_UP, showAdded);
  // A user who presses Enter or Space in a list means no move.
  current.Bind(wxEVT_LISTBOX_DCLICK, UserAction([this, i] {
                 if (!ui::IsCausedByKey()) m_administration.ClickRemove(i);
               }));
  m_controls.lstRemaining.at(i).Box().Bind(wxEVT_LISTBOX_DCLICK, UserAction([this, i] {
                                             if (!ui::IsCausedByKey()) AddToCurrent(i);
                                           }));
  m_controls.cmdAdd.at(i).Button().Bind(wxEVT_BUTTON, UserAction([this, i] { AddToCurrent(i); }));
  m_controls.cmdRemove.at(i).Button().Bind(wxEVT_BUTTON, UserAction([this, i] { m_administration.ClickRemove(i); }));
}

void frmManage::AddToCurrent(std::size_t i) {
  m_isAdded.at(i) = true;
  m_administration.ClickAdd(i);
}

void frmManage::ShowAddedLink(std::size_t i) {
  if (m_isAdded.at(i)) m_administration.SelectCurrent(i);
  m_isAdded.at(i) = false;
}

void frmManage::KeyPressed(wxKeyEvent& event) {
  const bool isEscape = event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers();
  if (isEscape && m_texts.UndoFocused()) return;
  if (!bbViews->TakeKey(event) && !tabPanels->TakeKey(event)) event.Skip();
}

void frmManage::CloseWindow(wxCloseEvent& event) {
  if (m_texts.IsCommitting()) return event.Veto();  // the message box of a failed write is open
  if (!m_texts.CommitBeforeClosing() && event.CanVeto()) return event.Veto();
  if (IsModal()) {
    EndModal(wxID_CANCEL);
  } else {
    Destroy();
  }
}

void frmManage::ChooseAfterError(BoundList& list) {
  if (list.ListIndex() < 0) return;
  const std::int32_t key = list.Datum(list.ListIndex());
  if (m_texts.LeaveBusyAfterError()) modControls::SelectByKey(list, key, false);
}

template <typename Action>
void frmManage::AfterTexts(const Action& action) {
  if (m_texts.IsCommitting()) return;
  m_texts.Commit();
  if (m_texts.HasUnwritten()) return;
  action();
  m_shownID = m_controls.cboID.ListIndex();
}

}  // namespace quorvel
