#pragma once

#include <optional>

#include <wx/string.h>

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

/// The frame below the editor's grid: the remark's text and its type. The controls belong to the window they stand in,
/// and its handlers are bound to them.
class RemarkFrame {
 public:
  RemarkFrame(wxWindow& parent, const ui::TwipScale& scale);

  /// Places the controls in the frame, and the frame; for the caller to give to the window.
  [[nodiscard]] wxSizer* Sizer() const noexcept { return m_sizer; }

  /// Fills the controls, without events. A text that stands there already keeps the insertion point.
  void Show(const RemarkDisplay& display);
  /// The type that is selected of those last shown.
  [[nodiscard]] std::optional<TypeChoice> SelectedType() const;
  [[nodiscard]] RemarkInput Input() const;

  // In the order in which Tab passes them.
  wxStaticBox* fmViewRemark;
  wxStaticText* Label2;
  wxChoice* cboRemarkType;
  wxTextCtrl* txtRemark;

 private:
  void ShowText(const RemarkDisplay& display);
  void ShowTypes(const RemarkDisplay& display);

  wxSizer* m_sizer;
  std::vector<TypeChoice> m_types;
  wxString m_filledText;  ///< what txtRemark gave back when it was filled
};

}  // namespace quorvel
