#include "platform/wx/DialogPrompts.h"

#include <wx/app.h>
#include <wx/textdlg.h>
#include <wx/thread.h>
#include <wx/utils.h>

#include "platform/wx/Desktop.h"
#include "platform/wx/GuardedWindow.h"
#include "platform/wx/HostWindows.h"
#include "platform/wx/MessageDialog.h"
#include "platform/wx/ModalDialog.h"
#include "platform/wx/Picture.h"
#include "platform/wx/Text.h"
#include "platform/wx/WindowSystem.h"

namespace quorvel::ui {
namespace {

/// Whether the component shows the hourglass. Only one thread has windows.
bool isWaiting = false;

/// Draws the component's windows only: a host does not expect to draw its own inside a call of the component.
void DrawWindows() {
  for (wxWindow* window : wxTopLevelWindows) {
    if (dynamic_cast<GuardedWindow*>(window) != nullptr) DrawNow(*window);
  }
}

bool HasWindows() { return wxAppConsole::GetInstance() != nullptr && wxThread::IsMain(); }

void ShowHourglass(bool show) {
  if (show == isWaiting || !HasWindows()) return;
  if (show) {
    wxBeginBusyCursor();
  } else {
    wxEndBusyCursor();
  }
  isWaiting = show;
}

/// The topmost window: a box with another parent would appear below it.
wxWindow* Parent() {
  if (ModalDialog* topmost = ModalDialog::Topmost()) return topmost;
  wxWindow* active = wxGetTopLevelParent(wxGetActiveWindow());
  return active != nullptr && active->IsShown() ? active : nullptr;
}

long Style(PromptButtons buttons, PromptIcon icon) {
  long style = buttons == PromptButtons::YesNo ? wxYES_NO : wxOK;
  switch (icon) {
    case PromptIcon::None:
      return style | wxICON_NONE;
    case PromptIcon::CriticalStop:
      return style | wxICON_ERROR;
    case PromptIcon::Question:
      return style | wxICON_QUESTION;
    case PromptIcon::Exclamation:
      return style | wxICON_EXCLAMATION;
  }
  return style;
}

int Run(wxDialog& dialog) {
  const DefaultPointer pointer;
  HostWindows hostWindows;
  return hostWindows.ShowModal(dialog);
}

}  // namespace

PromptAnswer DialogPrompts::ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                                        PromptIcon icon) {
  RequireWindowSystem();
  const VisualStyles styles;
  MessageDialog dialog(Parent(), ToWx(text), ToWx(title), Style(buttons, icon));
  int answer = Run(dialog);
  if (buttons == PromptButtons::Ok) return PromptAnswer::Ok;
  // Some desktops let the user close a question. A stray Esc must not count as a No that loses work.
  while (answer != wxID_YES && answer != wxID_NO) answer = Run(dialog);
  return answer == wxID_YES ? PromptAnswer::Yes : PromptAnswer::No;
}

std::optional<std::string> DialogPrompts::AskText(std::string_view prompt, std::string_view title) {
  RequireWindowSystem();
  const VisualStyles styles;
  wxTextEntryDialog dialog(Parent(), ToWx(prompt), ToWx(title));
  if (dialog.GetHandle() == nullptr) throw NoWindowError(kSystemMakesNone);
  dialog.SetIcons(ProductIcons());
  if (Run(dialog) != wxID_OK) return std::nullopt;
  return FromWx(dialog.GetValue());
}

void DialogPrompts::SetPointer(PointerShape shape) noexcept {
  try {
    ShowHourglass(shape == PointerShape::Hourglass);
  } catch (...) {
    // A wrong pointer is no reason to fail.
  }
}

void DialogPrompts::KeepDrawing() noexcept {
  if (!HasWindows()) return;
  try {
    ReceiveEvents();
    DrawWindows();
  } catch (...) {
    // An undrawn window is no reason to fail.
  }
}

DefaultPointer::DefaultPointer() : m_wasWaiting(isWaiting) { ShowHourglass(false); }

DefaultPointer::~DefaultPointer() { ShowHourglass(m_wasWaiting); }

}  // namespace quorvel::ui
