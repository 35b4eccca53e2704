#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::_;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

// Only the server lists the statements that it was sent.

/// Statements with blanks, capitals and missing blanks that servers accept and readers would mend.
TEST(Statements, AreSentAsTheyAreWritten) {
  AdminSession s(EngineKind::StandIn);
  s.admin.Load();
  EXPECT_THAT(s.title, EndsWith(") on " + s.server->Address() + ".Ledger; Driver=FreeTDS"));
  const struct {
    std::string view, tab, part;
  } cases[] = {{"Users", "Rights", "From  ttwUser t4 left join"},
               {"Users", "Rights", "WHERE t4.UserKey =3) T2 on T1.RightKey = T2.RightKey"},
               {"Users", "Remarks", "RemarkEntityKey)T1 left join (SELECT"},
               {"Users", "Remarks", "WHERE   u.UserKey = 3GROUP BY t.RemarkTypeID, t.Caption)T2 on"},
               {"Rights", "Users", "ttwRightAssignment t1, ttwgroup t2, ttwGroupMember t3 WHERE"},
               {"Rights", "Users", "and t1.RightKey = 1ORDER BY t.UserID, t.LastName"},
               {"Contexts", "Remarks", "SELECT RemarKTypeKey, RemarKTypeID, Caption FROM ttwRemarkType WHERE  ttw"},
               {"Contexts", "Remarks", "FROM ttwRemarKType rt INNER JOIN"},
               {"Contexts", "Remarks", "WHERE rc.ContextKey = 2ORDER BY rc.DisplaySeq"},
               {"Remarks", "Contexts", "WHERE  ttwContext.RemarkEntityKey = 1"},
               {"Entities", "Contexts", "Where t.RemarkEntityKey = 1ORDER BY t.ContextKey, t.ContextID"},
               {"Entities", "Remarks", "Where t.RemarkEntityKey = 1ORDER BY t.RemarkTypeKey, t.RemarkTypeID"}};
  for (const auto& each : cases) {
    s.admin.ClickView(each.view);
    s.server->ForgetRequests();
    s.Tab(each.tab);
    EXPECT_THAT(s.server->Requests(), Contains(HasSubstr(each.part)));
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
                          "call spTWCqvRemoveRemarkContext"));
}

}  // namespace
}  // namespace quorvel::test
