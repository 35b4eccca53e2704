#include <fstream>

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
  const std::string addColumn =
      "ALTER TABLE ttwRemarkContext ADD Priority smallint NOT NULL CONSTRAINT DF_ttwRemarkContext_Priority DEFAULT (0)";
  const Outcome broken = Quorvel({"doctor"});
  EXPECT_EQ(broken.status, 1);
  EXPECT_THAT(broken.output,
              AllOf(HasSubstr("FAIL  table ttwRightAssignment: "),
                    HasSubstr("FAIL  table ttwRemarkContext: it lacks the column Priority\n"),
                    HasSubstr("        " + addColumn + "\n"), HasSubstr("FAIL  procedure spTWCqvGetContext "),
                    HasSubstr("FAIL  procedure spTWCqvGetRemarkTypes (@ContextID): Invalid column name 'rc.Priority'"),
                    HasSubstr("FAIL  procedure spTWCqvDeleteRemark (@MemoKey): it takes (@Key) and not (@MemoKey)\n"
                              "      The host has written it, and 'quorvel init' keeps it. Correct it, or put this "
                              "version's in its place with 'quorvel init --replace spTWCqvDeleteRemark'.\n"),
                    HasSubstr("FAIL  owner procedure spGone, entity Order: "),
                    HasSubstr("      Run 'quorvel init' to create what is missing.\n")));
  EXPECT_THAT(broken.errors, HasSubstr("quorvel: error -1 at quorvel.doctor: 7 of "));
  EXPECT_THAT(Quorvel({"manage"}).errors, HasSubstr("quorvel: error -1 at quorvel.manage: Table ttwRightAssignment: "));

  const Outcome incomplete = Quorvel({"init"});
  EXPECT_EQ(incomplete.status, 1);
  EXPECT_THAT(incomplete.output, HasSubstr("Schema: not complete\n"));
  EXPECT_THAT(incomplete.errors,
              AllOf(HasSubstr("Table ttwRemarkContext lacks the column Priority. "), HasSubstr(addColumn)));
  RunSql(addColumn);
  EXPECT_THAT(Quorvel({"init"}).output, HasSubstr("Kept: the host's spTWCqvDeleteRemark; "));
  EXPECT_THAT(Quorvel({"doctor"}).errors, HasSubstr("quorvel: error -1 at quorvel.doctor: 2 of "));
  const Outcome replaced = Quorvel({"init", "--replace", "sptwcqvdeleteremark"});
  EXPECT_THAT(replaced, Succeeds());
  EXPECT_THAT(replaced.output, HasSubstr("Replaced: the host's spTWCqvDeleteRemark\n"));
  EXPECT_THAT(Quorvel({"doctor"}).errors, HasSubstr("quorvel: error -1 at quorvel.doctor: 1 of "));
}

// These faults show only when a procedure runs or a row is read.
TEST_F(CommandLine, DoctorReadsAsTheComponentDoes) {
  Initialize(true);
  RunSql(
      "ALTER PROCEDURE spGetOrderName @OwnerID varchar(30) AS SELECT 1 AS OwnerKey\nGO\n"
      "ALTER PROCEDURE spGetCustomerName @OwnerID varchar(30) AS SELECT OwnerKey, OwnerName FROM Gone\nGO\n"
      "DROP TABLE ttwBranch\nGO\nCREATE TABLE ttwBranch (BranchName nvarchar(60) NOT NULL)\nGO\n"
      "DROP TABLE tciMemo\nGO\nCREATE TABLE tciMemo (MemoKey bigint, MemoType varchar(30), EntityType smallint, "
      "OwnerKey int, DateStamp datetime, UserID varchar(30), MemoText nvarchar(max))\nGO\n"
      "INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText) "
      "SELECT 9001, 'Cust.General', 501, 45, GETDATE(), 'admin', 'good' UNION ALL "
      "SELECT 9002, 'Cust.General', 501, 45, '2026-99-99 00:00:00.000', 'admin', 'bad' UNION ALL "
      "SELECT 9003, 'Cust.General', 501, 45, GETDATE(), 'admin', NULL UNION ALL "
      "SELECT 9000000003, 'Cust.General', 501, 45, GETDATE(), 'admin', 'beyond'");
  const std::string output = Quorvel({"doctor"}).output;
  EXPECT_THAT(output, AllOf(HasSubstr("from a backup; the column BranchID cannot be added to a table with rows."),
                            Not(HasSubstr("ALTER TABLE"))));
  EXPECT_THAT(
      output,
      AllOf(HasSubstr("FAIL  owner procedure spGetOrderName, entity Order: its result lacks OwnerName\n"),
            HasSubstr("FAIL  owner procedure spGetCustomerName, entity Customer: Invalid object name 'Gone'"),
            HasSubstr("FAIL  dates of the memos: invalid in MemoKey 9002\n"), HasSubstr("SET DateStamp = GETDATE()"),
            HasSubstr("FAIL  texts and users of the memos: invalid in MemoKey 9003\n"),
            HasSubstr("FAIL  keys of the memos: invalid in MemoKey 9000000003\n")));
}

