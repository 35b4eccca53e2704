// The editor as its user sees it. Its rules are tested without a window in EditRulesTest.
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <wx/choice.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/uiaction.h>

#include "data/modUserName.h"
#include "data/modWaitCursor.h"
#include "grid/DataGrid.h"
#include "platform/ShortDate.h"
#include "remark_ui/frmChooseType.h"
#include "remark_ui/frmEdit.h"
#include "tests/remark_ui/FormTest.h"

namespace quorvel::test {
namespace {

using testing::StartsWith;

/// The position of the first General remark of Acme Tools; Collections and Credit come before.
constexpr std::int32_t kGeneral = 4;
constexpr const char* kCountGenerals = "SELECT COUNT(*) FROM tciMemo WHERE OwnerKey = 45 AND MemoType = 'Cust.General'";

class EditTest : public FormTest<frmEdit> {
 protected:
  // The open editor as its user sees it.
  DataGrid& Grid() { return The<DataGrid>("gdxMemos"); }
  wxTextCtrl& TextBox() { return The<wxTextCtrl>("txtRemark"); }
  wxChoice& Types() { return The<wxChoice>("cboRemarkType"); }
  std::string ChosenType() { return ui::FromWx(Types().GetStringSelection()); }
  std::string Text() { return FormTest::Text("txtRemark"); }
  std::string Frame() { return Caption("fmViewRemark"); }
  bool CanPress(const char* name) { return The<wxButton>(name).IsEnabled(); }
  std::int32_t Position() { return Grid().RowIndex(Grid().CurrentLine()); }
  static bool HasFocus(const wxWindow& control) {
    return WaitFor([&control] { return control.IsDescendant(wxWindow::FindFocus()); });
  }

  /// Begins a new remark of a type.
  void ClickNew(const char* type) {
    ModalScript chooser;
    chooser.ExpectWindow<frmChooseType>("Choose Remark Type", [type](frmChooseType& dialog) {
      Find<wxListBox>(dialog, "lstRemarkType").SetStringSelection(type);
      Press(dialog, "cmdOK");
    });
    Click("cmdNew");
    EXPECT_EQ(ChosenType(), type);
  }
  void Go(std::int32_t position) { Grid().SelectRowIndex(position); }
  /// Replaces the text in the box.
  void Type(const std::string& text) {
    ASSERT_TRUE(TextBox().IsEditable());
    TextBox().SetValue(ui::ToWx(text));
  }
  void Choose(const char* caption) {
    ASSERT_TRUE(Types().IsEnabled() && Types().SetStringSelection(caption)) << caption;
    wxCommandEvent chosen(wxEVT_CHOICE, Types().GetId());
    chosen.SetEventObject(&Types());
    Types().ProcessWindowEvent(chosen);
  }

