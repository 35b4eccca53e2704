#include <fstream>

#include "platform/FileUpdate.h"
#include "tests/host/CommandLine.h"

namespace quorvel::test {
namespace {

TEST_F(CommandLine, DoctorPassesAGoodDatabaseAndFindsEveryFault) {
  Initialize(true);
  EXPECT_THAT(Quorvel({"doctor"}),
              Succeeds(AllOf(HasAll("ok    connection, ", "ok    table tciMemo\n",
                                    "ok    procedure spGetNextSurrogateKey (@iTableName, @oNewKey OUTPUT)\n",
                                    "ok    owner procedure spGetOrderName, entity Order\n"),
                             Not(HasSubstr("FAIL")))));

  RunSql(
      "DROP TABLE ttwRightAssignment\nGO\nDROP TABLE ttwRemarkContext\nGO\n"
      "CREATE TABLE ttwRemarkContext (ContextKey int, RemarkTypeKey int, DisplaySeq int)\nGO\n"
      "DROP PROCEDURE spTWCqvGetContext\nGO\n"
      "ALTER PROCEDURE spTWCqvDeleteRemark @Key int AS DELETE FROM tciMemo WHERE MemoKey = @Key\nGO\n"
      "UPDATE ttwRemarkEntity SET spGetOwnerName = 'spGone' WHERE RemarkEntityID = 'Order'");
  const std::string addColumn =
      "ALTER TABLE ttwRemarkContext ADD Priority smallint NOT NULL CONSTRAINT DF_ttwRemarkContext_Priority DEFAULT (0)";
  EXPECT_THAT(Quorvel({"doctor"}),
              FailsWith(HasSubstr("quorvel: error -1 at quorvel.doctor: 7 of "),
                        HasAll("FAIL  table ttwRightAssignment: ",
                               "FAIL  table ttwRemarkContext: it lacks the column Priority\n",
                               "        " + addColumn + "\n", "FAIL  procedure spTWCqvGetContext ",
                               "FAIL  procedure spTWCqvGetRemarkTypes (@ContextID): Invalid column name 'rc.Priority'",
                               "FAIL  procedure spTWCqvDeleteRemark (@MemoKey): it takes (@Key) and not (@MemoKey)\n"
                               "      The host has written it, and 'quorvel init' keeps it. Correct it, or put this "
                               "version's in its place with 'quorvel init --replace spTWCqvDeleteRemark'.\n",
                               "FAIL  owner procedure spGone, entity Order: ",
                               "      Run 'quorvel init' to create what is missing.\n")));
  EXPECT_THAT(Quorvel({"manage"}).errors, HasSubstr("quorvel: error -1 at quorvel.manage: Table ttwRightAssignment: "));

  EXPECT_THAT(Quorvel({"init"}), FailsWith(HasAll("Table ttwRemarkContext lacks the column Priority. ", addColumn),
                                           HasSubstr("Schema: not complete\n")));
  RunSql(addColumn);
  EXPECT_THAT(Quorvel({"init"}).output, HasSubstr("Kept: the host's spTWCqvDeleteRemark; "));
  EXPECT_THAT(Quorvel({"doctor"}).errors, HasSubstr("quorvel: error -1 at quorvel.doctor: 2 of "));
  EXPECT_THAT(Quorvel({"init", "--replace", "sptwcqvdeleteremark"}),
              Succeeds(HasSubstr("Replaced: the host's spTWCqvDeleteRemark\n")));
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
  EXPECT_THAT(Quorvel({"doctor"}).output,
              AllOf(HasAll("from a backup; the column BranchID cannot be added to a table with rows.",
                           "FAIL  owner procedure spGetOrderName, entity Order: its result lacks OwnerName\n",
                           "FAIL  owner procedure spGetCustomerName, entity Customer: Invalid object name 'Gone'",
                           "FAIL  dates of the memos: invalid in MemoKey 9002\n", "SET DateStamp = GETDATE()",
                           "FAIL  texts and users of the memos: invalid in MemoKey 9003\n",
                           "FAIL  keys of the memos: invalid in MemoKey 9000000003\n"),
                    Not(HasSubstr("ALTER TABLE"))));
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
  EXPECT_THAT(Quorvel({"doctor"}).output, AllOf(HasAll("FAIL  table tciMemo: ", "lacks the column LayoutVersion",
                                                       "ok    procedure spGetNextSurrogateKey"),
                                                Not(HasSubstr("FAIL  writing to the file"))));
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
  EXPECT_THAT(Quorvel({"doctor"}), FailsWith(_, HasAll("ok    settings, kept in " + File("settings.reg"),
                                                       "FAIL  server: none is set", "FAIL  database: none is")));

  ASSERT_THAT(Quorvel({"settings", "Server=(embedded)", "Database=" + File("gone.db")}), Succeeds());
  EXPECT_THAT(Quorvel({"doctor"}), FailsWith(_, HasAll("FAIL  connection: ", "gone.db", "quorvel init")));

  // A connection would read another name, and `init` make a file that no host opens.
  ASSERT_THAT(Quorvel({"settings", "Server=SQL1", "Database=" + File("a.db") + ";Encrypt=yes"}), Succeeds());
  const auto settings = ReadWholeFile(File("settings.reg"));
  for (const char* name : {"a;b.db", "a.db ", "a.db;Database=b.db"}) {
    EXPECT_THAT(Quorvel({"settings", "Server=(embedded)", "Database=" + File(name)}),
                FailsWith(HasSubstr("quorvel.settings: The name of a database file must not contain a semicolon")))
        << name;
  }
  EXPECT_EQ(ReadWholeFile(File("settings.reg")), settings);
  std::ofstream(File("settings.reg"), std::ios::app) << "\"Server\"=\"(embedded)\"\n";
  EXPECT_THAT(Quorvel({"doctor"}), FailsWith(_, HasSubstr("FAIL  name of the database file: ")));
  EXPECT_THAT(Quorvel({"init"}), FailsWith(HasSubstr("quorvel.init: The name of a database file must not contain")));
}

TEST_F(CommandLine, DoctorFindsDamagedPagesThatNoLoadReads) {
  Initialize(true);
  std::fstream(File("test.db"), std::ios::in | std::ios::out).seekp(8192) << std::string(100, 'x');
  EXPECT_THAT(Quorvel({"list", "--context", "CustMaint", "--owner", "C1044", "--user", "jsmith"}), Succeeds());
  EXPECT_THAT(Quorvel({"doctor"}).output, HasAll("FAIL  pages and indexes of the file: ", "Restore it from a backup"));
}

TEST_F(CommandLine, DoctorNamesWrongLinesOfTheSettingsAndGoesOnWhereAHostDoes) {
  Initialize(true);
  std::ofstream(File("settings.reg"), std::ios::app) << "\"UserId\"=\"app\"\n";
  EXPECT_THAT(Quorvel({"doctor"}), FailsWith(HasSubstr(" at quorvel.doctor: 1 of "),
                                             HasAll("ok    settings, kept in ", "ok    table tciMemo\n",
                                                    "FAIL  lines of the settings: Line 8 sets \"UserId\" once more",
                                                    "\n      Correct each line in that file")));

  std::ofstream(File("settings.reg"), std::ios::app) << "Server=SQL1\n";
  EXPECT_THAT(Quorvel({"doctor"}).output,
              AllOf(HasAll("FAIL  settings, kept in ", "Correct the lines that are named next.", "Line 9 has no value"),
                    Not(HasSubstr("QUORVEL_REGISTRY"))));
}

}  // namespace
}  // namespace quorvel::test
