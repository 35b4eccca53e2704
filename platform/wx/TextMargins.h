#pragma once

class wxTextCtrl;

namespace quorvel::ui {

/// Keeps the text of a box of several lines a little off its border, on desktops that draw it there otherwise.
void SetTextMargins(wxTextCtrl& box);

}  // namespace quorvel::ui
