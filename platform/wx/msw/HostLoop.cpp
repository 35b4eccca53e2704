// The toolkit handles Tab, access keys and its idle events in its own loop. A hook does the same for messages that the
// host's loop takes from the queue.
#include "platform/wx/HostLoop.h"

#include <windows.h>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/msw/winundef.h>
#include <wx/thread.h>

namespace quorvel::ui {
namespace {

/// Follows each batch of messages, so that the toolkit's idle events run when the loop has nothing else to do.
const UINT kIdle = ::RegisterWindowMessageW(L"QuorvelIdle");

class LoopHook {
 public:
  LoopHook() : m_hook(::SetWindowsHookExW(WH_GETMESSAGE, MessageTaken, nullptr, ::GetCurrentThreadId())) {}
  ~LoopHook() { ::UnhookWindowsHookEx(m_hook); }
  LoopHook(const LoopHook&) = delete;
  LoopHook& operator=(const LoopHook&) = delete;

  static LoopHook*& Installed() {
    static LoopHook* installed = nullptr;
    return installed;
  }

 private:
  static LRESULT CALLBACK MessageTaken(int code, WPARAM removed, LPARAM message) noexcept {
    LoopHook* self = Installed();
    // The toolkit's own loops, those of modal windows, do all this themselves.
    if (self != nullptr && code == HC_ACTION && removed == PM_REMOVE && wxEventLoopBase::GetActive() == nullptr) {
      // NOLINTNEXTLINE(performance-no-int-to-ptr): the system passes every argument as a number.
      self->Take(*reinterpret_cast<MSG*>(message));
    }
    return ::CallNextHookEx(nullptr, code, removed, message);
  }

  void Take(MSG& message) noexcept {
    try {
      if (message.message == kIdle) {
        m_isIdlePosted = false;
        if (BeIdle()) PostIdle();
        message.message = WM_NULL;
        return;
      }
      PostIdle();
      if (m_loop.PreProcessMessage(&message)) message.message = WM_NULL;
    } catch (...) {
      message.message = WM_NULL;  // handlers of the component handle their own errors
    }
  }

  static bool BeIdle() {
    wxTheApp->ProcessPendingEvents();
    return wxTheApp->ProcessIdle();
  }

  void PostIdle() noexcept {
    if (!m_isIdlePosted) m_isIdlePosted = ::PostThreadMessageW(::GetCurrentThreadId(), kIdle, 0, 0) != 0;
  }

  HHOOK m_hook;
  wxGUIEventLoop m_loop;
  bool m_isIdlePosted = false;
};

}  // namespace

struct LifeOnHostLoop::State {
  State() { LoopHook::Installed() = &hook; }
  ~State() { LoopHook::Installed() = nullptr; }
  LoopHook hook;
};

bool HostRunsLoop() { return true; }

LifeOnHostLoop::LifeOnHostLoop() {
  static std::weak_ptr<State> shared;
  m_state = shared.lock();
  if (!m_state) shared = m_state = std::make_shared<State>();
}

LifeOnHostLoop::~LifeOnHostLoop() = default;

}  // namespace quorvel::ui
