#pragma once

#include <string_view>

namespace quorvel::ui {

/// Has the effect of `keys` in the window that has the focus: "^{TAB}" and "+^{TAB}" (Ctrl+Tab, Shift+Ctrl+Tab) go to
/// the next and to the previous control, also from a control that handles Tab itself. Throws error 5 for other keys.
void SendKeys(std::string_view keys);

}  // namespace quorvel::ui
