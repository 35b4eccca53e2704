#pragma once

#include <array>

#include <wx/gdicmn.h>

#include "remark_ui/EditLayout.h"
#include "remark_ui/FindField.h"
#include "remark_ui/RemarkFrame.h"

class wxButton;

namespace quorvel {

class DataGrid;

/// The controls of the editor: makes, measures and places them and shows a remark in them. They belong to the window,
/// which binds their handlers.
class EditControls {
 public:
  EditControls(wxWindow& window, const ui::TwipScale& scale);
  EditControls(const EditControls&) = delete;
  EditControls& operator=(const EditControls&) = delete;

  /// The room that the controls need.
  [[nodiscard]] EditSizes Measure(const ui::TwipScale& scale) const;
  void Place(const EditLayout& layout, const ui::TwipScale& scale);

  /// Shows a remark, without events.
  void Show(const RemarkDisplay& display);
  /// Enables what the user may do with the remark. If that disables the control with the focus, the grid gets the
  /// focus.
  void Enable(const RemarkDisplay& display);
  /// Offers a menu of what the buttons do, enabled as they are, at a point of the grid.
  void OfferMenu(const wxPoint& point);
  /// Shows no remark, and no rows once the grid has no source.
  void Clear();

  // In the order in which Tab passes them.
  DataGrid* gdxMemos;
  FindField find;
  RemarkFrame frame;
  wxButton* cmdNew;
  wxButton* cmdSave;
  wxButton* cmdDelete;
  wxButton* cmdClose;

 private:
  void PlaceGrid();
  [[nodiscard]] std::array<wxButton*, 4> Buttons() const { return {cmdNew, cmdSave, cmdDelete, cmdClose}; }

  wxRect m_gridPlace;  ///< of the grid with its field to find
};

}  // namespace quorvel
