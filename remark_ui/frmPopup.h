#pragma once

#include <optional>

#include "platform/wx/ModalDialog.h"
#include "remark_ui/PopupLayout.h"
#include "remark_ui/PopupWalk.h"

class wxButton;
class wxKeyEvent;
class wxStaticText;
class wxTextCtrl;

namespace quorvel {

/// Shows the user the remarks that must be seen, one at a time, and changes nothing. Keys and clicks from before a
/// remark was drawn are dropped: they were meant for something else. There is one pop-up per thread, which is used for
/// each View.
class frmPopup : public ui::ModalDialog {
 public:
  frmPopup();

  /// Shows the context's remarks that pop up until the window is closed; returns at once when there are none. Errors of
  /// the walk pass through, with the window closed.
  void View(RemarkContext& context);

 private:
  void CreateControls();
  void BindHandlers();
  void MeasureControls();
  void Display();
  void LayOut();
  void cmdPrev_Click();
  void cmdNext_Click();
  void KeyPressed(wxKeyEvent& event);

  // In the order in which Tab passes them.
  wxStaticText* Label2;
  wxTextCtrl* txtRemarkType;
  wxStaticText* Label1;
  wxTextCtrl* txtRemark;
  wxStaticText* lblRemarkCounter;
  wxButton* cmdPrev;
  wxButton* cmdNext;

  PopupSizes m_sizes;
  PopupDisplay m_display;
  std::optional<PopupWalk> m_walk;  ///< while the window is open
  bool m_isSeen = false;            ///< the window has been drawn since it shows the remark
};

}  // namespace quorvel
