// The editor as its user sees it. Its rules are tested without a window in EditRulesTest.

#include <functional>
#include <string>

#include "data/modWaitCursor.h"
#include "platform/ShortDate.h"
#include "tests/remark_ui/EditTest.h"

namespace quorvel::test {
namespace {

TEST_F(EditTest, AuthorEditsAnOwnRemarkAndMovesOn) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  const ContextHolder other("CustInq", "C1001", "jsmith");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  Remark& remark = RemarkAt(context, kGeneral);
  remark.SetUserID(m_login);
  ViewAndClose(context, [&] {
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
  });
  EXPECT_EQ(remark.MemoText(), "Receiving now closes at 4 pm.");
  EXPECT_TRUE(remark.Dirty());
}

TEST_F(EditTest, ClosingWritesAllChangesOrNone) {
  for (const bool isSaved : {false, true}) {
    const TestDatabase database;
    const ContextHolder context("CustMaint", "C1044", "admin");
    m_prompts->answers = {isSaved ? PromptAnswer::Yes : PromptAnswer::No};
    const std::string changed = std::to_string(RemarkAt(context, 1).MemoKey());
    const std::string deleted = std::to_string(RemarkAt(context, 2).MemoKey());
    ViewAndClose(context, [&] {
      Go(2);
      Click("cmdDelete");
      Go(1);
      Choose("Credit");
      Type("one\ntwo \xF0\x9F\x94\xA7 \xD7\xA9");
      ClickNew("Collections");
      Choose("General");
      Type("brand new");
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
  };
  const ContextHolder grouped("CustMaint", "C1044", "jsmith");
  ViewAndClose(grouped, isGrouped);
  ViewAndClose(grouped, isGrouped);  // the closed group and the sort order of the first View are gone
  ViewAndClose(ContextHolder("CustInq", "C1044", "jsmith"), [&] {
    EXPECT_EQ(captions(), L"Date \u25BC Type UserID Remark ");
    EXPECT_EQ(Grid().CurrentLine(), 1);
    EXPECT_FALSE(Grid().CanDragRowSize(0));
    EXPECT_THAT(Text(), StartsWith("Dana promised")) << "the newest first";
    Click("cmdDelete");
    EXPECT_EQ(Position(), 0) << "a second Delete must not remove a remark that the user did not choose";
    EXPECT_FALSE(CanPress("cmdDelete"));
  });
}

TEST_F(EditTest, SaveKeepsTheRemarkSelectedAndDeleteSelectsNone) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  const std::string odd("\r\n a\0b \xFF\r c\n\xF0\x9F\x94\xA7\n", 17);
  RemarkAt(context, 1).SetMemoText(odd);
  RemarkAt(context, 1).SetDateStamp(kZeroDate);
  ViewAndClose(context, [&] {
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
    ClickNew([](frmChooseType& dialog) { dialog.Close(); });
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
  });
}

TEST_F(EditTest, NewRemarkThatIsDeletedLeavesNothingToAskAbout) {
  ViewAndClose(ContextHolder("CustMaint", "C1044", "admin"), [&] {
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
  });
}

TEST_F(EditTest, NewSaysThatTheUserMayCreateNoType) {
  m_prompts->answers = {PromptAnswer::Ok};
  ViewAndClose(ContextHolder("CustMaint", "C1044", "guest"), [&] {
    Click("cmdNew");
    EXPECT_EQ(m_prompts->shown.back().title, "Can Not Create");
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
  ViewAndClose(context, [&] { EXPECT_EQ(Text(), "nor this"); });
}

TEST_F(EditTest, SizeAndColumnsStayAsTheUserMadeThem) {
  const ContextHolder grouped("CustMaint", "C1044", "jsmith");
  const ContextHolder ungrouped("CustInq", "C1044", "jsmith");
  int width = 0;
  // The desktop draws the grid's outline later.
  const auto isLaidOut = [&] {
    return WaitFor([&] { return Grid().GetGridWindow()->GetClientSize().x < Grid().GetSize().x; });
  };
  ViewAndClose(grouped, [&] {
    m_form.SetClientSize(1000, 777);
    EXPECT_TRUE(WaitFor([&] { return m_form.GetClientSize() == wxSize(1000, 777); }));
    EXPECT_TRUE(isLaidOut());
    Grid().SetColSize(0, 200);
    wxGridSizeEvent dragged(Grid().GetId(), wxEVT_GRID_COL_SIZE, &Grid(), 0);
    Grid().HandleWindowEvent(dragged);
    width = Grid().GetColSize(1);
  });
  ViewAndClose(ungrouped, [&] { EXPECT_NE(Grid().GetColSize(0), 200) << "another place with other columns"; });
  ViewAndClose(grouped, [&] {
    EXPECT_TRUE(isLaidOut());
    EXPECT_EQ(m_form.GetClientSize(), wxSize(1000, 777));
    EXPECT_EQ(Grid().GetColSize(0), 200);
    EXPECT_EQ(Grid().GetColSize(1), width);
  });
}

TEST_F(EditTest, ControlsFitDownToTheSmallestSize) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  ViewAndClose(context, [&] {
    ExpectControlsFit({"gdxMemos", "fmViewRemark", "cmdNew", "cmdSave", "cmdDelete", "cmdClose"},
                      {"cmdNew", "cmdSave", "cmdDelete", "cmdClose", "Label2", "cboRemarkType"});
    EXPECT_GE(TextBox().GetClientSize().y, 3 * TextBox().GetCharHeight());
  });
}

}  // namespace
}  // namespace quorvel::test
