#pragma once

#include <gtest/gtest.h>

#include <string>

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/stattext.h>

#include "platform/wx/Text.h"

namespace quorvel::test {

/// A window's control by its name; std::bad_cast when it is of another class or not there.
template <typename Control>
Control& Find(wxWindow& window, const char* name) {
  return dynamic_cast<Control&>(*wxWindow::FindWindowByName(name, &window));
}

/// Presses a button as a click does, which it must be possible to do.
inline void Press(wxWindow& window, const char* name) {
  auto& button = Find<wxButton>(window, name);
  ASSERT_TRUE(button.IsShown() && button.IsEnabled()) << name;
  wxCommandEvent click(wxEVT_BUTTON, button.GetId());
  button.Command(click);
}

/// A button's or label's text with its access key.
inline std::string Caption(wxWindow& window, const char* name) {
  return ui::FromWx(Find<wxControl>(window, name).GetLabel());
}

}  // namespace quorvel::test
