#include "platform/wx/HostWindows.h"

#include <windows.h>

#include <vector>

namespace quorvel::ui {

struct HostWindows::State {
  HWND active = ::GetActiveWindow();
  bool wasInFront = active != nullptr && ::GetForegroundWindow() == active;
  HWND focused = ::GetFocus();
  std::vector<HWND> disabled;
};

namespace {

/// An exception would have to pass through the system that calls this; a window that there is no memory to remember
/// stays enabled.
BOOL CALLBACK Disable(HWND window, LPARAM windows) noexcept {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system hands everything on as a number.
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
    // While no window of the thread took input the system may have gone to another program's.
    if (m_state->wasInFront) ::SetForegroundWindow(m_state->active);
    ::SetActiveWindow(m_state->active);
  }
  if (::IsWindow(m_state->focused) != 0) ::SetFocus(m_state->focused);
}

void HostWindows::Enable() noexcept {
  for (HWND window : m_state->disabled) {
    if (::IsWindow(window) != 0) ::EnableWindow(window, TRUE);
  }
  m_state->disabled.clear();
}

}  // namespace quorvel::ui