  PromptsGuard m_prompts;
  const std::string m_login = modUserName::GetUserName();
};

TEST_F(EditTest, AuthorEditsAnOwnRemarkAndMovesOn) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  const ContextHolder other("CustInq", "C1001", "jsmith");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  Remark& remark = RemarkAt(context, kGeneral);
  remark.SetUserID(m_login);
  View(context, [&] {
    Go(kGeneral + 1);
    EXPECT_EQ(Frame(), "View Remark");
    EXPECT_FALSE(TextBox().IsEditable());
    EXPECT_FALSE(Types().IsEnabled() || CanPress("cmdSave") || CanPress("cmdDelete"));

    Go(kGeneral);
    EXPECT_EQ(Frame(), "Edit Remark");
    EXPECT_TRUE(CanPress("cmdDelete"));
    Type("Receiving now closes at 4 pm.");
    EXPECT_THAT(Caught([&] { m_form.View(*other); }), HasNumber(400));
    EXPECT_EQ(m_form.GetTitle(), kTitle);
    Go(kGeneral + 1);
    EXPECT_EQ(Position(), kGeneral + 1) << "saving the previous row moves no row";
    EXPECT_EQ(Text(), RemarkAt(context, kGeneral + 1).MemoText());
    ClickNew("General");
    EXPECT_EQ(Frame(), "Edit Remark");
    EXPECT_TRUE(TextBox().IsEditable() && Types().IsEnabled() && CanPress("cmdSave")) << "unlike the locked remark";
    Click("cmdClose");
  });
  EXPECT_EQ(remark.MemoText(), "Receiving now closes at 4 pm.");
  EXPECT_TRUE(remark.Dirty());
}

// A timer of the host runs while a window of the component is open.
TEST_F(EditTest, HostMayDisposeOfTheContextInTheMiddle) {
  const auto typeAndClose = [&](const ContextHolder& context, const std::function<void()>& before) {
    View(context, [&] {
      Go(1);
      Type("typed before the host let go");
      before();
      Click("cmdClose");
    });
  };
  {
    const ContextHolder context("CustMaint", "C1044", "admin");
    m_prompts->answers = {PromptAnswer::Yes};
    m_prompts->meanwhile = [&] { context->Dispose(); };
    typeAndClose(context, [] {});
  }
  const ContextHolder context("CustMaint", "C1044", "admin");
  const auto chooseWithoutContext = [&] {
    ModalScript chooser;
    chooser.ExpectWindow<frmChooseType>("Choose Remark Type", [&](frmChooseType& dialog) {
      context->Dispose();
      Press(dialog, "cmdOK");
    });
    Click("cmdNew");
  };
  typeAndClose(context, chooseWithoutContext);
  context->Load("CustMaint", "C1044", "admin");
  EXPECT_THAT(Caught([&] { typeAndClose(context, [&] { context->Dispose(); }); }), HasNumber(ErrorNumber::ObjectNotSet))
      << "the host is told that the text has no remark any more";
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText LIKE 'typed before%'"), "0");
}

/// A change that a timer of the host makes to the list while the editor is open.
struct ListChange {
  std::string name;
  void (*make)(RemarkContext& context, const TestDatabase& database);
};

void InsertFirst(RemarkContext& context, const TestDatabase& database) {
  database.Run(
      "INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText) "
      "VALUES (3000, 'Cust.AR.Coll', 501, 45, '20991231', 'mjones', 'of another user just now')");
  context.RefreshRemarkList();
}

const ListChange kListChanges[] = {
    {"refresh", InsertFirst},
    {"remove another", [](RemarkContext& context, const TestDatabase&) { context.RemarkList()->Remove(Number(1)); }},
    {"restore", [](RemarkContext& context, const TestDatabase&) { context.RemarkList()->Restore(); }},
    {"add", [](RemarkContext& context, const TestDatabase&) { context.AddRemark("Cust.AR.Coll", "by the host"); }},
    {"remove", [](RemarkContext& context, const TestDatabase&) { context.RemarkList()->Remove(Number(kGeneral)); }},
    {"clear", [](RemarkContext& context, const TestDatabase&) { context.RemarkList()->Clear(); }},
    {"clear", [](RemarkContext& context, const TestDatabase&) { context.RemarkList()->Clear(false); }},
    {"refresh and remove",
     [](RemarkContext& context, const TestDatabase&) {
       context.RefreshRemarkList();
       context.RemarkList()->Remove(Number(kGeneral));
     }},
};

// The user goes to the row after the change or before it, and the window may have noticed the change or not.
TEST_F(EditTest, DeleteRemovesTheRemarkThatIsSeenWhateverTheHostDoesToTheList) {
  for (const ListChange& change : kListChanges) {
    for (const std::string when : {"before", "after", "noticed"}) {
      const TestDatabase database;
      const ContextHolder context("CustMaint", "C1044", "admin");
      context->SetEditBehavior(EditBehavior::NoAutoSave);
      context->RemarkList()->Backup();
      const std::string key = std::to_string(RemarkAt(context, kGeneral).MemoKey());
      View(context, [&] {
        if (when != "before") Go(kGeneral);
        change.make(*context, database);
        if (when == "before") Go(kGeneral);
        if (when == "noticed") HandleEvents();
        if (CanPress("cmdDelete")) Click("cmdDelete");
        HandleEvents();
        EXPECT_EQ(Position(), 0);
        EXPECT_FALSE(CanPress("cmdDelete")) << change.name;
        Click("cmdClose");
      });
      context->Save(true);
      const bool isForgotten = change.name == "clear";
      const std::string left = isForgotten ? "1" : "0";
      EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoKey = " + key), left) << change.name << when;
      EXPECT_EQ(database.Ask(kCountGenerals), isForgotten ? "3" : "2") << change.name << when;
    }
  }
}

TEST_F(EditTest, TypedTextGoesToItsOwnMemoOnceWhateverTheHostDoesToTheList) {
  for (const ListChange& change : kListChanges) {
    for (const std::string ending : {"cmdSave", "cmdClose", "another row", "cmdNew", "cmdSave of a new one"}) {
      SCOPED_TRACE(change.name + (", " + ending));
      const bool isNew = ending.ends_with("new one");
      const TestDatabase database;
      const ContextHolder context("CustMaint", "C1044", "admin");
      context->SetEditBehavior(EditBehavior::NoAutoSave);
      context->RemarkList()->Backup();
      const std::string key = std::to_string(RemarkAt(context, kGeneral).MemoKey());
      View(context, [&] {
        isNew ? ClickNew("General") : Go(kGeneral);
        Type("typed");
        change.make(*context, database);
        if (ending != "cmdClose") HandleEvents();
        EXPECT_EQ(Text(), "typed");
        if (ending == "another row") Grid().SelectLine(2);
        if (ending.starts_with("cmdSave")) Click("cmdSave");
        if (ending == "cmdNew") ClickNew("General");
        Click("cmdClose");
      });
      context->Save(true);
      const std::string typed = database.Ask("SELECT MemoKey FROM tciMemo WHERE MemoText = 'typed'");
      EXPECT_EQ(typed != key, isNew);
      const std::int32_t removed = isNew && change.name.ends_with("remove") ? 1 : 0;
      EXPECT_EQ(database.Ask(kCountGenerals), std::to_string(isNew ? 4 - removed : 3));
      const auto& items = *context->RemarkList()->Items();
      EXPECT_EQ(std::ranges::count(items, typed, [](const auto& each) { return std::to_string(each->MemoKey()); }), 1);
    }
  }
}

TEST_F(EditTest, HostThatReadsTheListAgainScrollsNothingAway) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  for (int i = 0; i < 100; ++i) context->AddRemark("Cust.General", "one of many");
  context->Save(true);
  View(context, [&] {
    HandleEvents();
    Grid().Scroll(0, 30);
    HandleEvents();
    const wxPoint view = Grid().GetViewStart();
    EXPECT_GT(view.y, 0);
    InsertFirst(*context, m_database);
    HandleEvents();
    EXPECT_EQ(Grid().GetViewStart(), view);
    EXPECT_EQ(RemarkAt(context, Position()).MemoKey(), 7) << "the row that was selected";
    Click("cmdClose");
  });
}

