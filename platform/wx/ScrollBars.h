#pragma once

class wxWindow;

namespace quorvel::ui {

/// Keeps the scroll bars of `window` on the screen while there is something to scroll. Some desktops show them only
/// while the pointer moves, and until then a text that goes on below looks like a whole one.
void KeepScrollBars(wxWindow& window);

}  // namespace quorvel::ui
