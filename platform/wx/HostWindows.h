#pragma once

#include <memory>

class wxDialog;

namespace quorvel::ui {

/// Makes a window of the component modal for the host as well. While the object lives, the host's windows of this
/// thread take no input, where the toolkit does not do that itself. Afterwards they take input again, and the window
/// that was active is active.
class HostWindows {
 public:
  HostWindows();
  ~HostWindows();
  HostWindows(const HostWindows&) = delete;
  HostWindows& operator=(const HostWindows&) = delete;

  /// Shows `dialog` as its ShowModal does. The toolkit would end a loop that the host runs itself; here it runs on.
  int ShowModal(wxDialog& dialog);

  /// Lets the host's windows take input again before the end: when a modal window closes and the system finds no other
  /// window of the program to activate, it activates another program's.
  void Enable() noexcept;

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace quorvel::ui
