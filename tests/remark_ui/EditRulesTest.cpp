#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "data/modUserName.h"
#include "remark_ui/EditLayout.h"
#include "remark_ui/EditedRemark.h"
#include "remark_ui/RemarkText.h"
#include "runtime/RemarkRights.h"
#include "tests/runtime/RuntimeTest.h"

namespace quorvel {
namespace {

using test::ContextHolder;
using test::Number;
using test::RemarkAt;
using testing::ElementsAre;
using testing::Field;
using Outcome = EditedRemark::Outcome;

constexpr const char* kEmptyRefusal = "Empty remarks not permitted.  Use delete to erase a remark";

RemarkInput Typed(const std::string& text, const std::optional<TypeChoice>& type = {}) { return {text, true, type}; }
RemarkInput Untouched(const RemarkDisplay& display, const std::optional<TypeChoice>& type = {}) {
  return {display.text, false, type};
}

/// Remarks of Acme Tools as `user` has them, all made the logon user's own.
class EditRulesTest : public testing::Test {
 protected:
  void Open(const std::string& user) {
    m_context->Load("CustMaint", "C1044", user);
    m_context->SetEditBehavior(EditBehavior::NoAutoSave);
    m_edited.Open(*m_context);
  }
  /// The position of the first remark of a type.
  [[nodiscard]] std::int32_t First(const std::string& typeID) const {
    for (std::int32_t i = 1; i <= m_context->MemoCount(); ++i) {
      if (RemarkAt(m_context, i).RemarkType() == m_context->Item(typeID)) return i;
    }
    throw Error(0, "test", "no such remark");
  }
  [[nodiscard]] TypeChoice Type(const std::string& typeID) const {
    std::int32_t position = 0;
    for (const auto& type : m_context->Types()->All()) {
      ++position;
      if (type->TypeID() == typeID) return {type->Caption(), position};
    }
    throw Error(0, "test", "no such type");
  }
  void BeginNew(const std::string& typeID) {
    const TypeChoice type = Type(typeID);
    m_edited.ShowNew(m_context->Item(typeID), type.position);
  }

