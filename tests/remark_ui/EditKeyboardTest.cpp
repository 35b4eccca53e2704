// The editor by keyboard alone.

#include <string>

#include <wx/menu.h>
#include <wx/uiaction.h>

#include "tests/remark_ui/EditTest.h"

namespace quorvel::test {
namespace {

class EditKeyboardTest : public EditTest {
 protected:
  EditKeyboardTest() { m_context->SetEditBehavior(EditBehavior::NoAutoSave); }

  const ContextHolder m_context{"CustMaint", "C1044", "admin"};
  wxUIActionSimulator m_keyboard;
};

TEST_F(EditKeyboardTest, DownAfterDeleteGoesToTheRowThatFollowed) {
  View(m_context, [&] {
    Grid().SetFocus();
    EXPECT_TRUE(HasFocus(Grid()));
    // The only remark of its group takes the heading with it.
    for (const std::int32_t position : {kGeneral, 3}) {
      Go(position);
      std::int32_t line = Grid().CurrentLine() + 1;
      while (Grid().RowIndex(line) == 0) ++line;
      const std::string next = RemarkAt(m_context, Grid().RowIndex(line)).MemoText();
      m_keyboard.Char(WXK_DELETE);
      EXPECT_TRUE(WaitFor([&] { return Position() == 0; })) << position;
      m_keyboard.Char(WXK_DOWN);
      EXPECT_TRUE(WaitFor([&] { return Text() == next; })) << position;
    }
    m_keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(Closes());
  });
}

TEST_F(EditKeyboardTest, MenuOfTheGridDoesWhatTheButtonsDo) {
  ViewAndClose(m_context, [&] {
    Grid().SetFocus();
    EXPECT_TRUE(HasFocus(Grid()));
    const std::int32_t count = m_context->MemoCount();
    std::string enabled;
    int key = 'D';
    m_form.Bind(wxEVT_MENU_OPEN, [&](wxMenuEvent& event) {
      for (const wxMenuItem* item : event.GetMenu()->GetMenuItems()) {
        if (item->IsEnabled()) enabled += ui::FromWx(item->GetItemLabelText()) + ' ';
      }
      m_form.CallAfter([&] { m_keyboard.Char(key); });
    });
    m_keyboard.Char(WXK_F10, wxMOD_SHIFT);
    EXPECT_TRUE(WaitFor([&] { return m_context->MemoCount() == count - 1; }));
    EXPECT_EQ(enabled, "New Save Delete Close ");
    enabled.clear();
    key = WXK_ESCAPE;
    m_keyboard.Char(WXK_F10, wxMOD_SHIFT);
    EXPECT_TRUE(WaitFor([&] { return !enabled.empty(); }));
    EXPECT_EQ(enabled, "New Close ") << "none is selected after Delete";
    EXPECT_TRUE(m_form.IsShown()) << "Esc leaves the menu first";
  });
}

TEST_F(EditKeyboardTest, KeyboardReachesEverything) {
  View(m_context, [&] {
    EXPECT_TRUE(HasFocus(Grid()));
    m_keyboard.Char(WXK_DOWN);
    EXPECT_TRUE(WaitFor([&] { return Position() == 2; }));
    m_keyboard.Char(WXK_RETURN);
    m_keyboard.Char(WXK_TAB);  // to the list of types, whose focus the toolkit does not report
    for (const char* next : {"txtRemark", "cmdNew", "cmdSave", "cmdDelete", "cmdClose", "gdxMemos"}) {
      m_keyboard.Char(WXK_TAB);
      EXPECT_TRUE(HasFocus(The<wxWindow>(next))) << next;
    }
    EXPECT_EQ(Position(), 2);

    TextBox().SetFocus();
    EXPECT_TRUE(HasFocus(TextBox()));
    m_keyboard.Char('x');
    m_keyboard.Char(WXK_RETURN);
    m_keyboard.Char(WXK_RETURN, wxMOD_CONTROL);
    const auto isSaved = [&](const std::string& start) {
      return WaitFor([&] { return RemarkAt(m_context, 2).MemoText().substr(0, start.size()) == start; });
    };
    EXPECT_TRUE(isSaved("x\r\nInvoice"));
    EXPECT_EQ(TextBox().GetInsertionPoint(), 2) << "the user continues typing";
    m_keyboard.Char('y');
    m_keyboard.Char('S', wxMOD_ALT);
    EXPECT_TRUE(isSaved("x\r\nyInvoice"));
    m_keyboard.Char('z');
    m_keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(HasFocus(Grid())) << "Esc leaves the text first";
    m_keyboard.Char(WXK_END);
    EXPECT_TRUE(WaitFor([&] { return Position() > kGeneral; }));
    const std::int32_t count = m_context->MemoCount();
    m_keyboard.Char(WXK_DELETE);
    EXPECT_TRUE(WaitFor([&] { return m_context->MemoCount() == count - 1; }));
    m_keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(Closes());
  });
  EXPECT_THAT(RemarkAt(m_context, 2).MemoText(), StartsWith("x\r\nyzInvoice"));
}

TEST_F(EditKeyboardTest, FindLeadsToTheNextRemarkWithTheText) {
  for (int i = 0; i < 2000; ++i) m_context->AddRemark(Number(1), i % 1000 == 777 ? "has xyzzy in it" : "has not");
  View(m_context, [&] {
    auto& field = The<wxTextCtrl>("txtFind");
    EXPECT_TRUE(HasFocus(Grid()));
    const auto found = [&] { return Text() == "has xyzzy in it"; };
    const auto isNotFound = [&] { return The<wxWindow>("lblFindResult").IsShown(); };
    const int height = Grid().GetSize().y;
    for (const char key : {'X', 'Y', 'Z'}) m_keyboard.Char(key);
    EXPECT_TRUE(WaitFor([&] { return field.GetValue() == "xyz"; })) << "the first letter opens the field";
    EXPECT_TRUE(WaitFor(found));
    EXPECT_LT(Grid().GetSize().y, height);
    EXPECT_TRUE(Grid().IsVisible(Grid().CurrentLine() - 1, 0));
    const std::int32_t first = Position();
    m_keyboard.Char(WXK_RETURN);
    EXPECT_TRUE(WaitFor([&] { return found() && Position() != first; }));
    m_keyboard.Char(WXK_F3);
    EXPECT_TRUE(WaitFor([&] { return Position() == first; })) << "begins again at the top";
    m_keyboard.Char('Q');
    EXPECT_TRUE(WaitFor(isNotFound));
    EXPECT_EQ(Position(), first);
    m_keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(HasFocus(Grid()));
    EXPECT_EQ(Grid().GetSize().y, height);
    TextBox().SetFocus();
    m_keyboard.Char('F', wxMOD_CONTROL);
    EXPECT_TRUE(HasFocus(field));
    EXPECT_EQ(field.GetStringSelection(), "xyzq") << "the next letter replaces it";
    m_keyboard.Char(WXK_TAB);
    m_keyboard.Char(WXK_TAB);
    EXPECT_TRUE(HasFocus(TextBox()));
    m_keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return !field.IsShownOnScreen(); }));
    m_keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(Closes());
  });
}

