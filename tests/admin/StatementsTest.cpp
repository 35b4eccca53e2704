#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::_;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class StatementsTest : public AdminTest {};
// Only the server lists the statements that it was sent.
INSTANTIATE_TEST_SUITE_P(Engines, StatementsTest, testing::Values(EngineKind::StandIn), NameOfParam);

/// Statements with blanks, capitals and missing blanks that servers accept and readers would mend.
TEST_P(StatementsTest, AreSentAsTheyAreWritten) {
  Open();
  const struct {
    const char* view;
    const char* tab;
    const char* part;
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
    window.View(each.view);
    server->ForgetRequests();
    window.Tab(each.tab);
    EXPECT_THAT(server->Requests(), Contains(HasSubstr(each.part)));
  }
}

TEST_P(StatementsTest, KeepThePositionsOfAContextInThisOrder) {
  Open();
  window.View("Remarks");
  window.Pick("Cust.Credit");
  window.Tab("Contexts");
  server->ForgetRequests();
  window.Add(6, "CustInq");
  window.Remove(6, "CustInq");
  const std::string update =
      "UPDATE ttwRemarkContext\r\nSET DisplaySeq = 2\r\nWHERE ContextKey = 2 and RemarkTypeKey = 2";
  EXPECT_THAT(
      server->Requests(),
      ElementsAre("SELECT  DisplaySeq FROM ttwRemarkContext WHERE ContextKey = 2ORDER BY DisplaySeq", _,
                  "call spTWCqvAddRemarkContext", update,
                  "SELECT RemarkTypeKey, Priority, DisplaySeq FROM ttwRemarkContext WHERE ContextKey = 2  AND "
                  "RemarkTypeKey = 2",
                  "SELECT DisplaySeq FROM ttwRemarkContext WHERE ContextKey = 2and RemarkTypeKey = 2",
                  "SELECT RemarkTypeKey, DisplaySeq FROM ttwRemarkContext WHERE ContextKey = 2and DisplaySeq > 2", _,
                  "call spTWCqvRemoveRemarkContext"));
}

}  // namespace
}  // namespace quorvel::test