  test::TestDatabase m_database;
  test::PromptsGuard m_prompts;
  ContextHolder m_context;
  EditedRemark m_edited;
  const std::string m_login = modUserName::GetUserName();
};

TEST_F(EditRulesTest, AuthorsAreGrantedTheirOwnRemarksForTheMomentOfTheQuestion) {
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
    EXPECT_EQ(type->CanUpdate(), each.right);
    EXPECT_EQ(type->CanDelete(), each.right);
  }
  RemarkAt(m_context, 1).SetRemarkType(nullptr);
  for (const std::int32_t position : {-1, 0, 1, 99}) {
    EXPECT_FALSE(RightsOnRemark(*m_context, position, "pat").canUpdate) << position;
  }
}

TEST_F(EditRulesTest, WhatIsShownFollowsTheRights) {
  Open("mjones");  // creates General, creates and updates Credit
  const auto caption = [](const char* text) { return Field("caption", &TypeChoice::caption, text); };

  m_edited.Show(First("Cust.Credit"));
  const RemarkDisplay& display = m_edited.Display();
  EXPECT_EQ(display.caption, "Edit Remark");
  EXPECT_FALSE(display.isLocked);
  EXPECT_TRUE(display.canSave);
  EXPECT_FALSE(display.canDelete);
  EXPECT_FALSE(display.canChooseType) << "what may not be deleted stays of its type";
  EXPECT_THAT(display.types, ElementsAre(caption("Credit")));

  m_edited.Show(First("Cust.General"));
  EXPECT_EQ(display.caption, "View Remark");
  EXPECT_TRUE(display.isLocked);
  EXPECT_FALSE(display.canSave);
  m_edited.TextEdited();
  EXPECT_FALSE(display.canSave) << "a locked text is not edited";

  RemarkAt(m_context, First("Cust.General")).SetUserID(m_login);
  m_edited.Show(First("Cust.General"));
  EXPECT_FALSE(display.isLocked);
  EXPECT_TRUE(display.canDelete);
  EXPECT_TRUE(display.canChooseType);
  EXPECT_THAT(display.types, ElementsAre(caption("Credit"), caption("General")));
  EXPECT_EQ(display.selectedType, 1U);

  m_edited.Show(0);
  EXPECT_EQ(display.caption, "View/Edit Remark");
  EXPECT_TRUE(display.isLocked && display.text.empty() && display.types.empty());
  EXPECT_FALSE(display.canSave || display.canDelete || display.canChooseType);
  EXPECT_EQ(m_edited.Save(Typed("nothing to save it to")), Outcome::Nothing);
}

TEST_F(EditRulesTest, AnUnchangedRemarkKeepsAuthorAndDate) {
  Open("admin");
  Remark& remark = RemarkAt(m_context, 1);
  // More than a text box can give back.
  remark.SetMemoText(std::string("a\r\nb\0c\xFF", 7));
  const DateTime written = remark.DateStamp();
  const std::string author = remark.UserID();
  m_edited.Show(1);
  EXPECT_EQ(m_edited.Save(Untouched(m_edited.Display(), Type("Cust.AR.Coll"))), Outcome::Unchanged);
  EXPECT_FALSE(m_edited.Display().canSave);
  m_edited.Show(1);
  EXPECT_EQ(m_edited.Save(Untouched(m_edited.Display())), Outcome::Unchanged) << "no type is selected";
  EXPECT_EQ(remark.MemoText(), std::string("a\r\nb\0c\xFF", 7));
  EXPECT_EQ(remark.UserID(), author);
  EXPECT_EQ(remark.DateStamp(), written);
  EXPECT_FALSE(remark.Dirty());
}

TEST_F(EditRulesTest, ATextOrATypeIsStoredUnderTheLogonNameWithTheDate) {
  Open("admin");
  Remark& remark = RemarkAt(m_context, 1);
  for (const RemarkInput& input : {Typed("one\ntwo"), Typed("one\ntwo", Type("Cust.Credit"))}) {
    remark.SetUserID("somebody");
    remark.SetDateStamp(kZeroDate);
    remark.SetDirty(false);
    m_edited.Show(1);
    EXPECT_EQ(m_edited.Save(input), Outcome::Changed);
    EXPECT_EQ(remark.MemoText(), "one\r\ntwo");
    EXPECT_EQ(remark.UserID(), m_login);
    EXPECT_GT(remark.DateStamp(), kZeroDate);
    EXPECT_TRUE(remark.Dirty());
  }
  EXPECT_EQ(remark.TypeID(), "Cust.Credit");

  m_edited.Show(1);
  m_edited.TypeChosen({"CREDIT", 2});
  EXPECT_EQ(m_edited.CommitPending(Typed("typed before")), Outcome::Nothing) << "the type is what it was";
  m_edited.TypeChosen(Type("Cust.General"));
  EXPECT_TRUE(m_edited.Display().canSave);
}

TEST_F(EditRulesTest, EmptyTextsAreRefusedWithAMessageOrDroppedWithout) {
  Open("admin");
  const std::string before = RemarkAt(m_context, 1).MemoText();
  m_edited.Show(1);
  EXPECT_EQ(m_edited.CommitPending(Typed("")), Outcome::Nothing);
  EXPECT_EQ(m_edited.CommitPending(Typed("   ")), Outcome::Nothing);
  EXPECT_TRUE(m_prompts->shown.empty());

  m_prompts->answers = {PromptAnswer::Ok};
  EXPECT_EQ(m_edited.Save(Typed("", Type("Cust.Credit"))), Outcome::Nothing);
  ASSERT_EQ(m_prompts->shown.size(), 1U);
  EXPECT_EQ(m_prompts->shown[0].text, kEmptyRefusal);
  EXPECT_EQ(m_prompts->shown[0].title, "Can Not Save");
  EXPECT_EQ(m_prompts->shown[0].buttons, PromptButtons::Ok);
  EXPECT_EQ(m_prompts->shown[0].icon, PromptIcon::Exclamation);
  EXPECT_TRUE(m_edited.Display().canSave);
  EXPECT_EQ(RemarkAt(m_context, 1).MemoText(), before);
  EXPECT_FALSE(m_context->RemarkList()->Dirty());

  EXPECT_EQ(m_edited.Save(Typed("   ")), Outcome::Changed) << "blanks are a text where Save is pressed";
}

TEST_F(EditRulesTest, ANewRemarkJoinsTheListWhenItIsSaved) {
  Open("mjones");
  const std::int32_t count = m_context->MemoCount();
  m_edited.Show(First("Cust.General"));  // locked, of a type that may not be chosen
  BeginNew("Cust.General");
  const RemarkDisplay& display = m_edited.Display();
  EXPECT_EQ(display.caption, "Edit Remark");
  EXPECT_TRUE(display.canSave && display.canChooseType && !display.isLocked);
  EXPECT_EQ(display.types.at(display.selectedType.value()), Type("Cust.General"));
  EXPECT_EQ(m_context->MemoCount(), count);

  EXPECT_EQ(m_edited.CommitPending(Typed("new\nlines", Type("Cust.Credit"))), Outcome::Changed);
  ASSERT_EQ(m_context->MemoCount(), count + 1);
  EXPECT_EQ(m_edited.Position(), count + 1);
  const Remark& added = RemarkAt(m_context, count + 1);
  EXPECT_EQ(added.TypeID(), "Cust.Credit");
  EXPECT_EQ(added.MemoText(), "new\r\nlines");
  EXPECT_EQ(added.UserID(), m_login);
  EXPECT_TRUE(added.Dirty());
  EXPECT_EQ(added.MemoKey(), 0);
}

TEST_F(EditRulesTest, DeletingTakesTheRemarkOutOfTheListAndANewOneJustAway) {
  Open("admin");
  const std::int32_t count = m_context->MemoCount();
  const auto second = m_context->RemarkList()->Item(Number(2));
  m_edited.Show(2);
  m_edited.Remove();
  EXPECT_EQ(m_context->RemarkList()->Index(second), 0);
  EXPECT_EQ(m_context->MemoCount(), count - 1);
  EXPECT_EQ(m_edited.Position(), 0);
  EXPECT_EQ(m_edited.Display().caption, "View/Edit Remark");

  m_edited.Show(1);
  BeginNew("Cust.General");
  m_edited.Remove();
  m_edited.Remove();
  EXPECT_EQ(m_context->MemoCount(), count - 1);
}

TEST(RemarkTextTest, TextsSurviveTheTextBox) {
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

TEST(EditLayoutTest, TheGridTakesWhatTheWindowHasAndTheRestFollows) {
  struct Case {
    ui::TwipSize window;
    int width;
    int height;
  };
  const EditControls drawn;
  for (const Case& each : {Case{{12000, 9000}, 12000, 9000}, Case{{8255, 5400}, 8255, 5400},
                           Case{{100, -5}, 8255, 5400}, Case{{8254, 9000}, 8255, 9000}}) {
    const EditLayout layout = LayOutEditor(each.window, drawn);
    EXPECT_EQ(layout.grid.width, each.width - 243);
    EXPECT_EQ(layout.grid.height, each.height - 2040);
    EXPECT_EQ(layout.frame.top, layout.grid.top + layout.grid.height + 50);
    EXPECT_EQ(layout.newButton.left, each.width - 1165);
    EXPECT_EQ(layout.closeButton.left, each.width - 1165);
    EXPECT_LT(layout.frame.left + layout.frame.width, layout.saveButton.left);
    EXPECT_EQ(layout.newButton.top, layout.frame.top);
    EXPECT_EQ(layout.closeButton.top + layout.closeButton.height, layout.frame.top + layout.frame.height);
  }
}

TEST(EditLayoutTest, RowsHaveMoreRoomFromSixLinesOn) {
  for (const auto& [lines, height] : {std::pair{5, 1025}, {6, 1230}, {0, 75}}) {
    EXPECT_EQ(GridRowHeight(lines), height) << lines;
  }
  EXPECT_GT(GridRowHeight(std::numeric_limits<std::int32_t>::max()), 0);
}

}  // namespace
}  // namespace quorvel