TEST_F(EditTest, ClosingWritesAllChangesOrNone) {
  for (const bool isSaved : {false, true}) {
    const TestDatabase database;
    const ContextHolder context("CustMaint", "C1044", "admin");
    m_prompts->answers = {isSaved ? PromptAnswer::Yes : PromptAnswer::No};
    const std::string changed = std::to_string(RemarkAt(context, 1).MemoKey());
    const std::string deleted = std::to_string(RemarkAt(context, 2).MemoKey());
    View(context, [&] {
      Go(2);
      Click("cmdDelete");
      Go(1);
      Choose("Credit");
      Type("one\ntwo \xF0\x9F\x94\xA7 \xD7\xA9");
      ClickNew("Collections");
      Choose("General");
      Type("brand new");
      Click("cmdClose");
    });
    EXPECT_TRUE(m_prompts->answers.empty()) << "closing asks once";
    const auto isFound = [&](const std::string& condition) {
      return database.Ask("SELECT COUNT(*) FROM tciMemo WHERE " + condition) == "1";
    };
    EXPECT_EQ(isFound("MemoText = 'one\r\ntwo ' + N'\xF0\x9F\x94\xA7 \xD7\xA9' AND MemoType = 'Cust.Credit'"
                      " AND MemoKey = " +
                      changed),
              isSaved);
    EXPECT_EQ(isFound("MemoKey = " + deleted), !isSaved);
    EXPECT_EQ(isFound("MemoText = 'brand new' AND MemoType = 'Cust.General' AND UserID = '" + m_login + "'"), isSaved);
  }
}

