#pragma once

#include "platform/wx/ModalDialog.h"

namespace quorvel::test {

/// A window of the component that a test fills, opens and ends.
class TestWindow : public ui::ModalDialog {
 public:
  explicit TestWindow(const wxString& title, ui::FailurePolicy policy = ui::FailurePolicy::EndAndRethrow)
      : ModalDialog(title, policy) {}
  using ModalDialog::Finish;
  using ModalDialog::Guard;
  using ModalDialog::UserAction;
};

}  // namespace quorvel::test
