#pragma once

#include <string_view>

namespace quorvel::ui {

/// Does what these keys do in the window that has the focus: "^{TAB}" and "+^{TAB}" (Ctrl+Tab, Shift+Ctrl+Tab) go to
/// the next control and to the one before, out of controls that keep Tab for themselves. Error 5 for other keys.
void SendKeys(std::string_view keys);

}  // namespace quorvel::ui
