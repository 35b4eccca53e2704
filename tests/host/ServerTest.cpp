// The command line on a stand-in server, reached through a real driver.

#include "ado/Script.h"
#include "ado/embedded/EmbeddedEngine.h"
#include "data/Schema.h"
#include "host/cli/Permissions.h"
#include "tests/host/CommandLine.h"
#include "tests/support/tds/StandInServer.h"

namespace quorvel::test {
namespace {

/// The answer to a permission query: `held` for the permission at `place`, 1 for all others.
Part Permissions(std::size_t count, std::size_t place, const Value& held) {
  Part part{Part::Kind::Rows, {}, 0, {{"Place", ado::DataType::Integer}, {"Held", ado::DataType::Integer}}, {}};
  for (std::size_t i = 0; i < count; ++i) {
    part.rows.push_back({static_cast<std::int64_t>(i), i == place ? held : Value{std::int64_t{1}}});
  }
  return part;
}

class OnServer : public CommandLine {
 protected:
  void SetUp() override {
    ASSERT_THAT(Quorvel({"settings", "Server=" + m_server.Address(), "Database=Ledger; Driver=FreeTDS",
                         "UserId=" + std::string(StandInServer::kUser),
                         "Password=\"" + std::string(StandInServer::kPassword) + "\""}),
                Succeeds());
  }
  std::string MakeFile() {
    ado::CreateEmbeddedDatabase(File("server.db"));
    return File("server.db");
  }
  void Answer(const std::vector<cli::Permission>& needed, std::size_t place, const Value& held) {
    m_server.AnswerWith(cli::PermissionQuery(needed), {Permissions(needed.size(), place, held)});
  }