TEST_F(EditKeyboardTest, TypingIsUndoneByWords) {
  const std::string before = RemarkAt(m_context, 1).MemoText();
  RemarkAt(m_context, 2).SetMemoText("one tw");
  ViewAndClose(m_context, [&] {
    const auto type = [&](const char* keys) {
      for (; *keys != '\0'; ++keys) m_keyboard.Char(*keys);
    };
    const auto shows = [&](const std::string& text) {
      EXPECT_TRUE(WaitFor([&] { return Text() == text; })) << Text() << " instead of " << text;
    };
    const auto undo = [&](const std::string& text) {
      m_keyboard.Char('Z', wxMOD_CONTROL);
      shows(text);
    };
    TextBox().SetFocus();
    EXPECT_TRUE(HasFocus(TextBox()));
    m_keyboard.Char('A', wxMOD_CONTROL);
    type("ONE TWO");
    m_keyboard.Char(WXK_BACK);
    shows("one tw");
    undo("one two");
    undo("one ");
    m_keyboard.Char('Y', wxMOD_CONTROL);
    shows("one two");
    m_keyboard.Char('Z', wxMOD_CONTROL | wxMOD_SHIFT);
    shows("one tw");
    Click("cmdSave");
    undo("one two");
    undo("one ");
    undo(before);
    undo(before);
    EXPECT_TRUE(CanPress("cmdSave")) << "the stored text is another one now";
    m_keyboard.Char('Y', wxMOD_CONTROL);
    shows("one ");
    type("TW");
    shows("one tw");
    Go(2);
    EXPECT_EQ(Position(), 2);
    m_keyboard.Char('Z', wxMOD_CONTROL);
    type("X");
    shows("one twx");
  });
}

}  // namespace
}  // namespace quorvel::test
