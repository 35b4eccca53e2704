#include "remark_ui/EditControls.h"

#include <algorithm>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/gdicmn.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>

#include "grid/DataGrid.h"
#include "platform/wx/MakeButton.h"
#include "platform/wx/Twips.h"
#include "remark_ui/RemarkRows.h"

namespace quorvel {

EditControls::EditControls(wxWindow& window, const ui::TwipScale& scale)
    : gdxMemos(new DataGrid(&window, RemarkRows::Columns(), RemarkRows::ColumnOrder())),
      find(window, *gdxMemos),
      frame(window, scale),
      cmdNew(ui::MakeButton(window, "cmdNew", "&New")),
      cmdSave(ui::MakeButton(window, "cmdSave", "&Save")),
      cmdDelete(ui::MakeButton(window, "cmdDelete", "&Delete")),
      cmdClose(ui::MakeButton(window, "cmdClose", "&Close")) {
  gdxMemos->SetName("gdxMemos");
  gdxMemos->SetSpokenName("Remarks");
  window.SetSizer(frame.Sizer());
  find.Toggled = [this] { PlaceGrid(); };
}

EditSizes EditControls::Measure(const ui::TwipScale& scale) const {
  EditSizes sizes;
  for (const wxButton* each : Buttons()) {
    const wxSize best = each->GetBestSize();
    sizes.button.width = std::max(sizes.button.width, scale.ToTwips(best.GetWidth()));
    sizes.button.height = std::max(sizes.button.height, scale.ToTwips(best.GetHeight()));
  }
  sizes.frameHeight = scale.ToTwips(frame.Sizer()->GetMinSize().GetHeight());
  return sizes;
}

void EditControls::Place(const EditLayout& layout, const ui::TwipScale& scale) {
  m_gridPlace = scale.ToPixels(layout.grid);
  PlaceGrid();
  const wxRect frameInside = scale.ToPixels(layout.frame);
  frame.Sizer()->SetDimension(frameInside.GetPosition(), frameInside.GetSize());
  cmdNew->SetSize(scale.ToPixels(layout.newButton));
  cmdSave->SetSize(scale.ToPixels(layout.saveButton));
  cmdDelete->SetSize(scale.ToPixels(layout.deleteButton));
  cmdClose->SetSize(scale.ToPixels(layout.closeButton));
}

void EditControls::PlaceGrid() {
  wxRect grid = m_gridPlace;
  if (find.IsOpen()) {
    const int height = find.pnlFind->GetBestSize().GetHeight();
    grid.height -= height;
    find.pnlFind->SetSize(grid.x, grid.GetBottom() + 1, grid.width, height);
  }
  gdxMemos->SetSize(grid);
}

void EditControls::Show(const RemarkDisplay& display) {
  frame.Show(display);
  Enable(display);
}

void EditControls::Enable(const RemarkDisplay& display) {
  const wxWindow* const focus = wxWindow::FindFocus();
  // On some desktops FindFocus returns null when a list of types has the focus.
  const wxWindow* const unreported = frame.cboRemarkType;
  bool isFocusLost = false;
  const auto enable = [&](wxWindow& control, bool isEnabled) {
    const bool hasFocus = focus == &control || (focus == nullptr && unreported == &control);
    if (control.Enable(isEnabled) && !isEnabled && hasFocus) isFocusLost = true;
  };
  enable(*frame.cboRemarkType, display.canChooseType);
  enable(*cmdSave, display.canSave);
  enable(*cmdDelete, display.canDelete);
  // A disabled control keeps the focus, and the window would then ignore the keyboard.
  if (isFocusLost) gdxMemos->SetFocus();
}

void EditControls::OfferMenu(const wxPoint& point) {
  wxMenu menu;
  for (const wxButton* each : Buttons()) {
    menu.Append(each->GetId(), each->GetLabel())->Enable(each->IsEnabled());
  }
  const int chosen = gdxMemos->GetPopupMenuSelectionFromUser(menu, point);
  for (wxButton* each : Buttons()) {
    if (each->GetId() != chosen) continue;
    wxCommandEvent click(wxEVT_BUTTON, chosen);
    click.SetEventObject(each);
    each->Command(click);
  }
}

void EditControls::Clear() {
  gdxMemos->Refetch();
  Show({});
}

}  // namespace quorvel
