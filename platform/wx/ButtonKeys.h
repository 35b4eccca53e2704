#pragma once

class wxButton;

namespace quorvel::ui {

/// Makes a button act at the moment its key is pressed. Some desktops first show it pressed for a while, and what the
/// user presses next overtakes it: the button would then act on another remark, or when its window is closed.
void ActAtOnce(wxButton& button);

}  // namespace quorvel::ui
