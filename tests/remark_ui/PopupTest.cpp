#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include "remark_ui/frmPopup.h"
#include "tests/remark_ui/Controls.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/wx/ModalScript.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::test {
namespace {

constexpr const char* kTitle = "Acme Tools [C1044] Customer Remarks [(embedded)]";

class PopupTest : public testing::Test {
 protected:
  static std::string Text(frmPopup& popup, const char* name) {
    return ui::FromWx(Find<wxTextCtrl>(popup, name).GetValue());
  }
  /// Shows Acme Tools' remarks as the user sees them and acts on the window.
  void View(const char* user, std::function<void(frmPopup&)> act) {
    const ContextHolder context("CustMaint", "C1044", user);
    View(context, std::move(act));
  }
  void View(const ContextHolder& context, std::function<void(frmPopup&)> act) {
    ModalScript script;
    script.ExpectWindow<frmPopup>(kTitle, std::move(act));
    m_popup.View(*context);
  }

  TestDatabase m_database;
  ScopedVariable m_dates{"LC_ALL", "C"};
  frmPopup m_popup;
};

TEST_F(PopupTest, TheUserReadsThreeRemarksGoesBackAndFinishes) {
  const auto readAll = [](frmPopup& popup) {
    EXPECT_EQ(Text(popup, "txtRemarkType"), "Collections  (jsmith on 2024-03-11)");
    EXPECT_EQ(Text(popup, "txtRemark").substr(0, 13), "Dana promised");
    EXPECT_EQ(Caption(popup, "lblRemarkCounter"), "Remark 1 of 3");
    EXPECT_FALSE(Find<wxButton>(popup, "cmdPrev").IsEnabled());
    Press(popup, "cmdNext");
    Press(popup, "cmdNext");
    EXPECT_EQ(Text(popup, "txtRemarkType"), "Credit  (admin on 2023-12-18)");
    EXPECT_EQ(Caption(popup, "cmdNext"), "&Finish");
    Press(popup, "cmdPrev");
    EXPECT_EQ(Caption(popup, "lblRemarkCounter"), "Remark 2 of 3");
    EXPECT_EQ(Caption(popup, "cmdNext"), "&Next");
    Press(popup, "cmdNext");
    Press(popup, "cmdNext");
    EXPECT_FALSE(popup.IsShown());
  };
  View("jsmith", readAll);
  View("jsmith", readAll);  // from the start again
}

TEST_F(PopupTest, OneRemarkHasNoWayBackAndNoneHasNoWindow) {
  View("mjones", [](frmPopup& popup) {
    EXPECT_FALSE(Find<wxButton>(popup, "cmdPrev").IsShown());
    EXPECT_EQ(Caption(popup, "lblRemarkCounter"), "Remark 1 of 1");
    EXPECT_EQ(Caption(popup, "cmdNext"), "&Finish");
    Press(popup, "cmdNext");
  });
  const ContextHolder context("CustMaint", "C1044", "guest");
  m_popup.View(*context);
}

TEST_F(PopupTest, PastTheEndTheWindowClosesAndTheCallerGetsTheError) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  RemarkAt(context, 2).SetRemarkType(context->Item(std::string("Cust.General")));
  const Error error = Caught([&] {
    View(context, [](frmPopup& popup) {
      Press(popup, "cmdNext");
      EXPECT_EQ(Caption(popup, "lblRemarkCounter"), "Remark 2 of 2");
      EXPECT_EQ(Caption(popup, "cmdNext"), "&Next");
      Press(popup, "cmdNext");
      EXPECT_TRUE(WaitFor([&] { return !popup.IsShown(); }));
    });
  });
  EXPECT_THAT(error, HasNumber(ErrorNumber::ObjectNotSet));

  // Nothing of it is left: where a text cannot be made, the one of the window's beginning stands.
  RemarkAt(context, 1).SetRemarkType(nullptr);
  View(context, [](frmPopup& popup) {
    EXPECT_EQ(Text(popup, "txtRemarkType"), "Text1");
    EXPECT_EQ(Text(popup, "txtRemark").substr(0, 13), "Dana promised");
    Press(popup, "cmdNext");
  });
}

