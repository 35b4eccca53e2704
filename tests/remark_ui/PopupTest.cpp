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
  std::string Text(const char* name) { return ui::FromWx(Find<wxTextCtrl>(m_popup, name).GetValue()); }
  /// Shows the remarks of Acme Tools and acts on the window.
  void View(const ContextHolder& context, const std::function<void()>& act) {
    ModalScript script;
    script.ExpectWindow<frmPopup>(kTitle, [&](frmPopup& /*window*/) { act(); });
    m_popup.View(*context);
  }

  TestDatabase m_database;
  ScopedVariable m_dates{"LC_ALL", "C"};
  ContextHolder m_context{"CustMaint", "C1044", "jsmith"};  ///< three remarks pop up
  frmPopup m_popup;
};

TEST_F(PopupTest, ButtonsWalkFromTheFirstRemarkAtEachView) {
  const auto readAll = [&] {
    EXPECT_EQ(Text("txtRemarkType"), "Collections  (jsmith on 2024-03-11)");
    EXPECT_EQ(Text("txtRemark").substr(0, 13), "Dana promised");
    EXPECT_EQ(Caption(m_popup, "lblRemarkCounter"), "Remark 1 of 3");
    EXPECT_FALSE(Find<wxButton>(m_popup, "cmdPrev").IsEnabled());
    Press(m_popup, "cmdNext");
    Press(m_popup, "cmdNext");
    EXPECT_EQ(Text("txtRemarkType"), "Credit  (admin on 2023-12-18)");
    EXPECT_EQ(Caption(m_popup, "cmdNext"), "&Finish");
    Press(m_popup, "cmdNext");
    EXPECT_FALSE(m_popup.IsShown());
  };
  View(m_context, readAll);
  View(m_context, readAll);
  View(ContextHolder("CustMaint", "C1044", "mjones"), [&] {
    EXPECT_FALSE(Find<wxButton>(m_popup, "cmdPrev").IsShown());
    EXPECT_EQ(Caption(m_popup, "cmdNext"), "&Finish");
    Press(m_popup, "cmdNext");
  });
  m_popup.View(*ContextHolder("CustMaint", "C1044", "guest"));  // no remark pops up, so no window opens
}

TEST_F(PopupTest, KeyboardWalksAndScrolls) {
  std::string text = "one\r\ntwo\nשלום \xF0\x9F\x94\xA7\r\n";
  for (int i = 0; i < 500; ++i) text += "and so on ";
  RemarkAt(m_context, 1).SetMemoText(text);
  View(m_context, [&] {
    wxUIActionSimulator keyboard;
    auto& box = Find<wxTextCtrl>(m_popup, "txtRemark");
    const auto counterIs = [&](const char* expected) {
      return WaitFor([this, expected] { return Caption(m_popup, "lblRemarkCounter") == expected; });
    };
    EXPECT_TRUE(WaitFor([&] { return m_popup.FindFocus() == &box && box.GetScrollPos(wxVERTICAL) == 0; }));
    EXPECT_EQ(Text("txtRemark").substr(0, 22), "one\ntwo\nשלום \xF0\x9F\x94\xA7\n");
    EXPECT_EQ(box.GetInsertionPoint(), 0);
    EXPECT_FALSE(box.IsEditable());
    Find<wxButton>(m_popup, "cmdNext").SetFocus();
    keyboard.Char(WXK_PAGEDOWN);
    EXPECT_TRUE(WaitFor([&] { return box.GetScrollPos(wxVERTICAL) > 0; }));

    box.SetFocus();
    keyboard.Char(WXK_RETURN);
    EXPECT_TRUE(counterIs("Remark 2 of 3"));
    keyboard.Char('P', wxMOD_ALT);
    EXPECT_TRUE(counterIs("Remark 1 of 3"));
    Find<wxTextCtrl>(m_popup, "txtRemarkType").SetFocus();
    keyboard.Char(WXK_RETURN);
    EXPECT_TRUE(counterIs("Remark 2 of 3"));
    Find<wxButton>(m_popup, "cmdPrev").SetFocus();
    keyboard.Char(WXK_SPACE);
    EXPECT_TRUE(counterIs("Remark 1 of 3"));
    keyboard.Char(WXK_SPACE);  // Previous is disabled now, so Next has the focus
    EXPECT_TRUE(counterIs("Remark 2 of 3"));
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return !m_popup.IsShown(); }));
  });
}

TEST_F(PopupTest, ErrorOfTheWalkClosesTheWindowAndReachesTheCaller) {
  const ContextHolder other("CustMaint", "C1001", "jsmith");
  RemarkAt(m_context, 2).SetRemarkType(m_context->Item(std::string("Cust.General")));
  const Error error = Caught([&] {
    View(m_context, [&] {
      EXPECT_THAT(Caught([&] { m_popup.View(*other); }), HasNumber(400));
      EXPECT_EQ(m_popup.GetTitle(), kTitle);
      Press(m_popup, "cmdNext");
      EXPECT_EQ(Caption(m_popup, "cmdNext"), "&Next");
      Press(m_popup, "cmdNext");
      EXPECT_TRUE(WaitFor([&] { return !m_popup.IsShown(); }));
    });
  });
  EXPECT_THAT(error, HasNumber(ErrorNumber::ObjectNotSet));

  // A line that cannot be made shows the text of a new window, not of the previous View.
  RemarkAt(m_context, 1).SetRemarkType(nullptr);
  View(m_context, [&] {
    EXPECT_EQ(Text("txtRemarkType"), "Text1");
    EXPECT_EQ(Text("txtRemark").substr(0, 13), "Dana promised");
    Press(m_popup, "cmdNext");
  });
}

TEST_F(PopupTest, ControlsFitDownToTheSmallestSize) {
  View(m_context, [&] {
    for (const wxSize& asked : {wxSize(900, 700), wxSize(10, 10)}) {
      m_popup.SetClientSize(asked);
      HandleEvents();
      ExpectApart(m_popup,
                  {"Label2", "txtRemarkType", "Label1", "txtRemark", "lblRemarkCounter", "cmdPrev", "cmdNext"});
      ExpectUncut(m_popup, {"Label2", "Label1", "lblRemarkCounter", "cmdPrev", "cmdNext"});
      EXPECT_GE(Find<wxTextCtrl>(m_popup, "txtRemarkType").GetClientSize().y, m_popup.GetCharHeight());
    }
    m_popup.Close();
  });
}

}  // namespace
}  // namespace quorvel::test
