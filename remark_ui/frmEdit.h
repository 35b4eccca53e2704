#pragma once

#include <optional>

#include "platform/wx/ModalDialog.h"
#include "remark_ui/EditControls.h"
#include "remark_ui/EditSession.h"

class wxKeyEvent;

namespace quorvel {

class RemarkContext;

/// Shows all remarks of an owner; the user reads them and, as far as the rights allow, creates, changes and deletes
/// them. Changes are made in the context's list; closing calls the context's Save(false). There is one editor per
/// thread, which is used for each View.
class frmEdit : public ui::ModalDialog {
 public:
  frmEdit();

  /// Shows the window on `context` until it is closed. Errors pass through with the window closed, also those of Save.
  /// The typed text is then in the list and still dirty, and another View shows it.
  void View(RemarkContext& context);

  /// Places the controls.
  bool Layout() override;

 private:
  void BindHandlers();
  void Load(const RemarkContext& context);
  void FitScreen();
  void cmdClose_Click();
  void KeyPressed(wxKeyEvent& event);

  std::optional<EditControls> m_controls;
  EditSizes m_sizes;
  std::optional<EditSession> m_session;  ///< while the window is open
};

}  // namespace quorvel