TEST_F(EditTest, GroupingDecidesTheTypeColumnAndTheFirstRow) {
  const auto captions = [&] {
    wxString shown;
    for (int i = 0; i < Grid().GetNumberCols(); ++i) shown += Grid().GetColLabelValue(i) + ' ';
    return shown;
  };
  const auto isGrouped = [&] {
    EXPECT_EQ(captions(), L"Date \u25BC UserID Remark ");
    EXPECT_EQ(Grid().CurrentLine(), 2);
    EXPECT_EQ(Position(), 1);
    EXPECT_TRUE(Grid().CanDragRowSize(0));
    Grid().SelectLine(1);
    EXPECT_EQ(Frame(), "View/Edit Remark");
    EXPECT_TRUE(Text().empty());
    Grid().SetGroupOpen(1, false);
    Grid().SortByCaption(0);
    Click("cmdClose");
  };
  const ContextHolder grouped("CustMaint", "C1044", "jsmith");
  View(grouped, isGrouped);
  View(grouped, isGrouped);  // the closed group and the sort order of the first View are gone
  View(ContextHolder("CustInq", "C1044", "jsmith"), [&] {
    EXPECT_EQ(captions(), L"Date \u25BC Type UserID Remark ");
    EXPECT_EQ(Grid().CurrentLine(), 1);
    EXPECT_FALSE(Grid().CanDragRowSize(0));
    EXPECT_THAT(Text(), StartsWith("Dana promised")) << "the newest first";
    Click("cmdDelete");
    EXPECT_EQ(Position(), 0) << "a second Delete must not remove a remark that the user did not choose";
    EXPECT_FALSE(CanPress("cmdDelete"));
    Click("cmdClose");
  });
}

TEST_F(EditTest, SaveKeepsTheRemarkSelectedAndDeleteSelectsNone) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  const std::string odd("\r\n a\0b \xFF\r c\n\xF0\x9F\x94\xA7\n", 17);
  RemarkAt(context, 1).SetMemoText(odd);
  RemarkAt(context, 1).SetDateStamp(kZeroDate);
  View(context, [&] {
    Click("cmdSave");
    EXPECT_EQ(Grid().RowHint(), "") << "the row is as the database has it";
    EXPECT_EQ(RemarkAt(context, 1).MemoText(), odd) << "the text box cannot hold it, and nothing was typed";
    EXPECT_EQ(RemarkAt(context, 1).UserID(), "jsmith");
    EXPECT_EQ(RemarkAt(context, 1).DateStamp(), kZeroDate);
    EXPECT_FALSE(context->RemarkList()->Dirty());

    Go(kGeneral);
    Type("changed");
    Click("cmdSave");
    EXPECT_EQ(Position(), kGeneral);
    EXPECT_EQ(Text(), "changed");
    EXPECT_TRUE(CanPress("cmdSave")) << "the remark is shown again";
    EXPECT_EQ(Grid().RowHint(), "Not yet in the database");
    EXPECT_EQ(Caption("lblStamp"), m_login + ", " + FormatDateWithTime(RemarkAt(context, kGeneral).DateStamp()));

    const std::int32_t count = context->MemoCount();
    {
      ModalScript chooser;
      chooser.ExpectWindow<frmChooseType>("Choose Remark Type", [](frmChooseType& dialog) { dialog.Close(); });
      Click("cmdNew");
    }
    EXPECT_EQ(Text(), "changed");
    ClickNew("General");
    EXPECT_TRUE(HasFocus(TextBox()));
    EXPECT_TRUE(Text().empty());
    EXPECT_EQ(Caption("lblStamp"), "");
    Click("cmdDelete");
    EXPECT_EQ(context->MemoCount(), count) << "a new remark is only forgotten";
    ClickNew("General");
    Type("new");
    Click("cmdSave");
    EXPECT_EQ(Position(), count + 1);
    EXPECT_EQ(Text(), "new");
    const auto added = context->RemarkList()->Item(Number(count + 1));
    Type("typed before Delete");
    Click("cmdDelete");
    EXPECT_EQ(added->MemoText(), "typed before Delete");
    EXPECT_EQ(context->MemoCount(), count);
    EXPECT_TRUE(HasFocus(Grid()));
    Click("cmdClose");
  });
}

