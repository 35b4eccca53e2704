// Scenarios of single views, and the statements that they send.

#include <string>

#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::IsSupersetOf;

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
  Go("Entities", "Customer", "Contexts");
  EXPECT_THAT(Rows(3, 0, 1), ElementsAre("CustMaint|1", "CustInq|2"));
}

TEST_P(AdminTest, GroupsShowWhatAnotherAdministratorHasDoneMeanwhile) {
  admin.ClickView("Groups");
  EXPECT_EQ(ShownID(), "Default");
  Go("Groups", "Collections", "Remarks");
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
  Select(3, "Shipping");
  Run("DROP TABLE ttwRemarkRight");
  Check(3, false);
  EXPECT_EQ(controls.chkRight[3]->Value(), 1) << "a refused click is taken back";
}

TEST_P(AdminTest, RemarkTypesFollowTheOthersOfAContextAndLeaveNoGap) {
  const auto types = [connection = database.Connect()] {
    return RowsOf(*connection,
                  "SELECT t.RemarkTypeID, c.DisplaySeq FROM ttwRemarkContext c INNER JOIN ttwRemarkType t ON "
                  "t.RemarkTypeKey = c.RemarkTypeKey WHERE c.ContextKey = 2 ORDER BY c.DisplaySeq");
  };
  Go("Remarks", "Cust.Credit", "Contexts");
  EXPECT_THAT(Remaining(6), ElementsAre("CustInq")) << "not those of another entity";
  Add(6, "CustInq");
  EXPECT_THAT(types(), ElementsAre("Cust.AR.Coll|0", "Cust.General|1", "Cust.Credit|2"));
  Pick("Cust.AR.Coll");
  Remove(6, "CustInq");
  EXPECT_THAT(types(), ElementsAre("Cust.General|0", "Cust.Credit|1"));
  Run("DELETE FROM ttwRemarkContext WHERE ContextKey = 2");
  Add(6, "CustInq");
  EXPECT_THAT(types(), ElementsAre("Cust.AR.Coll|0"));
  Go("Contexts", "CustInq", "Remarks");
  Run("UPDATE ttwRemarkContext SET DisplaySeq = 9 WHERE ContextKey = 2");
  for (const char* type : {"Credit", "General", "Internal"}) Add(7, type);
  Remove(7, "Credit");
  EXPECT_THAT(types(), ElementsAre("Cust.AR.Coll|9", "Cust.General|10", "Cust.Internal|11"));
}

TEST_P(AdminTest, ContextsHaveSettings) {
  Run("UPDATE ttwContext SET EditBehavior = 7 WHERE ContextID = 'OrderEntry'");
  admin.Load();
  Go("Contexts", "CustMaint");
  EXPECT_EQ(controls.txtCaption[7]->Text() + controls.txtRowHeight->Text() + controls.cboEditBehavior->CurrentText(),
            "Customer22");
  controls.udRowHeight->SetValue(5);
  admin.ChangeRowHeight();
  controls.chkGroupByType->SetValue(0);
  admin.ClickField("chkGroupByType");
  Choose(controls.cboEditBehavior, "1");
  admin.ClickField("EditBehavior");
  EXPECT_TRUE(Type(controls.txtCaption[3], "ignored", "caption")) << "letter case counts";
  EXPECT_EQ(Ask("SELECT MAX(ContextID + Caption) FROM ttwContext WHERE RowHeight = 5 AND GroupByType = 0 AND "
                "AllowRowSizing = 1 AND EditBehavior = 1"),
            "CustMaintCustomer Maintenance");
  Pick("OrderEntry");
  EXPECT_EQ(controls.cboEditBehavior->CurrentText(), "") << "an unknown behaviour is not the former context's";
}

TEST_P(AdminTest, FailedExchangeShowsTheListAsItIs) {
  Go("Contexts", "CustMaint", "Remarks");
  Select(7, "Collections");
  EXPECT_FALSE(IsEnabled(controls.cmdUp[1]));
  admin.ClickDown();
  admin.ClickDown();
  EXPECT_THAT(Current(7), ElementsAre("Credit", "General", "Collections", "Internal"));
  Select(7, "General");
  Run("DELETE FROM ttwRemarkContext WHERE RemarkTypeKey = 1");
  const std::string priorities = Ask("SELECT SUM(Priority) FROM ttwRemarkContext WHERE ContextKey = 1");
  admin.ClickDown();
  EXPECT_THAT(Prompted(), ElementsAre(HasSubstr("somebody else has removed it")));
  EXPECT_THAT(Current(7), ElementsAre("Credit", "General", "Internal"));
  Check(9, true);
  EXPECT_EQ(Ask("SELECT SUM(Priority) FROM ttwRemarkContext WHERE ContextKey = 1"), priorities) << "it is still busy";
}