  StandInServer m_server{MakeFile()};
};

TEST_F(OnServer, InitDoctorRunAddAndList) {
  EXPECT_THAT(Quorvel({"init", "--sample"}), Succeeds("Schema: created\nSample data: created\n"));
  EXPECT_EQ(Quorvel({"init", "--sample"}).output, "Schema: up to date\nSample data: up to date\n");

  // The stand-in has no HAS_PERMS_BY_NAME; that is no failure.
  EXPECT_THAT(Quorvel({"doctor"}),
              Succeeds(AllOf(HasAll("ok    connection, ", "ok    table tciMemo, read by a procedure\n",
                                    "ok    procedure spGetNextSurrogateKey (@iTableName, @oNewKey OUTPUT)\n",
                                    "?     permissions of the login: could not be checked: "),
                             Not(HasSubstr("FAIL")))));

  EXPECT_EQ(RunSql("SELECT CustName FROM Customer WHERE CustID = 'C1043'\nGO\nUPDATE ttwGroup SET Caption = 'x'\n"),
            "CustName\n------------------\nSøndergaard Møbler\n(1 row)\n");
  EXPECT_THAT(Quorvel(OnAcme({"add", "--type", "Cust.General", "--text", "Pays in €."})), Succeeds());
  EXPECT_THAT(Quorvel(OnAcme({"list"})), Succeeds(HasAll("Acme Tools [C1044]", "Pays in €.")));
}

TEST_F(OnServer, DoctorNamesMissingPermissionsAndNotParametersInstead) {
  ASSERT_THAT(Quorvel({"init", "--sample"}), Succeeds());
  Answer(cli::ProcedurePermissions(), 4, std::int64_t{0});
  Answer(cli::TablePermissions(), 0, Null{});
  Answer(cli::ColumnPermissions(), 3, std::int64_t{0});
  Answer({{"EXECUTE", "spGetCustomerName", ""}, {"EXECUTE", "spGetOrderName", ""}}, 1, std::int64_t{0});
  EXPECT_THAT(
      Quorvel({"doctor"}),
      FailsWith(HasSubstr(" at quorvel.doctor: 3 of "),
                HasAll("FAIL  permission EXECUTE, procedures: missing on spTWCqvAddRemark\n", "quorvel init --grants",
                       "?     permission SELECT, tables: the server gives no answer for ttwUser\n",
                       "FAIL  permission UPDATE, columns: missing on ttwUser (IsActive)\n",
                       "FAIL  permission EXECUTE, owner procedures: missing on spGetOrderName\n")));

  // A server shows a login nothing of a procedure that it may not run.
  RunSql("ALTER PROCEDURE spTWCAddUser AS SELECT 1 AS Nothing");
  Answer({{"EXECUTE", "spTWCAddUser", ""}}, 0, std::int64_t{0});
  EXPECT_THAT(Quorvel({"doctor"}).output,
              HasSubstr("FAIL  procedure spTWCAddUser (@UserID): the login lacks the permission EXECUTE on it\n"));
}

TEST_F(OnServer, GrantsRunTheScriptAndListTheOwnerProcedures) {
  const Part lookups{Part::Kind::Rows,
                     {},
                     0,
                     {{"OwnerLookups", ado::DataType::VarWChar}},
                     {{"GRANT EXECUTE ON spGetOrderName TO QuorvelUser"}}};
  for (const ado::Batch& batch : ado::SplitBatches(GrantsScript())) {
    const bool isLookup = batch.text.find("OwnerLookups") != std::string_view::npos;
    m_server.AnswerWith(std::string(batch.text), isLookup ? std::vector{lookups} : std::vector<Part>{});
  }
  EXPECT_THAT(Quorvel({"init", "--grants"}),
              Succeeds(HasAll("GRANT EXECUTE ON spGetOrderName TO QuorvelUser\n(1 row)\n",
                              "ALTER ROLE QuorvelUser ADD MEMBER")));
}

TEST_F(OnServer, ScriptsShowMessagesAndLocateErrors) {
  m_server.AnswerWith("PRINT 'Done'", {Message("Half way"), Message("Done")});
  EXPECT_EQ(RunSql("PRINT 'Done'"), "Half way\nDone\n1 batch run\n");
  m_server.AnswerWith("DROP TABLE a\nDROP TABLE b", {Failure("No a.", 3701, 1), Failure("No b.", 3701, 2)});
  EXPECT_THAT(Quorvel({"run", "-"}, "PRINT 'Done'\nGO\nDROP TABLE a\nDROP TABLE b").errors,
              HasSubstr("standard input, batch 2, line 3: No a.\n  line 4: No b.\n"));

  const auto batches = ado::SplitBatches(SchemaScript());
  m_server.AnswerWith(std::string(batches[2].text),
                      {Failure("CREATE TABLE permission denied in database 'Ledger'.", 262, 3)});
  EXPECT_THAT(Quorvel({"init"}),
              FailsWith(HasAll("Schema, batch 3, ", "CREATE TABLE permission denied", "a member of db_owner")));

  m_server.DropAtRequest(40);
  EXPECT_THAT(Quorvel({"init"}).errors, AllOf(HasAll("Schema, batch 3, ", "a member of db_owner"),
                                              ContainsRegex("\nSchema, batch [0-9]+, from line ")));
}

TEST_F(OnServer, DoctorReportsALostConnectionAndARefusedLogin) {
  ASSERT_THAT(Quorvel({"init", "--sample"}), Succeeds());
  for (const int request : {1, 20, 44}) {
    m_server.DropAtRequest(request);
    EXPECT_THAT(Quorvel({"doctor"}),
                FailsWith(_, AllOf(HasSubstr("FAIL  connection: it was lost: "), Not(HasSubstr("init --grants")))))
        << request;
  }

  ASSERT_THAT(Quorvel({"settings", "Password=wrong"}), Succeeds());
  EXPECT_THAT(Quorvel({"doctor"}), FailsWith(_, HasAll("FAIL  connection: ", m_server.Address(), "FreeTDS",
                                                       "server, database, login and password")));
  EXPECT_THAT(Quorvel(OnAcme({"list"})).errors, HasSubstr("error -2147217843 at Quorvel.ODBC: Login failed"));
}

}  // namespace
}  // namespace quorvel::test
