#include "platform/wx/SendKeys.h"

#include <wx/panel.h>
#include <wx/window.h>

#include "platform/Error.h"

namespace quorvel::ui {
namespace {

/// The whole control: a control may consist of several windows, and one of these has the focus.
wxWindow& OutermostControl(wxWindow& focused) {
  wxWindow* control = &focused;
  while (true) {
    wxWindow* const parent = control->GetParent();
    if (parent == nullptr || parent->IsTopLevel() || dynamic_cast<wxPanel*>(parent) != nullptr) return *control;
    control = parent;
  }
}

}  // namespace

void SendKeys(std::string_view keys) {
  const bool isForward = keys == "^{TAB}";
  if (!isForward && keys != "+^{TAB}") ThrowInvalidCall();
  wxWindow* const focused = wxWindow::FindFocus();
  if (focused == nullptr || focused->IsTopLevel()) return;
  OutermostControl(*focused).Navigate(isForward ? wxNavigationKeyEvent::IsForward : wxNavigationKeyEvent::IsBackward);
}

}  // namespace quorvel::ui
