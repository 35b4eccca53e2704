// A host waits in RunModal, so an error of a handler belongs to that call: it is kept, the window is closed, and
// RunModal throws it. A window that is covered by others closes when those have closed.
#include "platform/wx/ModalDialog.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/AtScopeEnd.h"
#include "platform/Error.h"
#include "platform/wx/DialogPrompts.h"
#include "platform/wx/HostWindows.h"
#include "platform/wx/WindowSystem.h"

namespace quorvel::ui {
namespace {

/// The open windows, the topmost last. Only one thread has windows.
std::vector<ModalDialog*>& OpenWindows() {
  static std::vector<ModalDialog*> windows;
  return windows;
}

constexpr long kStyle = wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX;

wxWindow* WithWindowSystem() {
  RequireWindowSystem();
  return nullptr;
}

}  // namespace

ModalDialog::ModalDialog(const wxString& title, FailurePolicy policy)
    : wxDialog(WithWindowSystem(), wxID_ANY, title, wxDefaultPosition, wxDefaultSize, kStyle | wxDIALOG_NO_PARENT),
      GuardedWindow(static_cast<wxTopLevelWindow&>(*this)),
      m_policy(policy) {
  Bind(wxEVT_CHAR_HOOK, &ModalDialog::CloseByEscape, this);
}

ModalDialog::~ModalDialog() = default;

ModalDialog* ModalDialog::Topmost() { return OpenWindows().empty() ? nullptr : OpenWindows().back(); }

void ModalDialog::RunModal(const std::function<void()>& opened) {
  if (std::ranges::count(OpenWindows(), this) != 0) ThrowAlreadyModal();
  // A handler may have failed while the window was filled.
  if (!m_failure) ShowUntilClosed(opened);
  if (ModalDialog* below = Topmost()) below->CloseAfterFailure();
  if (m_failure) std::rethrow_exception(std::exchange(m_failure, nullptr));
}

/// A window of the component belongs to the window that opened it, which may be modeless. The first belongs to none,
/// not even to a window of the host that the toolkit knows.
void ModalDialog::ChooseOwner() {
  ModalDialog* owner = Topmost();
  if (owner == nullptr) owner = dynamic_cast<ModalDialog*>(wxGetTopLevelParent(wxGetActiveWindow()));
  if (owner == this) owner = nullptr;  // a control in it has been given the focus already
  const long style = GetWindowStyleFlag() & ~wxDIALOG_NO_PARENT;
  SetWindowStyleFlag(owner == nullptr ? style | wxDIALOG_NO_PARENT : style);
  // Without a parent the toolkit would prefer the main window of a host that it knows.
  SetParent(owner);
}

void ModalDialog::ShowUntilClosed(const std::function<void()>& opened) {
  ChooseOwner();
  OpenWindows().push_back(this);
  const AtScopeEnd closed([this] {
    OpenWindows().pop_back();
    SetParent(nullptr);
  });
  const DefaultPointer pointer;
  HostWindows hostWindows;
  m_hostWindows = &hostWindows;
  m_opened = &opened;
  CallAfter(&ModalDialog::IsUp);
  hostWindows.ShowModal(*this);
  m_opened = nullptr;
  m_hostWindows = nullptr;
}

void ModalDialog::IsUp() {
  const auto* opened = std::exchange(m_opened, nullptr);
  if (opened == nullptr) return;
  // Window managers may leave a new window below the window that has the keyboard.
  Raise();
  if (*opened && !m_failure) Guard(*opened);
  CloseAfterFailure();
}

void ModalDialog::EndModal(int answer) {
  if (m_hostWindows != nullptr) m_hostWindows->Enable();
  wxDialog::EndModal(answer);
}

void ModalDialog::Finish() {
  if (IsModal()) EndModal(wxID_OK);
}

// The toolkit ignores Esc in a window without a button for it.
void ModalDialog::CloseByEscape(wxKeyEvent& event) {
  if (event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers()) {
    Close();
  } else {
    event.Skip();
  }
}

void ModalDialog::HandleFailure(std::exception_ptr failure) noexcept {
  if (m_policy == FailurePolicy::ShowAndStay) return GuardedWindow::HandleFailure(std::move(failure));
  if (!m_failure) m_failure = std::move(failure);
  CloseAfterFailure();
}

// The loops of the windows above must end first; this is called again when those windows have closed.
void ModalDialog::CloseAfterFailure() {
  if (m_failure && Topmost() == this && IsModal()) EndModal(wxID_CANCEL);
}

}  // namespace quorvel::ui
