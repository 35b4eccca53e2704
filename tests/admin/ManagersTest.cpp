// Scenarios of single views.

#include <string>

#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::StartsWith;

/// The remark types of a context with their positions.
constexpr std::string_view kTypes =
    "SELECT t.RemarkTypeID, c.DisplaySeq FROM ttwRemarkContext c INNER JOIN ttwRemarkType t ON t.RemarkTypeKey = "
    "c.RemarkTypeKey WHERE c.ContextKey = 2 ORDER BY c.DisplaySeq";

TEST_P(AdminTest, UsersHaveABranchAndTheRightsOfTheirGroups) {
  Run("UPDATE ttwUser SET BranchID = 'EAST' WHERE UserID = 'guest'");
  admin.Load();
  Pick("jsmith");
  EXPECT_EQ(controls.cboBranch->CurrentText(), "NORTH");
  Pick("guest");
  EXPECT_EQ(controls.cboBranch->CurrentText(), "") << "the branch is gone, and jsmith's is not the guest's";
  controls.chkUserActive->SetValue(0);
  admin.ClickField("Active");
  Choose(controls.cboBranch, "<none>");
  admin.ClickField("Branch");
  EXPECT_EQ(Ask("SELECT UserID + BranchID FROM ttwUser WHERE IsActive = 0"), "guest");

  Go("Users", "jsmith", "Groups");
  Add(0, "Sales");
  Tab("Rights");
  EXPECT_THAT(Rows(0, 1, 3),
              IsSupersetOf({"Order.Enter|1|Through: Default, Sales", "Order.Delete|NULL|Through no group"}));
  Tab("Remarks");
  EXPECT_THAT(Rows(1, 0, 3), IsSupersetOf({"Cust.Credit|1|Collections: read\nSales: create, read, update",
                                           "Cust.Internal|NULL|Through no group"}));
  Go("Rights", "Order.Enter", "Users");
  EXPECT_THAT(Rows(2, 0, 3), ElementsAre("admin|NORTH", "jsmith|NORTH", "mjones|SOUTH"));
}

TEST_P(AdminTest, GroupsShowWhatAnotherAdministratorHasDoneMeanwhile) {
  admin.ClickView("Groups");
  EXPECT_EQ(ShownID(), "Default");
  Go("Groups", "Collections", "Remarks");
  EXPECT_FALSE(IsEnabled(controls.chkRight[2]));
  Choose(controls.lstRemaining[3], "General");
  Select(3, "Credit");
  EXPECT_EQ(controls.lstRemaining[3]->ListIndex(), -1);
  EXPECT_GT(controls.chkRight[2]->Value(), controls.chkRight[1]->Value()) << "the group may only read";

  Go("Groups", "Sales", "Users");
  Run("INSERT INTO ttwGroupMember (GroupKey, UserKey) VALUES (3, 4) INSERT INTO ttwGroup (GroupID) VALUES ('Team')");
  Add(1, "guest");
  EXPECT_THAT(Prompted(), ElementsAre(StartsWith("Error in ")));
  EXPECT_THAT(Current(1), ElementsAre("mjones", "guest"));
  Tab("Remarks");
  New("team");
  EXPECT_EQ(Prompted().back(), "Group Already Defined|team is already defined as a group");

  Go("Groups", "Sales", "Remarks");
  Select(3, "Credit");
  Run("DELETE FROM ttwRemarkRight WHERE GroupKey = 3 AND RemarkTypeKey = 2");
  Check(3, true);
  EXPECT_THAT(Prompted(), ElementsAre(HasSubstr("somebody else has removed it")));
  EXPECT_THAT(Current(3), ElementsAre("Shipping"));
  EXPECT_FALSE(IsEnabled(controls.chkRight[3]));
  Select(3, "Shipping");
  Run("DROP TABLE ttwRemarkRight");
  Check(3, false);
  EXPECT_EQ(controls.chkRight[3]->Value(), 1) << "a refused click is taken back";
}

