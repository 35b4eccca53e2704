// The editor by keyboard alone.
#include <gmock/gmock.h>

#include <string>

#include <wx/menu.h>
#include <wx/uiaction.h>

#include "tests/remark_ui/EditTest.h"

namespace quorvel::test {
namespace {

using testing::StartsWith;

TEST_F(EditTest, DownAfterDeleteGoesToTheRowThatFollowed) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  View(context, [&] {
    wxUIActionSimulator keyboard;
    Grid().SetFocus();
    EXPECT_TRUE(HasFocus(Grid()));
    // The only remark of its group takes the heading with it.
    for (const std::int32_t position : {kGeneral, 3}) {
      Go(position);
      std::int32_t line = Grid().CurrentLine() + 1;
      while (Grid().RowIndex(line) == 0) ++line;
      const std::string next = RemarkAt(context, Grid().RowIndex(line)).MemoText();
      keyboard.Char(WXK_DELETE);
      EXPECT_TRUE(WaitFor([&] { return Position() == 0; })) << position;
      keyboard.Char(WXK_DOWN);
      EXPECT_TRUE(WaitFor([&] { return Text() == next; })) << position;
    }
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(Closes());
  });
}

TEST_F(EditTest, MenuOfTheGridDoesWhatTheButtonsDo) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  View(context, [&] {
    wxUIActionSimulator keyboard;
    Grid().SetFocus();
    EXPECT_TRUE(HasFocus(Grid()));
    const std::int32_t count = context->MemoCount();
    std::string enabled;
    int key = 'D';
    m_form.Bind(wxEVT_MENU_OPEN, [&](wxMenuEvent& event) {
      for (const wxMenuItem* item : event.GetMenu()->GetMenuItems()) {
        if (item->IsEnabled()) enabled += ui::FromWx(item->GetItemLabelText()) + ' ';
      }
      m_form.CallAfter([&] { keyboard.Char(key); });
    });
    keyboard.Char(WXK_F10, wxMOD_SHIFT);
    EXPECT_TRUE(WaitFor([&] { return context->MemoCount() == count - 1; }));
    EXPECT_EQ(enabled, "New Save Delete Close ");
    enabled.clear();
    key = WXK_ESCAPE;
    keyboard.Char(WXK_F10, wxMOD_SHIFT);
    EXPECT_TRUE(WaitFor([&] { return !enabled.empty(); }));
    EXPECT_EQ(enabled, "New Close ") << "none is selected after Delete";
    EXPECT_TRUE(m_form.IsShown()) << "Esc leaves the menu first";
    Click("cmdClose");
  });
}

TEST_F(EditTest, KeyboardReachesEverything) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  View(context, [&] {
    wxUIActionSimulator keyboard;
    EXPECT_TRUE(HasFocus(Grid()));
    keyboard.Char(WXK_DOWN);
    EXPECT_TRUE(WaitFor([&] { return Position() == 2; }));
    keyboard.Char(WXK_RETURN);
    keyboard.Char(WXK_TAB);  // to the list of types, whose focus the toolkit does not report
    for (const char* next : {"txtRemark", "cmdNew", "cmdSave", "cmdDelete", "cmdClose", "gdxMemos"}) {
      keyboard.Char(WXK_TAB);
      EXPECT_TRUE(HasFocus(The<wxWindow>(next))) << next;
    }
    EXPECT_EQ(Position(), 2);

    TextBox().SetFocus();
    EXPECT_TRUE(HasFocus(TextBox()));
    keyboard.Char('x');
    keyboard.Char(WXK_RETURN);
    keyboard.Char(WXK_RETURN, wxMOD_CONTROL);
    const auto isSaved = [&](const std::string& start) {
      return WaitFor([&] { return RemarkAt(context, 2).MemoText().substr(0, start.size()) == start; });
    };
    EXPECT_TRUE(isSaved("x\r\nInvoice"));
    EXPECT_EQ(TextBox().GetInsertionPoint(), 2) << "the user continues typing";
    keyboard.Char('y');
    keyboard.Char('S', wxMOD_ALT);
    EXPECT_TRUE(isSaved("x\r\nyInvoice"));
    keyboard.Char('z');
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(HasFocus(Grid())) << "Esc leaves the text first";
    keyboard.Char(WXK_END);
    EXPECT_TRUE(WaitFor([&] { return Position() > kGeneral; }));
    const std::int32_t count = context->MemoCount();
    keyboard.Char(WXK_DELETE);
    EXPECT_TRUE(WaitFor([&] { return context->MemoCount() == count - 1; }));
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(Closes());
  });
  EXPECT_THAT(RemarkAt(context, 2).MemoText(), StartsWith("x\r\nyzInvoice"));
}

