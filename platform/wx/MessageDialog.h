#pragma once

#include <wx/msgdlg.h>

namespace quorvel::ui {

/// The desktop's message box, with its icon also on desktops whose own boxes show none.
class MessageDialog : public wxMessageDialog {
 public:
  using wxMessageDialog::wxMessageDialog;
  int ShowModal() override;
};

}  // namespace quorvel::ui
