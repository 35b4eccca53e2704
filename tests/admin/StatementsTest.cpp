#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::Contains;
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
               {"Entities", "Contexts", "Where t.RemarkEntityKey = 1ORDER BY t.ContextKey, t.ContextID"},
               {"Entities", "Remarks", "Where t.RemarkEntityKey = 1ORDER BY t.RemarkTypeKey, t.RemarkTypeID"}};
  for (const auto& each : cases) {
    window.View(each.view);
    server->ForgetRequests();
    window.Tab(each.tab);
    EXPECT_THAT(server->Requests(), Contains(HasSubstr(each.part)));
  }
}

}  // namespace
}  // namespace quorvel::test