// Only the server lists the statements that it was sent.

/// Statements with blanks, capitals and missing blanks that servers accept and readers would mend.
TEST(Statements, AreSentAsTheyAreWritten) {
  AdminSession s(EngineKind::StandIn);
  s.admin.Load();
  EXPECT_THAT(s.title, EndsWith(") on " + s.server->Address() + ".Ledger; Driver=FreeTDS"));
  for (const char* view : {"Users", "Rights", "Remarks", "Contexts", "Entities"}) {
    s.admin.ClickView(view);
    for (const char* tab : {"Rights", "Remarks", "Users", "Contexts"}) s.Tab(tab);
  }
  for (const char* part :
       {"From  ttwUser t4 left join", "WHERE t4.UserKey =3) T2 on T1.RightKey = T2.RightKey",
        "RemarkEntityKey)T1 left join (SELECT", "WHERE   u.UserKey = 3GROUP BY t.RemarkTypeID, t.Caption)T2 on",
        "ttwRightAssignment t1, ttwgroup t2, ttwGroupMember t3 WHERE",
        "and t1.RightKey = 1ORDER BY t.UserID, t.LastName",
        "SELECT RemarKTypeKey, RemarKTypeID, Caption FROM ttwRemarkType WHERE  ttw", "FROM ttwRemarKType rt INNER JOIN",
        "WHERE rc.ContextKey = 2ORDER BY rc.DisplaySeq", "WHERE  ttwContext.RemarkEntityKey = 1",
        "Where t.RemarkEntityKey = 1ORDER BY t.ContextKey, t.ContextID",
        "Where t.RemarkEntityKey = 1ORDER BY t.RemarkTypeKey, t.RemarkTypeID"}) {
    EXPECT_THAT(s.server->Requests(), Contains(HasSubstr(part)));
  }
}

TEST(Statements, KeepThePositionsOfAContextInThisOrder) {
  AdminSession s(EngineKind::StandIn);
  s.admin.Load();
  s.Go("Remarks", "Cust.Credit", "Contexts");
  s.server->ForgetRequests();
  s.Add(6, "CustInq");
  s.Remove(6, "CustInq");
  EXPECT_THAT(
      s.server->Requests(),
      ElementsAre("SELECT  DisplaySeq FROM ttwRemarkContext WHERE ContextKey = 2ORDER BY DisplaySeq", _,
                  "call spTWCqvAddRemarkContext",
                  "UPDATE ttwRemarkContext\r\nSET DisplaySeq = 2\r\nWHERE ContextKey = 2 and RemarkTypeKey = 2",
                  "SELECT RemarkTypeKey, Priority, DisplaySeq FROM ttwRemarkContext WHERE ContextKey = 2  AND "
                  "RemarkTypeKey = 2",
                  "SELECT DisplaySeq FROM ttwRemarkContext WHERE ContextKey = 2and RemarkTypeKey = 2",
                  "SELECT RemarkTypeKey, DisplaySeq FROM ttwRemarkContext WHERE ContextKey = 2and DisplaySeq > 2", _,
                  "call spTWCqvRemoveRemarkContext"));
  s.Go("Contexts", "CustMaint", "Remarks");
  s.Select(7, "General");
  s.server->ForgetRequests();
  s.admin.ClickRemove(7);
  EXPECT_THAT(s.server->Requests(),
              ElementsAre(HasSubstr("WHERE RemarkTypeKey = 3  AND ContextKey = 1"),
                          "UPDATE ttwRemarkContext\r\nSET DisplaySeq = 2\r\nWHERE RemarkTypeKey = 4 and ContextKey = 1",
                          _, "call spTWCqvRemoveRemarkContext"));
}

}  // namespace
}  // namespace quorvel::test
