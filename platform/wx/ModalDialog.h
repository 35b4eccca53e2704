#pragma once

#include <exception>
#include <functional>
#include <type_traits>
#include <utility>

#include <wx/dialog.h>

#include "platform/wx/Twips.h"

namespace quorvel::ui {

class HostWindows;

/// A window that a host's call shows and that is used again at the next call: created hidden, resizable, closed by its
/// close box, by Esc where no control wants it, or by Finish.
///
/// Handlers are wrapped in Guarded, because no exception may pass through the toolkit: the first one ends the window
/// and comes out of RunModal.
class ModalDialog : public wxDialog {
 public:
  /// RequireWindowSystem comes first, and its error passes through.
  explicit ModalDialog(const wxString& title);
  ~ModalDialog() override;
  ModalDialog(const ModalDialog&) = delete;
  ModalDialog& operator=(const ModalDialog&) = delete;

  /// Shows the window until it is closed, with the default pointer and with the host's other windows disabled meanwhile
  /// as far as the system knows them. Afterwards pointer and focus are as they were. Error 400 ("Form already
  /// displayed; can't show modally") when it is shown already; whatever a handler threw, with the window closed.
  /// `opened` runs once, guarded, when the window is up.
  void RunModal(const std::function<void()>& opened = {});

  /// The window that was opened last and is open still; null when none is.
  [[nodiscard]] static ModalDialog* Topmost();

  /// Measured anew each time: font and screen may change while the window lives.
  [[nodiscard]] TwipScale Scale() const { return TwipScale(*this); }

  void EndModal(int answer) override;
  /// Kept for the next call it would keep a host that ends with its last window.
  [[nodiscard]] bool ShouldPreventAppExit() const override { return false; }

 protected:
  /// The inside of the window, in pixels, never becomes smaller, whatever border the desktop draws round it.
  void SetSmallestInside(const wxSize& smallest);

  /// Ends RunModal. Does nothing when the window is not shown.
  void Finish();

  /// `handler` as an event handler: it takes the event or nothing.
  template <typename Handler>
  [[nodiscard]] auto Guarded(Handler handler) {
    return [this, handler = std::move(handler)](auto& event) mutable { Guard([&] { Call(handler, event); }); };
  }

  /// The same for what the user does in the window: events that arrive when it is closed are dropped.
  template <typename Handler>
  [[nodiscard]] auto Command(Handler handler) {
    return [this, handler = std::move(handler)](auto& event) mutable {
      if (IsOpen()) Guard([&] { Call(handler, event); });
    };
  }

  /// Runs `action`; what it throws ends the window and comes out of RunModal.
  template <typename Action>
  void Guard(const Action& action) noexcept {
    try {
      action();
    } catch (...) {
      FailWith(std::current_exception());
    }
  }

 private:
  [[nodiscard]] bool IsOpen() const;
  template <typename Handler, typename Event>
  static void Call(Handler& handler, Event& event) {
    if constexpr (std::is_invocable_v<Handler&, Event&>) {
      handler(event);
    } else {
      handler();
    }
  }
  void FailWith(std::exception_ptr failure) noexcept;
  void ChooseOwner();
  void ShowUntilClosed(const std::function<void()>& opened);
  void IsUp();
  void CloseAfterFailure();
  void CloseByEscape(wxKeyEvent& event);
  void KeepSmallest(wxSizeEvent& event);

  wxSize m_smallest;
  wxSize m_border;  ///< the one that the toolkit's own limit was set for
  std::exception_ptr m_failure;
  HostWindows* m_hostWindows = nullptr;
  const std::function<void()>* m_opened = nullptr;
};

}  // namespace quorvel::ui