TEST_F(EditTest, FindLeadsToTheNextRemarkWithTheText) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  for (int i = 0; i < 2000; ++i) context->AddRemark(Number(1), i % 1000 == 777 ? "has xyzzy in it" : "has not");
  View(context, [&] {
    wxUIActionSimulator keyboard;
    auto& field = The<wxTextCtrl>("txtFind");
    EXPECT_TRUE(HasFocus(Grid()));
    const auto found = [&] { return Text() == "has xyzzy in it"; };
    const auto isNotFound = [&] { return The<wxWindow>("lblFindResult").IsShown(); };
    const int height = Grid().GetSize().y;
    for (const char key : {'X', 'Y', 'Z'}) keyboard.Char(key);
    EXPECT_TRUE(WaitFor([&] { return field.GetValue() == "xyz"; })) << "the first letter opens the field";
    EXPECT_TRUE(WaitFor(found));
    EXPECT_LT(Grid().GetSize().y, height);
    EXPECT_TRUE(Grid().IsVisible(Grid().CurrentLine() - 1, 0));
    const std::int32_t first = Position();
    keyboard.Char(WXK_RETURN);
    EXPECT_TRUE(WaitFor([&] { return found() && Position() != first; }));
    keyboard.Char(WXK_F3);
    EXPECT_TRUE(WaitFor([&] { return Position() == first; })) << "begins again at the top";
    keyboard.Char('Q');
    EXPECT_TRUE(WaitFor(isNotFound));
    EXPECT_EQ(Position(), first);
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(HasFocus(Grid()));
    EXPECT_EQ(Grid().GetSize().y, height);
    TextBox().SetFocus();
    keyboard.Char('F', wxMOD_CONTROL);
    EXPECT_TRUE(HasFocus(field));
    EXPECT_EQ(field.GetStringSelection(), "xyzq") << "the next letter replaces it";
    keyboard.Char(WXK_TAB);
    keyboard.Char(WXK_TAB);
    EXPECT_TRUE(HasFocus(TextBox()));
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return !field.IsShownOnScreen(); }));
    keyboard.Char(WXK_ESCAPE);
    EXPECT_TRUE(Closes());
  });
}

TEST_F(EditTest, TypingIsUndoneByWords) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  const std::string before = RemarkAt(context, 1).MemoText();
  RemarkAt(context, 2).SetMemoText("one tw");
  View(context, [&] {
    wxUIActionSimulator keyboard;
    const auto type = [&](const char* keys) {
      for (; *keys != '\0'; ++keys) keyboard.Char(*keys);
    };
    const auto shows = [&](const std::string& text) {
      EXPECT_TRUE(WaitFor([&] { return Text() == text; })) << Text() << " instead of " << text;
    };
    const auto undo = [&](const std::string& text) {
      keyboard.Char('Z', wxMOD_CONTROL);
      shows(text);
    };
    TextBox().SetFocus();
    EXPECT_TRUE(HasFocus(TextBox()));
    keyboard.Char('A', wxMOD_CONTROL);
    type("ONE TWO");
    keyboard.Char(WXK_BACK);
    shows("one tw");
    undo("one two");
    undo("one ");
    keyboard.Char('Y', wxMOD_CONTROL);
    shows("one two");
    keyboard.Char('Z', wxMOD_CONTROL | wxMOD_SHIFT);
    shows("one tw");
    Click("cmdSave");
    undo("one two");
    undo("one ");
    undo(before);
    undo(before);
    EXPECT_TRUE(CanPress("cmdSave")) << "the stored text is another one now";
    keyboard.Char('Y', wxMOD_CONTROL);
    shows("one ");
    type("TW");
    shows("one tw");
    Go(2);
    EXPECT_EQ(Position(), 2);
    keyboard.Char('Z', wxMOD_CONTROL);
    type("X");
    shows("one twx");
    Click("cmdClose");
  });
}

}  // namespace
}  // namespace quorvel::test
