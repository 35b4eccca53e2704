#pragma once

#include <exception>
#include <utility>

#include <wx/toplevel.h>

#include "platform/wx/GuardedHandler.h"
#include "platform/wx/Twips.h"

namespace quorvel::ui {

/// The treatment of an error that a handler of a window throws.
enum class FailurePolicy {
  EndAndRethrow,  ///< the first error ends the window, and the call that showed the window throws it
  ShowAndStay     ///< each error is shown in a message box, and the window stays open
};

/// The common part of the component's windows: guarded handlers, a smallest size and a scale. A second base class of a
/// window beside the toolkit's dialog or frame, which is the first.
class GuardedWindow {
  /// First of all members: its type must be known to the templates below.
  [[nodiscard]] auto Failed() {
    return [this](std::exception_ptr failure) { HandleFailure(std::move(failure)); };
  }

 public:
  GuardedWindow(const GuardedWindow&) = delete;
  GuardedWindow& operator=(const GuardedWindow&) = delete;

  /// Measured at each call, because font and screen may change while the window lives.
  [[nodiscard]] TwipScale Scale() const { return TwipScale(m_window); }

 protected:
  /// `window` is the same object, as the toolkit's class. Throws NoWindowError when the system has made no window.
  explicit GuardedWindow(wxTopLevelWindow& window);
  ~GuardedWindow() = default;

  /// Handles an error of a guarded handler. Here as FailurePolicy::ShowAndStay says.
  virtual void HandleFailure(std::exception_ptr failure) noexcept;

  /// The inside of the window, in pixels, never becomes smaller, whatever border the desktop draws round it.
  void SetSmallestInside(const wxSize& smallest);

  /// The largest window that the work area of its screen has room for, as TwipScale counts it.
  [[nodiscard]] TwipSize Room() const;
  /// Gives the inside of the window the size `wanted`, in pixels, as far as the work area has room for it, and puts the
  /// window in the middle.
  void PlaceInMiddle(const wxSize& wanted);

  /// `handler`, which takes the event or nothing, as an event handler of the toolkit.
  template <typename Handler>
  [[nodiscard]] auto Guarded(Handler handler) {
    return GuardedHandler(std::move(handler), Failed());
  }

  /// The same for what the user does in the window: an event that arrives when the window is closed is dropped.
  template <typename Handler>
  [[nodiscard]] auto UserAction(Handler handler) {
    return [this, guarded = Guarded(std::move(handler))](auto& event) mutable {
      if (m_window.IsShown()) guarded(event);
    };
  }

  /// Runs `action`, whose error is handled as a handler's.
  template <typename Action>
  void Guard(const Action& action) noexcept {
    RunGuarded(action, Failed());
  }

 private:
  void KeepSmallest();

  wxTopLevelWindow& m_window;
  wxSize m_smallest;
  wxSize m_border;  ///< the border that the toolkit's own limit was set for
};

}  // namespace quorvel::ui
