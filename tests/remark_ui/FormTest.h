#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>

#include <wx/textctrl.h>

#include "platform/wx/Text.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/wx/FindControl.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::test {

/// The title of a window that shows remarks of Acme Tools.
constexpr const char* kTitle = "Acme Tools [C1044] Customer Remarks [(embedded)]";

/// A window that shows the remarks of a context, used as its user does.
template <typename Form>
class FormTest : public testing::Test {
 protected:
  /// Shows remarks of Acme Tools and acts on the window, which `act` must close.
  void View(const ContextHolder& context, const std::function<void()>& act) {
    ModalScript script;
    script.ExpectWindow<Form>(kTitle, [&](Form& /*window*/) { act(); });
    m_form.View(*context);
  }
  template <typename Control>
  Control& The(const char* name) {
    return Find<Control>(m_form, name);
  }
  void Click(const char* name) { Press(m_form, name); }
  std::string Text(const char* name) { return ui::FromWx(The<wxTextCtrl>(name).GetValue()); }
  /// The caption of a button with its access key, or of a label or frame.
  std::string Caption(const char* name) { return ui::FromWx(The<wxControl>(name).GetLabel()); }
  bool Closes() {
    return WaitFor([this] { return !m_form.IsShown(); });
  }

  /// In a large window and at last in the smallest, the controls `apart` are inside the window and do not overlap, and
  /// the controls `uncut` have room for their whole text.
  void ExpectControlsFit(std::initializer_list<const char*> apart, std::initializer_list<const char*> uncut) {
    for (const wxSize& asked : {wxSize(1100, 900), wxSize(10, 10)}) {
      m_form.SetClientSize(asked);
      HandleEvents();
      EXPECT_TRUE(WaitFor([&] { return asked.x == 10 || m_form.GetClientSize() == asked; }));
      for (const char* name : apart) {
        const wxRect control = The<wxWindow>(name).GetRect();
        EXPECT_TRUE(wxRect(m_form.GetClientSize()).Contains(control)) << name;
        for (const char* other : apart) {
          EXPECT_TRUE(name == other || !control.Intersects(The<wxWindow>(other).GetRect())) << name << other;
        }
      }
      for (const char* name : uncut) {
        const auto& control = The<wxWindow>(name);
        EXPECT_TRUE(wxRect(control.GetSize()).Contains(wxRect(control.GetBestSize()))) << name;
      }
    }
  }

  TestDatabase m_database;
  Form m_form;
};

}  // namespace quorvel::test
