#pragma once

class wxDialog;

namespace quorvel::ui {

/// Shows `dialog` as its ShowModal does and leaves a loop that the host runs itself running afterwards, which the
/// toolkit would end.
int ShowModalInHost(wxDialog& dialog);

}  // namespace quorvel::ui