TEST_F(CommandLine, DoctorAndInitMissAColumnOfTheKeys) {
  Initialize(false);
  RunSql("DELETE FROM ttwSurrogateKey");
  EXPECT_THAT(Quorvel({"doctor"}).output, HasSubstr("FAIL  counter of tciMemo: ttwSurrogateKey has no row for it\n"));
  EXPECT_THAT(Quorvel({"init"}), Succeeds());
  EXPECT_THAT(Quorvel({"doctor"}), Succeeds());
  RunSql("DROP TABLE ttwSurrogateKey\nGO\nCREATE TABLE ttwSurrogateKey (TableName varchar(128) NOT NULL)");
  EXPECT_THAT(Quorvel({"doctor"}).output, HasSubstr("FAIL  table ttwSurrogateKey: it lacks the column LastKey\n"));
  EXPECT_THAT(Quorvel({"init"}).errors, HasSubstr("Table ttwSurrogateKey lacks the column LastKey. "));
}

TEST_F(CommandLine, DoctorGoesOnAfterATableThatOtherChecksNeed) {
  Initialize(false);
  RunSql(
      "DROP TABLE tciMemo\nGO\nDROP TABLE ttwLayout\nGO\nCREATE TABLE ttwLayout (Version int)\nGO\n"
      "INSERT INTO ttwLayout VALUES (1)");
  const Outcome broken = Quorvel({"doctor"});
  EXPECT_THAT(broken.output,
              AllOf(HasSubstr("FAIL  table tciMemo: "), HasSubstr("lacks the column LayoutVersion"),
                    HasSubstr("ok    procedure spGetNextSurrogateKey"), Not(HasSubstr("FAIL  writing to the file"))));
}

TEST_F(CommandLine, NewerLayoutIsLeftAlone) {
  Initialize(false);
  RunSql("INSERT INTO ttwLayout (LayoutVersion) VALUES (99)");
  EXPECT_THAT(Quorvel({"init"}),
              Fails("-1 at quorvel.init: A newer version has set this database up: its layout is 99, and "
                    "this version knows 1. Use the newer version; nothing was changed"));
  EXPECT_THAT(Quorvel({"doctor"}).output, HasSubstr("FAIL  layout version 99: this program knows 1\n"));
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

TEST_F(CommandLine, DoctorNamesWrongLinesOfTheSettingsAndGoesOnWhereAHostDoes) {
  Initialize(true);
  std::ofstream(File("settings.reg"), std::ios::app) << "\"UserId\"=\"app\"\n";
  const Outcome doubled = Quorvel({"doctor"});
  EXPECT_THAT(doubled.output, AllOf(HasSubstr("ok    settings, kept in "), HasSubstr("ok    table tciMemo\n"),
                                    HasSubstr("FAIL  lines of the settings: Line 8 sets \"UserId\" once more"),
                                    HasSubstr("\n      Correct each line in that file")));
  EXPECT_THAT(doubled.errors, HasSubstr(" at quorvel.doctor: 1 of "));

  std::ofstream(File("settings.reg"), std::ios::app) << "Server=SQL1\n";
  EXPECT_THAT(Quorvel({"doctor"}).output,
              AllOf(HasSubstr("FAIL  settings, kept in "), HasSubstr("Correct the lines that are named next."),
                    HasSubstr("Line 9 gives \"Server\" no value"), Not(HasSubstr("QUORVEL_REGISTRY"))));
}

}  // namespace
}  // namespace quorvel::test
