#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/stattext.h>

#include "platform/wx/Text.h"

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

/// A button's or label's text with its access key.
inline std::string Caption(wxWindow& window, const char* name) {
  return ui::FromWx(Find<wxControl>(window, name).GetLabel());
}

/// The controls are inside the window and do not overlap.
inline void ExpectApart(wxWindow& window, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const wxRect control = Find<wxWindow>(window, name).GetRect();
    EXPECT_TRUE(wxRect(window.GetClientSize()).Contains(control)) << name;
    for (const char* other : names) {
      EXPECT_TRUE(name == other || !control.Intersects(Find<wxWindow>(window, other).GetRect())) << name << other;
    }
  }
}

/// The controls have room for their whole text.
inline void ExpectUncut(wxWindow& window, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const auto& control = Find<wxWindow>(window, name);
    EXPECT_GE(control.GetSize().x, control.GetBestSize().x) << name;
    EXPECT_GE(control.GetSize().y, control.GetBestSize().y) << name;
  }
}

}  // namespace quorvel::test
