#pragma once

#include <wx/msgdlg.h>

namespace quorvel::ui {

/// The desktop's message box, with its icon also where the desktop's own boxes have gone without.
class MessageDialog : public wxMessageDialog {
 public:
  using wxMessageDialog::wxMessageDialog;
  int ShowModal() override;
};

}  // namespace quorvel::ui
