// The rules of the editor without a window: rights, texts, what is stored, layout.
#include <limits>
#include <string>
#include <utility>

#include "data/modUserName.h"
#include "platform/wx/BoxText.h"
#include "remark_ui/EditLayout.h"
#include "remark_ui/EditedRemark.h"
#include "remark_ui/RemarkRows.h"
#include "runtime/RemarkRights.h"
#include "tests/runtime/RuntimeTest.h"

namespace quorvel::test {
namespace {

using Outcome = EditedRemark::Outcome;

RemarkInput Typed(const std::string& text, const std::optional<TypeChoice>& type = {}) { return {text, true, type}; }

/// The remarks of Acme Tools.
class EditRulesTest : public testing::Test {
 protected:
  void Open(const std::string& user) {
    m_context->Load("CustMaint", "C1044", user);
    m_context->SetEditBehavior(EditBehavior::NoAutoSave);
  }
  void Show(std::int32_t position) { m_edited.Show(m_context->RemarkList()->Item(Value(std::int64_t{position}))); }
  /// The position of the first remark of a type.
  [[nodiscard]] std::int32_t First(const std::string& typeID) const {
    std::int32_t position = 1;
    while (RemarkAt(m_context, position).RemarkType() != m_context->Item(typeID)) ++position;
    return position;
  }
  [[nodiscard]] TypeChoice Type(const std::string& typeID) const {
    std::int32_t position = 1;
    while (m_context->Item(Value(std::int64_t{position}))->TypeID() != typeID) ++position;
    return {m_context->Item(typeID)->Caption(), position};
  }

