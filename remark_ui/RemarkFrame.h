#pragma once

#include <optional>

#include <wx/string.h>

#include "platform/wx/TextUndo.h"
#include "remark_ui/EditedRemark.h"

class wxChoice;
class wxSizer;
class wxStaticBox;
class wxStaticText;
class wxTextCtrl;
class wxWindow;

namespace quorvel {

namespace ui {
class TwipScale;
}

/// The frame below the editor's grid, with the remark's text and type. The controls belong to the window, which binds
/// their handlers.
class RemarkFrame {
 public:
  RemarkFrame(wxWindow& parent, const ui::TwipScale& scale);

  /// Places the frame and the controls in it. The caller gives it to the window.
  [[nodiscard]] wxSizer* Sizer() const noexcept { return m_sizer; }

  /// Fills the controls, without events. An unchanged text keeps its insertion point.
  void Show(const RemarkDisplay& display);
  /// The selected one of the types shown last.
  [[nodiscard]] std::optional<TypeChoice> SelectedType() const;
  [[nodiscard]] RemarkInput Input() const;

  // In the order in which Tab passes them.
  wxStaticBox* fmViewRemark;
  wxStaticText* Label2;
  wxChoice* cboRemarkType;
  wxStaticText* lblStamp;
  wxTextCtrl* txtRemark;

 private:
  void ShowText(const RemarkDisplay& display);
  void ShowTypes(const RemarkDisplay& display);

  wxSizer* m_sizer;
  std::vector<TypeChoice> m_types;
  ui::TextUndo m_undo;
  const Remark* m_shown = nullptr;  ///< only compared
  wxString m_filledText;            ///< what txtRemark returned right after it was filled
};

}  // namespace quorvel
