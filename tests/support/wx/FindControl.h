#pragma once

#include <gtest/gtest.h>

#include <wx/button.h>

namespace quorvel::test {

/// A window's control by its name; std::bad_cast when it is of another class or does not exist.
template <typename Control>
Control& Find(wxWindow& window, const char* name) {
  return dynamic_cast<Control&>(*wxWindow::FindWindowByName(name, &window));
}

/// Presses a button as a click does; the button must be visible and enabled.
inline void Press(wxWindow& window, const char* name) {
  auto& button = Find<wxButton>(window, name);
  ASSERT_TRUE(button.IsShown() && button.IsEnabled()) << name;
  wxCommandEvent click(wxEVT_BUTTON, button.GetId());
  button.Command(click);
}

}  // namespace quorvel::test