TEST_F(EditTest, NewRemarkThatIsDeletedLeavesNothingToAskAbout) {
  View(ContextHolder("CustMaint", "C1044", "admin"), [&] {
    ClickNew("General");
    EXPECT_EQ(Position(), 0) << "the buttons act on the new remark, not on a row";
    Type("typed");
    Grid().SetFocus();
    EXPECT_TRUE(HasFocus(Grid()));
    wxKeyEvent del(wxEVT_CHAR_HOOK);
    del.m_keyCode = WXK_DELETE;
    m_form.ProcessWindowEvent(del);
    Grid().SortByCaption(0);
    EXPECT_EQ(Text(), "typed") << "no row is selected that Del could remove or another order could move";
    Click("cmdDelete");
    Click("cmdClose");
  });
}

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

TEST_F(EditTest, NewSaysThatTheUserMayCreateNoType) {
  m_prompts->answers = {PromptAnswer::Ok};
  View(ContextHolder("CustMaint", "C1044", "guest"), [&] {
    Click("cmdNew");
    EXPECT_EQ(m_prompts->shown.back().title, "Can Not Create");
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

TEST_F(EditTest, ErrorEndsTheWindowAndLosesNothingTyped) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  const auto typeAndFail = [&](const char* text, const std::function<void()>& fail) {
    return Caught([&] {
      View(context, [&] {
        Type(text);
        fail();
        EXPECT_TRUE(Closes());
      });
    });
  };
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  modWaitCursor::BeginWait();
  const Error ofGrid =
      typeAndFail("not lost", [&] { Grid().Failed(std::make_exception_ptr(Error(7, "grid", "cannot be read"))); });
  EXPECT_THAT(ofGrid, IsError(7, "grid", "cannot be read"));
  EXPECT_EQ(m_prompts->pointers.back(), PointerShape::Default);
  EXPECT_EQ(RemarkAt(context, 1).MemoText(), "not lost");

  context->SetEditBehavior(EditBehavior::AutoSaveOnClose);
  m_database.Run("DROP PROCEDURE spTWCqvUpdateRemark");
  EXPECT_NE(typeAndFail("nor this", [&] { Click("cmdClose"); }).Number(), 0);
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  View(context, [&] {
    EXPECT_EQ(Text(), "nor this");
    Click("cmdClose");
  });
}

TEST_F(EditTest, SizeAndColumnsStayAsTheUserMadeThem) {
  const ContextHolder grouped("CustMaint", "C1044", "jsmith");
  const ContextHolder ungrouped("CustInq", "C1044", "jsmith");
  int width = 0;
  // The desktop draws the grid's outline later.
  const auto isLaidOut = [&] {
    return WaitFor([&] { return Grid().GetGridWindow()->GetClientSize().x < Grid().GetSize().x; });
  };
  View(grouped, [&] {
    m_form.SetClientSize(1000, 777);
    EXPECT_TRUE(WaitFor([&] { return m_form.GetClientSize() == wxSize(1000, 777); }));
    EXPECT_TRUE(isLaidOut());
    Grid().SetColSize(0, 200);
    wxGridSizeEvent dragged(Grid().GetId(), wxEVT_GRID_COL_SIZE, &Grid(), 0);
    Grid().HandleWindowEvent(dragged);
    width = Grid().GetColSize(1);
    Click("cmdClose");
  });
  View(ungrouped, [&] {
    EXPECT_NE(Grid().GetColSize(0), 200) << "another place with other columns";
    Click("cmdClose");
  });
  View(grouped, [&] {
    EXPECT_TRUE(isLaidOut());
    EXPECT_EQ(m_form.GetClientSize(), wxSize(1000, 777));
    EXPECT_EQ(Grid().GetColSize(0), 200);
    EXPECT_EQ(Grid().GetColSize(1), width);
    Click("cmdClose");
  });
}

TEST_F(EditTest, ControlsFitDownToTheSmallestSize) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  View(context, [&] {
    ExpectControlsFit({"gdxMemos", "fmViewRemark", "cmdNew", "cmdSave", "cmdDelete", "cmdClose"},
                      {"cmdNew", "cmdSave", "cmdDelete", "cmdClose", "Label2", "cboRemarkType"});
    EXPECT_GE(TextBox().GetClientSize().y, 3 * TextBox().GetCharHeight());
    Click("cmdClose");
  });
}

}  // namespace
}  // namespace quorvel::test