  TestDatabase m_database;
  PromptsGuard m_prompts;
  ContextHolder m_context;
  EditedRemark m_edited{*m_context};
  const std::string m_login = modUserName::GetUserName();
};

TEST_F(EditRulesTest, EmptyGridSaysWhy) {
  RemarkRows rows;
  EXPECT_EQ(rows.EmptyText(), "There are no remarks that you may read.");
  for (const auto& [user, words] :
       {std::pair("admin", "There are no remarks."), {"guest", "There are no remarks that you may read."}}) {
    const ContextHolder context("CustMaint", "C1001", user);
    rows.SetContext(context->shared_from_this());
    EXPECT_EQ(rows.EmptyText(), words);
  }
}

TEST_F(EditRulesTest, AuthorsMayChangeTheirOwnRemarks) {
  struct Case {
    const char* typeID;
    std::int32_t canCreate;
    std::int32_t right;  ///< to update and to delete
    const char* author;
    bool expected;
  };
  Open("admin");
  for (const Case& each : {Case{"Cust.General", 1, 0, "PAT", true}, Case{"Cust.General", 1, 0, "sam", false},
                           Case{"Cust.General", 2, 0, "pat", false}, Case{"Cust.General", 0, 0, "pat", false},
                           Case{"Cust.General", 0, -1, "sam", true}, Case{"Cust.AR.Coll", 1, 0, "pat", false},
                           Case{"CUST.ar.coll", 1, 0, "pat", false}, Case{"Cust.AR.Coll", 1, 1, "sam", true}}) {
    const auto type = m_context->Item(std::string(each.typeID));
    const std::int32_t position = First(each.typeID);
    type->SetTypeID(each.typeID);
    type->SetCanCreate(each.canCreate);
    type->SetCanUpdate(each.right);
    type->SetCanDelete(each.right);
    RemarkAt(m_context, position).SetUserID(each.author);
    const RemarkRights rights = RightsOnRemark(*m_context, position, "pat");
    EXPECT_EQ(rights.canUpdate, each.expected) << each.typeID << each.canCreate << each.author;
    EXPECT_EQ(rights.canDelete, each.expected) << each.typeID << each.canCreate << each.author;
  }
  RemarkAt(m_context, 1).SetRemarkType(nullptr);
  for (const std::int32_t i : {-1, 0, 1, 99}) EXPECT_FALSE(RightsOnRemark(*m_context, i, "pat").canUpdate) << i;
}

TEST_F(EditRulesTest, DisplayFollowsTheRights) {
  Open("mjones");  // creates General, creates and updates Credit
  const auto caption = [](const char* text) { return Field("caption", &TypeChoice::caption, text); };

  Show(First("Cust.Credit"));
  const RemarkDisplay& display = m_edited.Display();
  EXPECT_EQ(display.caption, "Edit Remark");
  EXPECT_FALSE(display.isLocked);
  EXPECT_TRUE(display.canSave);
  EXPECT_FALSE(display.canDelete);
  EXPECT_FALSE(display.canChooseType) << "a remark that may not be deleted keeps its type";
  EXPECT_THAT(display.types, ElementsAre(caption("Credit")));

  Show(First("Cust.General"));
  EXPECT_EQ(display.caption, "View Remark");
  EXPECT_TRUE(display.isLocked);
  EXPECT_FALSE(display.canSave);
  m_edited.TextEdited();
  EXPECT_FALSE(display.canSave) << "a locked text is not edited";

  RemarkAt(m_context, First("Cust.General")).SetUserID(m_login);
  Show(First("Cust.General"));
  EXPECT_FALSE(display.isLocked);
  EXPECT_TRUE(display.canDelete);
  EXPECT_TRUE(display.canChooseType);
  EXPECT_THAT(display.types, ElementsAre(caption("Credit"), caption("General")));
  EXPECT_EQ(display.selectedType, 1U);

  Show(0);
  EXPECT_EQ(m_edited.Save(Typed("nothing to save it to")), Outcome::Nothing);
}

TEST_F(EditRulesTest, SavingAChangeStoresLogonNameAndDate) {
  Open("admin");
  Remark& remark = RemarkAt(m_context, 1);
  for (const RemarkInput& input : {Typed("one\ntwo"), Typed("one\ntwo", Type("Cust.Credit"))}) {
    remark.SetUserID("pat");
    remark.SetDateStamp(kZeroDate);
    remark.SetDirty(false);
    Show(1);
    EXPECT_EQ(m_edited.Save(input), Outcome::Changed);
    EXPECT_EQ(remark.MemoText(), "one\r\ntwo");
    EXPECT_EQ(remark.UserID(), m_login);
    EXPECT_GT(remark.DateStamp(), kZeroDate);
    EXPECT_TRUE(remark.Dirty());
  }
  EXPECT_EQ(remark.TypeID(), "Cust.Credit");

  Show(1);
  m_edited.TypeChosen({"", false, TypeChoice{"CREDIT", 2}});
  EXPECT_FALSE(m_edited.Display().canSave) << "it is the remark's own type";
  m_edited.TypeChosen(Typed("typed before", TypeChoice{"CREDIT", 2}));
  EXPECT_TRUE(m_edited.Display().canSave) << "the text is another";
  Show(1);
  m_edited.TypeChosen({"", false, Type("Cust.General")});
  EXPECT_TRUE(m_edited.Display().canSave);
}

TEST_F(EditRulesTest, HostThatReadsTheListAgainChangesNoRemark) {
  Open("admin");
  Show(1);
  const std::string text = m_edited.Display().text;
  m_context->RefreshRemarkList();
  EXPECT_EQ(m_edited.CommitPending({text, false, {}}), Outcome::Unchanged);
  EXPECT_FALSE(m_context->RemarkList()->Dirty()) << "a new author and date for a remark that was only looked at";
  Show(1);
  m_context->RefreshRemarkList();
  RemarkAt(m_context, 1).SetMemoText("of another user");
  EXPECT_EQ(m_edited.CommitPending({text, false, Type("Cust.Credit")}), Outcome::Changed);
  EXPECT_EQ(RemarkAt(m_context, 1).MemoText(), "of another user") << "only the type was chosen";
  EXPECT_EQ(RemarkAt(m_context, 1).TypeID(), "Cust.Credit");
  Show(1);
  RemarkAt(m_context, 1).SetRemarkType(m_context->Item("Cust.General"));
  EXPECT_EQ(m_edited.CommitPending({m_edited.Display().text, false, Type("Cust.Credit")}), Outcome::Unchanged)
      << "the type that is shown was not chosen";
  m_edited.TypeChosen({m_edited.Display().text, false, Type("Cust.Credit")});
  EXPECT_FALSE(m_edited.Display().canSave) << "Save would do nothing";
}

// A host's own memo of the same owner has taken the key of a refused insert.
TEST_F(EditRulesTest, TypedTextIsNotStoredOnAnotherMemoWithTheKey) {
  Open("admin");
  m_context->AddRemark("Cust.General", "refused at first", std::string(31, 'x'));
  EXPECT_NE(Caught([&] { m_context->Save(true); }).Number(), 0);
  Show(8);
  m_database.StoreMemo(2043, "of the host");
  m_context->RefreshRemarkList();
  m_context->RemarkList()->SetTakesNew(false);
  EXPECT_EQ(Caught([&] { m_edited.Save(Typed("typed")); }).Number(), ErrorNumber::Component);
  m_context->RemarkList()->SetTakesNew(true);
  EXPECT_EQ(m_edited.CommitPending(Typed("typed")), Outcome::Changed) << "the error has not lost what was typed";
  m_context->Save(true);
  EXPECT_EQ(m_database.TextOf(2043), "of the host");
  EXPECT_EQ(m_database.TextOf(2044), "typed");
}

TEST_F(EditRulesTest, EmptyTextIsRefusedBySaveAndDroppedByCommit) {
  Open("admin");
  const std::string before = RemarkAt(m_context, 1).MemoText();
  Show(1);
  EXPECT_EQ(m_edited.CommitPending(Typed("")), Outcome::Nothing);
  EXPECT_EQ(m_edited.CommitPending(Typed("   ")), Outcome::Nothing);
  EXPECT_TRUE(m_prompts->shown.empty());

  m_prompts->answers = {PromptAnswer::Ok};
  EXPECT_EQ(m_edited.Save(Typed("  ", Type("Cust.Credit"))), Outcome::Nothing);
  ASSERT_EQ(m_prompts->shown.size(), 1U);
  EXPECT_EQ(m_prompts->shown[0].text, "Empty remarks not permitted.  Use delete to erase a remark");
  EXPECT_EQ(m_prompts->shown[0].title, "Can Not Save");
  EXPECT_EQ(m_prompts->shown[0].buttons, PromptButtons::Ok);
  EXPECT_EQ(m_prompts->shown[0].icon, PromptIcon::Exclamation);
  EXPECT_TRUE(m_edited.Display().canSave);
  EXPECT_EQ(RemarkAt(m_context, 1).MemoText(), before);
  EXPECT_FALSE(m_context->RemarkList()->Dirty());

  Open("mjones");
  m_prompts->answers = {PromptAnswer::Ok};
  Show(First("Cust.Credit"));
  EXPECT_EQ(m_edited.Save(Typed("")), Outcome::Nothing);
  EXPECT_EQ(m_prompts->shown[1].text, "Empty remarks not permitted.") << "Delete cannot be pressed";
}

TEST(RemarkTextTest, LineBreaksAndZerosSurviveTheTextBox) {
  struct Case {
    std::string stored;
    std::string shown;
    std::string typed;
    std::string kept;
  };
  const std::string zero("\0", 1);
  for (const Case& each :
       {Case{"a\r\nb", "a\nb", "a\nb\nc", "a\r\nb\r\nc"}, Case{"a\nb", "a\nb", "a\nb\nc", "a\nb\nc"},
        Case{"a\rb\n", "a\nb\n", "a\nb", "a\r\nb"}, Case{"", "", "x\n", "x\r\n"},
        Case{"\r\r\n\n", "\n\n\n", "\n", "\r\n"}, Case{"a" + zero, "a\u2400", "a\u2400!", "a" + zero + "!"},
        Case{"\u2400", "\u2400", "\u2400!", "\u2400!"}}) {
    EXPECT_EQ(ShownText(each.stored), each.shown);
    EXPECT_EQ(StoredText(each.typed, each.stored), each.kept);
  }
}

TEST(EditLayoutTest, GridGetsAllAdditionalSpace) {
  const EditLayout smallest = LayOutEditor({8255, 5400}, {});
  EXPECT_EQ(smallest.grid, (ui::TwipRect{60, 60, 8012, 3360}));
  EXPECT_EQ(smallest.frame, (ui::TwipRect{60, 3470, 6970, 1465}));
  EXPECT_EQ(smallest.newButton, (ui::TwipRect{7090, 3470, 982, 330}));
  EXPECT_EQ(smallest.closeButton, (ui::TwipRect{7090, 3470 + 1465 - 330, 982, 330}));
  const EditLayout larger = LayOutEditor({12000, 9000}, {});
  EXPECT_EQ(larger.grid, (ui::TwipRect{60, 60, 11757, 6960}));
  EXPECT_EQ(larger.saveButton.left, 12000 - 1165);
  EXPECT_EQ(larger.frame.height, smallest.frame.height);
  EXPECT_EQ(LayOutEditor({8254, 9000}, {}).grid, (ui::TwipRect{60, 60, 8012, 6960}));
  EXPECT_EQ(LayOutEditor({12000, -5}, {}).frame.top, smallest.frame.top);
}

// The fonts of the scales 1 to 2, and the screens that a desktop with two pixels for one reports.
TEST(EditLayoutTest, EveryControlIsOnTheScreenWithEveryFont) {
  struct Screen {
    int width, height, largestLine;
  };
  for (const Screen& screen : {Screen{1280, 1024, 34}, {1920, 1080, 34}, {640, 512, 17}, {960, 540, 17}}) {
    for (int line = 13; line <= screen.largestLine; ++line) {
      const ui::TwipScale scale(line);
      const EditSizes sizes{.screen = {scale.ToTwips(screen.width), scale.ToTwips(screen.height)}};
      const ui::TwipSize window = SmallestEditor(sizes);
      EXPECT_LE(scale.ToPixels(window.width), screen.width) << line;
      EXPECT_LE(scale.ToPixels(window.height), screen.height) << line;
      const EditLayout layout = LayOutEditor(window, sizes);
      EXPECT_LT(layout.closeButton.left + layout.closeButton.width, window.width) << line;
      EXPECT_LT(layout.closeButton.top + layout.closeButton.height, window.height) << line;
      EXPECT_GT(layout.grid.height, 10 * 195) << line << ": too few rows";
      EXPECT_GT(layout.frame.width, 5000) << line << ": a narrow text box";
    }
  }
}

TEST(EditLayoutTest, RowsOfSixLinesAndMoreAreHigher) {
  for (const auto& [lines, height] : {std::pair{5, 1025}, {6, 1230}, {0, 75}}) {
    EXPECT_EQ(GridRowHeight(lines), height) << lines;
  }
  EXPECT_GT(GridRowHeight(std::numeric_limits<std::int32_t>::max()), 0);
}

}  // namespace
}  // namespace quorvel::test
