#pragma once

#include <exception>
#include <functional>

#include <wx/dialog.h>

#include "platform/wx/GuardedWindow.h"

namespace quorvel::ui {

class HostWindows;

/// A window that a host's call shows and that is used again at the next call: created hidden, resizable, closed by its
/// close box, by Esc where no control takes it, or by Finish.
class ModalDialog : public wxDialog, public GuardedWindow {
 public:
  /// Calls RequireWindowSystem first and passes its error on.
  explicit ModalDialog(const wxString& title, FailurePolicy policy = FailurePolicy::EndAndRethrow);
  ~ModalDialog() override;
  ModalDialog(const ModalDialog&) = delete;
  ModalDialog& operator=(const ModalDialog&) = delete;

  /// Shows the window until it is closed, with the default pointer. Meanwhile the host's other windows are disabled, as
  /// far as the system knows them; afterwards pointer and focus are as they were. `opened` runs once, guarded, when the
  /// window is on the screen.
  ///
  /// Throws error 400 ("Form already displayed; can't show modally") when the window is shown already. With
  /// EndAndRethrow it throws the first error of a handler, after the window has closed.
  void RunModal(const std::function<void()>& opened = {});

  /// The open window that was opened last; null when none is open.
  [[nodiscard]] static ModalDialog* Topmost();

  void EndModal(int answer) override;
  /// The window is kept for the next call, so it must not keep alive a host whose own last window has closed.
  [[nodiscard]] bool ShouldPreventAppExit() const override { return false; }

 protected:
  void HandleFailure(std::exception_ptr failure) noexcept override;

  /// Ends RunModal. Does nothing when the window is not shown.
  void Finish();

 private:
  void ChooseOwner();
  void ShowUntilClosed(const std::function<void()>& opened);
  void IsUp();
  void CloseAfterFailure();
  void CloseByEscape(wxKeyEvent& event);

  FailurePolicy m_policy;
  std::exception_ptr m_failure;
  HostWindows* m_hostWindows = nullptr;
  const std::function<void()>* m_opened = nullptr;
};

}  // namespace quorvel::ui
