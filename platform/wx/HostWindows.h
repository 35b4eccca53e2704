#pragma once

#include <memory>

namespace quorvel::ui {

/// While it lives, a window of the component is modal for the host as well: the host's windows of this thread take no
/// input, where the toolkit does not see to that itself. Afterwards they do again, and the one that was active is
/// active.
class HostWindows {
 public:
  HostWindows();
  ~HostWindows();
  HostWindows(const HostWindows&) = delete;
  HostWindows& operator=(const HostWindows&) = delete;

  /// Lets them take input again, ahead of the end: the system activates another program's window when it finds none to
  /// go to.
  void Enable() noexcept;

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace quorvel::ui
