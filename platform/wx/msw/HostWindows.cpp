#include "platform/wx/HostWindows.h"

#include <windows.h>

#include <vector>

#include <wx/dialog.h>
#include <wx/msw/winundef.h>

namespace quorvel::ui {

struct HostWindows::State {
  HWND active = ::GetActiveWindow();
  bool wasInFront = active != nullptr && ::GetForegroundWindow() == active;
  HWND focused = ::GetFocus();
  std::vector<HWND> disabled;
};

namespace {

/// The system calls this, and no exception may pass through it: a window that cannot be remembered stays enabled.
BOOL CALLBACK Disable(HWND window, LPARAM windows) noexcept {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes every argument as a number.
  auto& disabled = *reinterpret_cast<std::vector<HWND>*>(windows);
  if (::IsWindowVisible(window) == 0 || ::IsWindowEnabled(window) == 0) return TRUE;
  try {
    disabled.push_back(window);
    ::EnableWindow(window, FALSE);
  } catch (...) {
    return FALSE;
  }
  return TRUE;
}

}  // namespace

HostWindows::HostWindows() : m_state(std::make_unique<State>()) {
  ::EnumThreadWindows(::GetCurrentThreadId(), Disable, reinterpret_cast<LPARAM>(&m_state->disabled));
}

HostWindows::~HostWindows() {
  Enable();
  if (::IsWindow(m_state->active) != 0) {
    // While no window of the thread took input, the system may have activated another program's window.
    if (m_state->wasInFront) ::SetForegroundWindow(m_state->active);
    ::SetActiveWindow(m_state->active);
  }
  if (::IsWindow(m_state->focused) != 0) ::SetFocus(m_state->focused);
}

int HostWindows::ShowModal(wxDialog& dialog) { return dialog.ShowModal(); }

void HostWindows::Enable() noexcept {
  for (HWND window : m_state->disabled) {
    if (::IsWindow(window) != 0) ::EnableWindow(window, TRUE);
  }
  m_state->disabled.clear();
}

}  // namespace quorvel::ui
