#pragma once

#include <cstdint>
#include <string_view>

#include "platform/Error.h"

class wxWindow;

namespace quorvel::ui {

// The desktop that the component runs on, with one body for each system.

/// Error -1, "No window can be opened: " and the reason.
[[nodiscard]] NoWindow NoWindowError(std::string_view reason);
inline constexpr std::string_view kOtherThreadHasWindows =
    "another thread of the program has windows already, and only one thread can have them";
inline constexpr std::string_view kSystemMakesNone = "the system makes no window for the program";

/// Throws NoWindowError when nothing can be shown to a person: there is no display, there is no desktop, or another
/// thread of the host runs the desktop's loop. Leaves nothing changed and may be called again.
void RequireDesktop();

/// Starts wxWidgets with the application object that is set, as part of the module that contains this code. Returns
/// false when it does not start. Call RequireDesktop first.
[[nodiscard]] bool StartToolkit();

// For a thread that waits and does not run its loop.

/// Receives what the desktop sends, so that the desktop knows that the program lives and the program knows which parts
/// of its windows to draw. Nothing is done about keys, clicks and everything else, which stay in their order.
void ReceiveEvents();
/// Draws what `window` and its controls have to draw, and shows it.
void DrawNow(wxWindow& window);

/// While it lives, controls that the calling thread makes have the look of today's programs, even in a host that asked
/// the system for the old look. Scopes of a thread end in the reverse order of their beginning. Has an effect on
/// Windows only, and none there when the system refuses.
class VisualStyles {
 public:
  VisualStyles() noexcept;
  // NOLINTNEXTLINE(performance-trivially-destructible): where there is nothing to choose it has nothing to undo.
  ~VisualStyles();
  VisualStyles(const VisualStyles&) = delete;
  VisualStyles& operator=(const VisualStyles&) = delete;

 private:
  [[maybe_unused]] bool m_active = false;
  [[maybe_unused]] std::uintptr_t m_cookie = 0;
};

}  // namespace quorvel::ui
