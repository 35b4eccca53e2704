#include "tests/host/CommandLine.h"

namespace quorvel::test {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

TEST_F(CommandLine, DoctorPassesAGoodDatabaseAndFindsEveryFault) {
  Initialize(true);
  const Outcome good = Quorvel({"doctor"});
  EXPECT_THAT(good, Succeeds());
  EXPECT_THAT(good.output,
              AllOf(HasSubstr("ok    connection, "), HasSubstr("ok    table tciMemo\n"),
                    HasSubstr("ok    procedure spGetNextSurrogateKey (@iTableName, @oNewKey OUTPUT)\n"),
                    HasSubstr("ok    owner procedure spGetOrderName, entity Order\n"), Not(HasSubstr("FAIL"))));

  RunSql(
      "DROP TABLE ttwRightAssignment\nGO\nDROP TABLE ttwRemarkContext\nGO\n"
      "CREATE TABLE ttwRemarkContext (ContextKey int, RemarkTypeKey int, DisplaySeq int)\nGO\n"
      "DROP PROCEDURE spTWCqvGetContext\nGO\n"
      "ALTER PROCEDURE spTWCqvDeleteRemark @Key int AS DELETE FROM tciMemo WHERE MemoKey = @Key\nGO\n"
      "UPDATE ttwRemarkEntity SET spGetOwnerName = 'spGone' WHERE RemarkEntityID = 'Order'");
  const Outcome broken = Quorvel({"doctor"});
  EXPECT_EQ(broken.status, 1);
  EXPECT_THAT(broken.output,
              AllOf(HasSubstr("FAIL  table ttwRightAssignment: "), HasSubstr("FAIL  table ttwRemarkContext: "),
                    HasSubstr("FAIL  procedure spTWCqvGetContext "),
                    HasSubstr("FAIL  procedure spTWCqvDeleteRemark (@MemoKey): it takes (@Key) and not (@MemoKey)\n"),
                    HasSubstr("FAIL  owner procedure spGone, entity Order: "),
                    HasSubstr("      Run 'quorvel init' to create what is missing.\n")));
  EXPECT_THAT(broken.errors, HasSubstr("quorvel: error -1 at quorvel.doctor: 5 of "));
  EXPECT_THAT(Quorvel({"manage"}).errors, HasSubstr("quorvel: error -1 at quorvel.manage: Table ttwRightAssignment: "));

  ASSERT_THAT(Quorvel({"init"}), Succeeds());
  EXPECT_THAT(Quorvel({"doctor"}).errors, HasSubstr("quorvel: error -1 at quorvel.doctor: 2 of "));
}

TEST_F(CommandLine, DoctorSaysWhyItCannotConnect) {
  const Outcome unset = Quorvel({"doctor"});
  EXPECT_EQ(unset.status, 1);
  EXPECT_THAT(unset.output, AllOf(HasSubstr("ok    settings, kept in " + File("settings.reg")),
                                  HasSubstr("FAIL  server: none is set"), HasSubstr("FAIL  database: none is")));

  ASSERT_THAT(Quorvel({"settings", "Server=(embedded)", "Database=" + File("gone.db")}), Succeeds());
  const Outcome missing = Quorvel({"doctor"});
  EXPECT_EQ(missing.status, 1);
  EXPECT_THAT(missing.output, AllOf(HasSubstr("FAIL  connection: "), HasSubstr("gone.db"), HasSubstr("quorvel init")));
}

}  // namespace
}  // namespace quorvel::test
