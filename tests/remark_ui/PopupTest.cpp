// The pop-up as its user sees it. The rules of the walk are tested without a window in PopupWalkTest.
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
  /// Shows the remarks of Acme Tools and acts on the window.
  void View(const ContextHolder& context, std::function<void(frmPopup&)> act) {
    ModalScript script;
    script.ExpectWindow<frmPopup>(kTitle, std::move(act));
    m_popup.View(*context);
  }

  TestDatabase m_database;
  ScopedVariable m_dates{"LC_ALL", "C"};
  ContextHolder m_context{"CustMaint", "C1044", "jsmith"};  ///< three remarks pop up
  frmPopup m_popup;
};

TEST_F(PopupTest, ButtonsWalkFromTheFirstRemarkAtEachView) {
  const auto readAll = [](frmPopup& popup) {
    EXPECT_EQ(Text(popup, "txtRemarkType"), "Collections  (jsmith on 2024-03-11)");
    EXPECT_EQ(Text(popup, "txtRemark").substr(0, 13), "Dana promised");
    EXPECT_EQ(Caption(popup, "lblRemarkCounter"), "Remark 1 of 3");
    EXPECT_FALSE(Find<wxButton>(popup, "cmdPrev").IsEnabled());
    Press(popup, "cmdNext");
    Press(popup, "cmdNext");
    EXPECT_EQ(Text(popup, "txtRemarkType"), "Credit  (admin on 2023-12-18)");
    EXPECT_EQ(Caption(popup, "cmdNext"), "&Finish");
    Press(popup, "cmdNext");
    EXPECT_FALSE(popup.IsShown());
  };
  View(m_context, readAll);
  View(m_context, readAll);
  View(ContextHolder("CustMaint", "C1044", "mjones"), [](frmPopup& popup) {
    EXPECT_FALSE(Find<wxButton>(popup, "cmdPrev").IsShown());
    EXPECT_EQ(Caption(popup, "cmdNext"), "&Finish");
    Press(popup, "cmdNext");
  });
  m_popup.View(*ContextHolder("CustMaint", "C1044", "guest"));  // no remark pops up, so no window opens
}

TEST_F(PopupTest, KeyboardWalksAndScrolls) {
  std::string text = "one\r\ntwo\nשלום \xF0\x9F\x94\xA7\r\n";
  for (int i = 0; i < 500; ++i) text += "and so on ";
  RemarkAt(m_context, 1).SetMemoText(text);
  View(m_context, [](frmPopup& popup) {
    wxUIActionSimulator keyboard;
    auto& box = Find<wxTextCtrl>(popup, "txtRemark");
    const auto counterIs = [&](const char* expected) {
      return WaitFor([&popup, expected] { return Caption(popup, "lblRemarkCounter") == expected; });
    };
    EXPECT_TRUE(WaitFor([&] { return popup.FindFocus() == &box && box.GetScrollPos(wxVERTICAL) == 0; }));
    EXPECT_EQ(Text(popup, "txtRemark").substr(0, 22), "one\ntwo\nשלום \xF0\x9F\x94\xA7\n");
    EXPECT_EQ(box.GetInsertionPoint(), 0);
    EXPECT_FALSE(box.IsEditable());
    Find<wxButton>(popup, "cmdNext").SetFocus();
    keyboard.Char(WXK_PAGEDOWN);
    EXPECT_TRUE(WaitFor([&] { return box.GetScrollPos(wxVERTICAL) > 0; }));

    box.SetFocus();
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
    keyboard.Char(WXK_SPACE);  // Previous is disabled now, so Next has the focus
    EXPECT_TRUE(counterIs("Remark 2 of 3"));
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return !popup.IsShown(); }));
  });
}

TEST_F(PopupTest, ErrorOfTheWalkClosesTheWindowAndReachesTheCaller) {
  const ContextHolder other("CustMaint", "C1001", "jsmith");
  RemarkAt(m_context, 2).SetRemarkType(m_context->Item(std::string("Cust.General")));
  const Error error = Caught([&] {
    View(m_context, [&](frmPopup& popup) {
      EXPECT_THAT(Caught([&] { popup.View(*other); }), HasNumber(400));
      EXPECT_EQ(popup.GetTitle(), kTitle);
      Press(popup, "cmdNext");
      EXPECT_EQ(Caption(popup, "cmdNext"), "&Next");
      Press(popup, "cmdNext");
      EXPECT_TRUE(WaitFor([&] { return !popup.IsShown(); }));
    });
  });
  EXPECT_THAT(error, HasNumber(ErrorNumber::ObjectNotSet));

  // A line that cannot be made shows the text of a new window, not of the previous View.
  RemarkAt(m_context, 1).SetRemarkType(nullptr);
  View(m_context, [](frmPopup& popup) {
    EXPECT_EQ(Text(popup, "txtRemarkType"), "Text1");
    EXPECT_EQ(Text(popup, "txtRemark").substr(0, 13), "Dana promised");
    Press(popup, "cmdNext");
  });
}

TEST_F(PopupTest, ControlsFitDownToTheSmallestSize) {
  View(m_context, [](frmPopup& popup) {
    for (const wxSize& asked : {wxSize(900, 700), wxSize(10, 10)}) {
      popup.SetClientSize(asked);
      HandleEvents();
      ExpectApart(popup, {"Label2", "txtRemarkType", "Label1", "txtRemark", "lblRemarkCounter", "cmdPrev", "cmdNext"});
      ExpectUncut(popup, {"Label2", "Label1", "lblRemarkCounter", "cmdPrev", "cmdNext"});
      EXPECT_GE(Find<wxTextCtrl>(popup, "txtRemarkType").GetClientSize().y, popup.GetCharHeight());
    }
    popup.Close();
  });
}

}  // namespace
}  // namespace quorvel::test
