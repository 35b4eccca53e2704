// The window binds each control to an action of EditSession, which exists while the window is open. The window itself
// only places the controls and passes errors on.

#include "remark_ui/frmEdit.h"

#include <exception>
#include <utility>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/gdicmn.h>
#include <wx/textctrl.h>

#include "data/modWaitCursor.h"
#include "grid/DataGrid.h"
#include "platform/AtScopeEnd.h"
#include "platform/wx/Text.h"
#include "remark_ui/OwnerTitle.h"
#include "runtime/RemarkContext.h"

namespace quorvel {
namespace {

constexpr ui::TwipSize kFirstEditorSize{10800, 7800};

}  // namespace

frmEdit::frmEdit() : ModalDialog("View Customer Comments") {
  m_controls.emplace(*this, Scale());
  BindHandlers();
  SetClientSize(Scale().ClientSizeFor(kFirstEditorSize));
}

/// Measured and placed each time, because screen and font may have changed; the user's size of the window is kept.
void frmEdit::FitScreen() {
  m_sizes = m_controls->Measure(Scale());
  m_sizes.screen = Room();
  SetSmallestInside(Scale().ClientSizeFor(SmallestEditor(m_sizes)));
  PlaceInMiddle(GetClientSize());
  Layout();
}

void frmEdit::BindHandlers() {
  const auto action = [this](void (EditSession::*act)()) {
    return UserAction([this, act] {
      if (m_session) ((*m_session).*act)();
    });
  };
  EditControls& controls = *m_controls;
  controls.cmdNew->Bind(wxEVT_BUTTON, action(&EditSession::New));
  controls.cmdSave->Bind(wxEVT_BUTTON, action(&EditSession::Save));
  controls.cmdDelete->Bind(wxEVT_BUTTON, action(&EditSession::Delete));
  controls.cmdClose->Bind(wxEVT_BUTTON, UserAction([this] { cmdClose_Click(); }));
  SetEscapeId(controls.cmdClose->GetId());
  controls.frame.cboRemarkType->Bind(wxEVT_CHOICE, action(&EditSession::TypeChosen));
  controls.frame.txtRemark->Bind(wxEVT_TEXT, action(&EditSession::TextEdited));
  controls.gdxMemos->CurrentLineChanged = [this] {
    if (m_session) m_session->RowChanged();
  };
  controls.find.txtFind->Bind(wxEVT_TEXT, UserAction([this] { m_controls->find.TextChanged(); }));
  controls.gdxMemos->GetGridWindow()->Bind(wxEVT_CHAR, UserAction([this](wxKeyEvent& event) {
                                             if (!m_controls->find.TakesCharacter(event)) event.Skip();
                                           }));
  controls.gdxMemos->MenuAsked = [this](const wxPoint& point) {
    if (m_session) m_controls->OfferMenu(point);
  };
  controls.gdxMemos->Failed = [this](std::exception_ptr failure) { HandleFailure(std::move(failure)); };
  // A window that has closed must not change what View still commits.
  Bind(wxEVT_IDLE, UserAction([this](wxIdleEvent& event) {
         event.Skip();
         // Rows must not move under a mouse that drags.
         if (m_session && GetCapture() == nullptr) m_session->FollowList();
       }));
  Bind(wxEVT_CHAR_HOOK, UserAction([this](wxKeyEvent& event) { KeyPressed(event); }));
}

bool frmEdit::Layout() {
  // The toolkit calls this also while the controls are being made.
  if (!m_controls || IsIconized()) return false;
  m_controls->Place(LayOutEditor(Scale().WindowSizeOf(GetClientSize()), m_sizes), Scale());
  return true;
}

void frmEdit::View(RemarkContext& context) {
  if (m_session) return RunModal();  // throws, and the open window stays as it is
  const AtScopeEnd ended([this] {
    m_session.reset();
    Guard([this] { m_controls->Clear(); });
  });
  m_session.emplace(*m_controls, context);
  Guard([&] { Load(context); });
  try {
    RunModal();
  } catch (...) {
    m_session->CommitPending();  // so that the error does not lose what was typed
    modWaitCursor::ResetWait();
    throw;
  }
}

void frmEdit::Load(const RemarkContext& context) {
  SetTitle(ui::ToWx(OwnerTitle(context)));
  m_controls->find.Reset();
  m_session->Start();
  FitScreen();
  m_controls->gdxMemos->SetFocus();
}

void frmEdit::cmdClose_Click() {
  m_session->Close();
  Finish();
}

// Esc closes the window from the grid only: a clerk who presses it in a text wants to leave the text. Del acts on a row
// only: a new remark is on none.
void frmEdit::KeyPressed(wxKeyEvent& event) {
  if (m_controls->find.TakesKey(event)) return;
  DataGrid& grid = *m_controls->gdxMemos;
  const bool isPlain = !event.HasAnyModifiers();
  const bool isInGrid = grid.IsDescendant(FindFocus());
  const int key = event.GetKeyCode();
  const bool isEnter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
  const bool isDelete = key == WXK_DELETE || key == WXK_NUMPAD_DELETE;
  if (key == WXK_ESCAPE && isPlain && !isInGrid) {
    grid.SetFocus();
  } else if (isDelete && isPlain && isInGrid && grid.CurrentLine() > 0 && m_controls->cmdDelete->IsEnabled()) {
    m_session->Delete();
  } else if (isEnter && event.GetModifiers() == wxMOD_CONTROL && m_controls->cmdSave->IsEnabled()) {
    m_session->Save();
  } else {
    event.Skip();
  }
}

}  // namespace quorvel
