// The pop-up as its user sees it. The rules of the walk are tested without a window in PopupWalkTest.
#include <gtk/gtk.h>

#include <wx/uiaction.h>

#include "remark_ui/frmPopup.h"
#include "tests/remark_ui/FormTest.h"

namespace quorvel::test {
namespace {

class PopupTest : public FormTest<frmPopup> {
 protected:
  /// Clicks after the shown remark was drawn.
  void Click(const char* name) {
    WaitUntilDrawn(m_form);
    FormTest::Click(name);
  }

  ScopedVariable m_dates{"LC_ALL", "C"};
  ContextHolder m_context{"CustMaint", "C1044", "jsmith"};  ///< three remarks pop up
};

TEST_F(PopupTest, ButtonsWalkFromTheFirstRemarkAtEachView) {
  const auto readAll = [&] {
    EXPECT_EQ(Text("txtRemarkType"), "Collections  (jsmith on 2024-03-11)");
    EXPECT_EQ(Text("txtRemark").substr(0, 13), "Dana promised");
    EXPECT_EQ(Caption("lblRemarkCounter"), "Remark 1 of 3");
    EXPECT_FALSE(The<wxButton>("cmdPrev").IsEnabled());
    Click("cmdNext");
    Press(m_form, "cmdNext");
    EXPECT_EQ(Caption("lblRemarkCounter"), "Remark 2 of 3") << "a click from before the remark was drawn is dropped";
    Click("cmdNext");
    EXPECT_EQ(Text("txtRemarkType"), "Credit  (admin on 2023-12-18)");
    EXPECT_EQ(Caption("cmdNext"), "&Finish");
    Click("cmdNext");
    EXPECT_FALSE(m_form.IsShown());
  };
  View(m_context, readAll);
  View(m_context, readAll);
  View(ContextHolder("CustMaint", "C1044", "mjones"), [&] {
    EXPECT_FALSE(The<wxButton>("cmdPrev").IsShown());
    EXPECT_EQ(Caption("cmdNext"), "&Finish");
    Click("cmdNext");
  });
  m_form.View(*ContextHolder("CustMaint", "C1044", "guest"));  // no remark pops up, so no window opens
}

TEST_F(PopupTest, KeyboardWalksAndScrolls) {
  std::string text = "one\r\ntwo\nשלום \xF0\x9F\x94\xA7\r\n";
  for (int i = 0; i < 500; ++i) text += "and so on ";
  RemarkAt(m_context, 1).SetMemoText(text);
  View(m_context, [&] {
    wxUIActionSimulator keyboard;
    auto& box = The<wxTextCtrl>("txtRemark");
    const auto counterIs = [&](const char* expected) {
      return WaitFor([this, expected] { return Caption("lblRemarkCounter") == expected; });
    };
    EXPECT_TRUE(WaitFor([&] { return m_form.FindFocus() == &box && box.GetScrollPos(wxVERTICAL) == 0; }));
    EXPECT_EQ(Text("txtRemark").substr(0, 22), "one\ntwo\nשלום \xF0\x9F\x94\xA7\n");
    EXPECT_EQ(box.GetInsertionPoint(), 0);
    EXPECT_FALSE(box.IsEditable());
    The<wxButton>("cmdNext").SetFocus();
    keyboard.Char(WXK_PAGEDOWN);
    EXPECT_TRUE(WaitFor([&] { return box.GetScrollPos(wxVERTICAL) > 0; }));

    for (const char* name : {"txtRemark", "txtRemarkType"}) {
      The<wxTextCtrl>(name).SetFocus();
      keyboard.Char(WXK_RETURN);
    }
    keyboard.Char('N', wxMOD_ALT);
    EXPECT_TRUE(counterIs("Remark 2 of 3")) << "Enter in a text is no answer";
    The<wxButton>("cmdPrev").SetFocus();
    keyboard.Char(WXK_SPACE);
    EXPECT_TRUE(counterIs("Remark 1 of 3"));
    keyboard.Char(WXK_SPACE);  // Previous is disabled now, so Next has the focus
    EXPECT_TRUE(counterIs("Remark 2 of 3"));
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(Closes());
  });
}

TEST_F(PopupTest, ErrorOfTheWalkClosesTheWindowAndReachesTheCaller) {
  const ContextHolder other("CustMaint", "C1001", "jsmith");
  RemarkAt(m_context, 2).SetRemarkType(m_context->Item(std::string("Cust.General")));
  const Error error = Caught([&] {
    View(m_context, [&] {
      EXPECT_THAT(Caught([&] { m_form.View(*other); }), HasNumber(400));
      EXPECT_EQ(m_form.GetTitle(), kTitle);
      Click("cmdNext");
      EXPECT_EQ(Caption("cmdNext"), "&Next");
      Click("cmdNext");
      EXPECT_TRUE(Closes());
    });
  });
  EXPECT_THAT(error, HasNumber(ErrorNumber::ObjectNotSet));

  // A line that cannot be made shows the text of a new window, not of the previous View.
  RemarkAt(m_context, 1).SetRemarkType(nullptr);
  View(m_context, [&] {
    EXPECT_EQ(Text("txtRemarkType"), "Text1");
    EXPECT_EQ(Text("txtRemark").substr(0, 13), "Dana promised");
    Click("cmdNext");
  });
}

TEST_F(PopupTest, ControlsFitDownToTheSmallestSize) {
  View(m_context, [&] {
    ExpectControlsFit({"Label2", "txtRemarkType", "Label1", "txtRemark", "lblRemarkCounter", "cmdPrev", "cmdNext"},
                      {"Label2", "Label1", "lblRemarkCounter", "cmdPrev", "cmdNext"});
    EXPECT_GE(The<wxTextCtrl>("txtRemarkType").GetClientSize().y, m_form.GetCharHeight());
    m_form.Close();
  });
}

TEST_F(PopupTest, LabelsStandOnTheBaseLineOfTheirNeighbours) {
  // One font, so texts that begin at one height stand on one base line.
  const auto textTop = [this](const char* name) {
    GtkWidget* text = The<wxWindow>(name).GetHandle();
    int top = 0;
    if (GTK_IS_ENTRY(text) != FALSE) {
      gtk_entry_get_layout_offsets(GTK_ENTRY(text), nullptr, &top);
      GtkAllocation place{};
      gtk_widget_get_allocation(text, &place);
      return place.y + top;
    }
    if (GTK_IS_BUTTON(text) != FALSE) text = gtk_bin_get_child(GTK_BIN(text));
    gtk_label_get_layout_offsets(GTK_LABEL(text), nullptr, &top);
    return top;
  };
  View(m_context, [&] {
    WaitUntilDrawn(m_form);
    EXPECT_NEAR(textTop("Label2"), textTop("txtRemarkType"), 1);
    EXPECT_NEAR(textTop("lblRemarkCounter"), textTop("cmdNext"), 1);
    m_form.Close();
  });
}

}  // namespace
}  // namespace quorvel::test