TEST_P(AdminTest, RemarkTypesFollowTheOthersOfAContextAndLeaveNoGap) {
  admin.ClickView("Remarks");
  New("Ord.Bill");
  EXPECT_EQ(controls.txtCaption[8]->Text(), "Order");
  Go("Remarks", "Cust.Credit", "Contexts");
  EXPECT_THAT(Remaining(6), ElementsAre("CustInq")) << "not those of another entity";
  Add(6, "CustInq");
  const auto connection = database.Connect();
  EXPECT_THAT(RowsOf(*connection, kTypes), ElementsAre("Cust.AR.Coll|0", "Cust.General|1", "Cust.Credit|2"));
  Pick("Cust.AR.Coll");
  Remove(6, "CustInq");
  EXPECT_THAT(RowsOf(*connection, kTypes), ElementsAre("Cust.General|0", "Cust.Credit|1"));
  Run("DELETE FROM ttwRemarkContext WHERE ContextKey = 2");
  Add(6, "CustInq");
  EXPECT_THAT(RowsOf(*connection, kTypes), ElementsAre("Cust.AR.Coll|0"));
  Go("Contexts", "CustInq", "Remarks");
  Run("UPDATE ttwRemarkContext SET DisplaySeq = 9 WHERE ContextKey = 2");
  for (const char* type : {"Credit", "General", "Internal"}) Add(7, type);
  Remove(7, "Credit");
  EXPECT_THAT(RowsOf(*connection, kTypes), ElementsAre("Cust.AR.Coll|9", "Cust.General|10", "Cust.Internal|11"));
}

TEST_P(AdminTest, ContextsHaveSettings) {
  Run("UPDATE ttwContext SET EditBehavior = 7 WHERE ContextID = 'OrderEntry'");
  admin.Load();
  Go("Contexts", "CustMaint");
  EXPECT_EQ(controls.txtCaption[7]->Text() + controls.txtRowHeight->Text() + controls.cboEditBehavior->CurrentText(),
            "Customer2PromptSave");
  controls.udRowHeight->SetValue(5);
  admin.ChangeRowHeight();
  controls.chkGroupByType->SetValue(0);
  admin.ClickField("chkGroupByType");
  Choose(controls.cboEditBehavior, "NoAutoSave");
  admin.ClickField("EditBehavior");
  EXPECT_TRUE(Type(controls.txtCaption[3], "ignored", "caption")) << "letter case counts";
  EXPECT_EQ(Ask("SELECT MAX(ContextID + Caption) FROM ttwContext WHERE RowHeight = 5 AND GroupByType = 0 AND "
                "AllowRowSizing = 1 AND EditBehavior = 1"),
            "CustMaintCustomer Maintenance");
  Pick("OrderEntry");
  EXPECT_EQ(controls.cboEditBehavior->CurrentText(), "") << "an unknown behaviour is not the former context's";
}

TEST_P(AdminTest, FailedExchangeShowsTheListAsItIsAndLeavesTheWindowBusy) {
  Go("Contexts", "CustMaint", "Remarks");
  Select(7, "Collections");
  EXPECT_FALSE(IsEnabled(controls.cmdUp[1]));
  admin.ClickUp();
  admin.ClickDown();
  admin.ClickDown();
  EXPECT_TRUE(IsEnabled(controls.cmdUp[1]));
  EXPECT_THAT(Current(7), ElementsAre("Credit", "General", "Collections", "Internal"));
  Select(7, "General");
  Run("DELETE FROM ttwRemarkContext WHERE RemarkTypeKey = 1");
  admin.ClickDown();
  EXPECT_THAT(Prompted(), ElementsAre(HasSubstr("somebody else has removed it")));
  EXPECT_THAT(Current(7), ElementsAre("Credit", "General", "Internal"));
  const char* const priority = "SELECT Priority FROM ttwRemarkContext WHERE ContextKey = 1 AND RemarkTypeKey = 3";
  Check(9, true);
  EXPECT_EQ(Ask(priority), "0");
  Tab("Remarks");
  Select(7, "General");
  Check(9, true);
  EXPECT_EQ(Ask(priority), "1");
  if (!server) return;
  server->DropAtRequest(4);
  admin.ClickUp();
  EXPECT_THAT(server->Requests().back(), HasSubstr("WHERE rc.ContextKey = 1ORDER BY rc.DisplaySeq"));
}

TEST_P(AdminTest, EntitiesShowTheirContextsAndTypes) {
  admin.ClickView("Entities");
  EXPECT_FALSE(Type(controls.txtEntity, "many", "EntityKey"));
  EXPECT_EQ(ShownID() + controls.txtEntity->Text(), "Customer501");
  Tab("Contexts");
  EXPECT_THAT(Rows(3, 0, 1), ElementsAre("CustMaint|1", "CustInq|2"));
  Go("Entities", "Order", "Remarks");
  EXPECT_THAT(Rows(4, 0, 1), ElementsAre("Ord.Ship|5", "Ord.Note|6"));
}

}  // namespace
}  // namespace quorvel::test
