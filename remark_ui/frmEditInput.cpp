#include "remark_ui/frmEdit.h"

#include <exception>
#include <utility>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/event.h>
#include <wx/textctrl.h>

#include "data/modWaitCursor.h"
#include "grid/DataGrid.h"
#include "remark_ui/frmChooseType.h"
#include "runtime/RemarkContext.h"

namespace quorvel {

void frmEdit::BindHandlers() {
  BindGrid();
  cmdNew->Bind(wxEVT_BUTTON, UserAction([this] { cmdNew_Click(); }));
  cmdSave->Bind(wxEVT_BUTTON, UserAction([this] { cmdSave_Click(); }));
  cmdDelete->Bind(wxEVT_BUTTON, UserAction([this] { cmdDelete_Click(); }));
  cmdClose->Bind(wxEVT_BUTTON, UserAction([this] { cmdClose_Click(); }));
  m_frame->cboRemarkType->Bind(wxEVT_CHOICE, UserAction([this] { cboRemarkType_Click(); }));
  m_frame->txtRemark->Bind(wxEVT_TEXT, Guarded([this] {
                             m_edited.TextEdited();
                             EnableControls(m_edited.Display());
                           }));
  Bind(wxEVT_CHAR_HOOK, UserAction([this](wxKeyEvent& event) { KeyPressed(event); }));
}

void frmEdit::BindGrid() {
  gdxMemos->CurrentLineChanged = [this] { gdxMemos_RowChange(); };
  gdxMemos->Failed = [this](std::exception_ptr failure) { Guard([&] { std::rethrow_exception(failure); }); };
}

void frmEdit::Display() {
  const RemarkDisplay& display = m_edited.Display();
  m_frame->Show(display);
  EnableControls(display);
}

void frmEdit::EnableControls(const RemarkDisplay& display) {
  const wxWindow* const focus = FindFocus();
  // Some desktops do not tell that a list of types has the focus: nothing seems to have it then.
  const wxWindow* const unnamed = m_frame->cboRemarkType;
  bool isFocusLost = false;
  const auto enable = [&](wxWindow& control, bool isEnabled) {
    const bool hasFocus = focus == &control || (focus == nullptr && unnamed == &control);
    if (control.Enable(isEnabled) && !isEnabled && hasFocus) isFocusLost = true;
  };
  enable(*m_frame->cboRemarkType, display.canChooseType);
  enable(*cmdSave, display.canSave);
  enable(*cmdDelete, display.canDelete);
  // A control that is disabled under the user's hands would take the keyboard with it.
  if (isFocusLost) gdxMemos->SetFocus();
}

void frmEdit::CommitPending() {
  const auto outcome = m_edited.CommitPending(m_frame->Input());
  if (outcome == EditedRemark::Outcome::Nothing) return;
  if (outcome == EditedRemark::Outcome::Changed) RefreshRows(m_edited.Position(), 0);
  ShowSelected();
}

void frmEdit::cmdNew_Click() {
  CommitPending();
  std::int32_t position = -1;
  frmChooseType chooser;
  auto type = chooser.ChooseType(*m_context, position);
  if (!type) return;
  m_edited.ShowNew(std::move(type), position);
  Display();
  m_frame->txtRemark->SetFocus();
}

void frmEdit::cmdSave_Click() {
  const auto outcome = m_edited.Save(m_frame->Input());
  if (outcome == EditedRemark::Outcome::Nothing) {
    m_frame->txtRemark->SetFocus();
    return;
  }
  if (outcome == EditedRemark::Outcome::Changed) RefreshRows(m_edited.Position(), 0);
  ShowSelected();
}

void frmEdit::cmdDelete_Click() {
  m_edited.CommitPending(m_frame->Input());
  m_edited.Remove();
  RefreshRows(0, 0);
  ShowSelected();
  gdxMemos->SetFocus();
}

void frmEdit::cmdClose_Click() {
  modWaitCursor::ResetWait();
  m_edited.CommitPending(m_frame->Input());
  m_context->Save(false);
  Finish();
}

// The commit puts the rows in order anew; the user's way to the next row goes on from there.
void frmEdit::gdxMemos_RowChange() {
  if (m_loading || !m_context) return;
  const std::int32_t line = gdxMemos->CurrentLine();
  const std::int32_t rowIndex = gdxMemos->RowIndex(line);
  if (m_edited.CommitPending(m_frame->Input()) == EditedRemark::Outcome::Changed) RefreshRows(rowIndex, line);
  ShowSelected();
}

void frmEdit::cboRemarkType_Click() {
  const auto type = m_frame->SelectedType();
  if (m_loading || !type) return;
  m_edited.TypeChosen(*type);
  EnableControls(m_edited.Display());
}

void frmEdit::KeyPressed(wxKeyEvent& event) {
  const bool isEnter = event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER;
  if (isEnter && event.GetModifiers() == wxMOD_CONTROL && cmdSave->IsEnabled()) {
    cmdSave_Click();
  } else {
    event.Skip();
  }
}

}  // namespace quorvel