TEST_F(PopupTest, TheKeyboardIsEnough) {
  View("jsmith", [](frmPopup& popup) {
    wxUIActionSimulator keyboard;
    const auto counterIs = [&](const char* text) {
      return WaitFor([&popup, text] { return Caption(popup, "lblRemarkCounter") == text; });
    };
    EXPECT_TRUE(WaitFor([&] { return popup.FindFocus() == &Find<wxWindow>(popup, "txtRemark"); }));
    keyboard.Char(WXK_RETURN);
    EXPECT_TRUE(counterIs("Remark 2 of 3"));
    keyboard.Char('P', wxMOD_ALT);
    EXPECT_TRUE(counterIs("Remark 1 of 3"));
    Find<wxTextCtrl>(popup, "txtRemarkType").SetFocus();
    keyboard.Char(WXK_RETURN);
    EXPECT_TRUE(counterIs("Remark 2 of 3"));
    Find<wxButton>(popup, "cmdPrev").SetFocus();
    keyboard.Char(WXK_SPACE);
    EXPECT_TRUE(counterIs("Remark 1 of 3"));
    keyboard.Char(WXK_SPACE);  // the way back has ended, so the focus is on the way on
    EXPECT_TRUE(counterIs("Remark 2 of 3"));
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return !popup.IsShown(); }));
  });
}

TEST_F(PopupTest, ASecondCallIsRefusedAndDisturbsNothing) {
  const ContextHolder other("CustMaint", "C1001", "jsmith");
  View("jsmith", [&](frmPopup& popup) {
    Press(popup, "cmdNext");
    EXPECT_THAT(Caught([&] { popup.View(*other); }), HasNumber(400));
    EXPECT_EQ(popup.GetTitle(), kTitle);
    Press(popup, "cmdPrev");
    EXPECT_EQ(Text(popup, "txtRemark").substr(0, 13), "Dana promised");
    popup.Close();
  });
}

TEST_F(PopupTest, LongTextsOfAllKindsStandFromTheirBeginning) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  std::string text = "one\r\ntwo\nשלום \xF0\x9F\x94\xA7\r\n";
  for (int i = 0; i < 500; ++i) text += "and so on ";
  RemarkAt(context, 1).SetMemoText(text);
  View(context, [](frmPopup& popup) {
    auto& box = Find<wxTextCtrl>(popup, "txtRemark");
    EXPECT_EQ(Text(popup, "txtRemark").substr(0, 22), "one\ntwo\nשלום \xF0\x9F\x94\xA7\n");
    EXPECT_EQ(box.GetInsertionPoint(), 0);
    EXPECT_FALSE(box.IsEditable());
    EXPECT_TRUE(WaitFor([&] { return box.GetScrollPos(wxVERTICAL) == 0; }));
    Find<wxButton>(popup, "cmdNext").SetFocus();
    wxUIActionSimulator().Char(WXK_PAGEDOWN);
    EXPECT_TRUE(WaitFor([&] { return box.GetScrollPos(wxVERTICAL) > 0; }));
    popup.Close();
  });
}

TEST_F(PopupTest, NothingIsCutOrCoveredDownToTheSmallestSize) {
  View("jsmith", [](frmPopup& popup) {
    for (const wxSize& asked : {wxSize(900, 700), wxSize(10, 10)}) {
      popup.SetClientSize(asked);
      HandleEvents();
      const wxRect inside(popup.GetClientSize());
      for (const wxWindow* control : popup.GetChildren()) {
        const wxString name = control->GetName();
        const wxSize needed = control->GetBestSize();
        EXPECT_TRUE(inside.Contains(control->GetRect())) << name;
        EXPECT_TRUE(control->GetSize().x >= needed.x || name.StartsWith("txt")) << name;
        EXPECT_TRUE(control->GetSize().y >= needed.y || name == "txtRemark") << name;
        for (const wxWindow* other : popup.GetChildren()) {
          EXPECT_TRUE(other == control || !other->GetRect().Intersects(control->GetRect())) << name;
        }
      }
    }
    EXPECT_GE(popup.Scale().WindowSizeOf(popup.GetClientSize()).width, 5640 - 15);
    EXPECT_GE(popup.Scale().WindowSizeOf(popup.GetClientSize()).height, 2800 - 15);
    popup.Close();
  });
}

}  // namespace
}  // namespace quorvel::test
