#pragma once

#include <string_view>

class wxWindow;

namespace quorvel::ui {

/// What assistive technology calls `window` (UTF-8): the text of the label beside it, or what would stand there. Also
/// for a control that is made of several; not for one that holds other controls.
void SetAccessibleName(wxWindow& window, std::string_view name);

}  // namespace quorvel::ui
