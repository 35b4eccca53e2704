#include "platform/wx/DialogPrompts.h"

#include <wx/app.h>
#include <wx/textdlg.h>
#include <wx/thread.h>
#include <wx/utils.h>

#include "platform/wx/HostLoop.h"
#include "platform/wx/HostWindows.h"
#include "platform/wx/MessageDialog.h"
#include "platform/wx/ModalDialog.h"
#include "platform/wx/Text.h"
#include "platform/wx/VisualStyles.h"
#include "platform/wx/WindowSystem.h"

namespace quorvel::ui {
namespace {

/// Whether the hourglass is there on the component's behalf. Windows have one thread.
bool isWaiting = false;

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

/// A box that belongs to another window than its own program's topmost would appear behind it.
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
  const HostWindows hostWindows;
  return ShowModalInHost(dialog);
}

}  // namespace

PromptAnswer DialogPrompts::ShowMessage(std::string_view text, std::string_view title, PromptButtons buttons,
                                        PromptIcon icon) {
  RequireWindowSystem();
  const VisualStyles styles;
  MessageDialog dialog(Parent(), ToWx(text), ToWx(title), Style(buttons, icon));
  int answer = Run(dialog);
  if (buttons == PromptButtons::Ok) return PromptAnswer::Ok;
  // Some desktops let a question be closed. One that was closed by a stray Esc must not count as a No that loses work.
  while (answer != wxID_YES && answer != wxID_NO) answer = Run(dialog);
  return answer == wxID_YES ? PromptAnswer::Yes : PromptAnswer::No;
}

std::optional<std::string> DialogPrompts::AskText(std::string_view prompt, std::string_view title) {
  RequireWindowSystem();
  const VisualStyles styles;
  wxTextEntryDialog dialog(Parent(), ToWx(prompt), ToWx(title));
  if (Run(dialog) != wxID_OK) return std::nullopt;
  return FromWx(dialog.GetValue());
}

void DialogPrompts::SetPointer(PointerShape shape) noexcept {
  try {
    ShowHourglass(shape == PointerShape::Hourglass);
  } catch (...) {
    // A pointer is nothing to fail for.
  }
}

DefaultPointer::DefaultPointer() : m_wasWaiting(isWaiting) { ShowHourglass(false); }

DefaultPointer::~DefaultPointer() { ShowHourglass(m_wasWaiting); }

}  // namespace quorvel::ui
