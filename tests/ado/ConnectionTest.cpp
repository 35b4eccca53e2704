// Connection strings, and what a connection makes of an engine's answers.

#include "ado/Connection.h"

#include "ado/ConnectionString.h"
#include "tests/ado/FakeSession.h"

namespace quorvel::ado {
namespace {

using namespace test;
using namespace std::chrono_literals;

TEST(ConnectionString, IsReadInPairs) {
  const auto read = [](std::string_view text) {
    const ConnectOptions options = ParseConnectionString(text);
    return options.dataSource + "|" + options.initialCatalog + "|" + options.userId + "|" + options.password;
  };
  const std::vector<std::pair<std::string_view, std::string_view>> cases = {
      {"", "|||"},
      {"Provider=SQLOLEDB.1;Data Source=SQL1; Initial Catalog=Ledger; User ID=app; Password=xxxx",
       "SQL1|Ledger|app|xxxx"},
      {"Provider=SQLOLEDB.1;Data Source=; Initial Catalog=; User ID=; Password=", "|||"},
      {"SERVER=a;database=b;Uid=c;pwd=d;", "a|b|c|d"},
      {"Data Source=first;Server=second", "second|||"},
      {" ; Data Source =  a b  ;;Password=a=b==c", "a b|||a=b==c"},
      {R"(Password="a;b""c'd " ; User ID=' e''f')", R"(|| e'f|a;b"c'd )"},
      {R"(Password=x'y"z;User ID='';Data Source Name=2)", R"(|||x'y"z)"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(read(text), expected) << text;
  for (const std::string_view broken :
       {"Server=a;secret", "secret", "Server=a;secret;UID=b", "PWD='secret", R"(PWD="secret"x;UID=b)"}) {
    EXPECT_THAT(Caught([broken] { (void)ParseConnectionString(broken); }),
                IsError(ErrorNumber::AdoInvalidArgument, Not(HasSubstr("secret"))))
        << broken;
  }
}

TEST(Connection, OpensWithTheGivenCredentialsAndTimeouts) {
  FakeEngine engine;
  const auto connection = MakeConnection(engine);
  connection->SetConnectionString("Server=s;Database=d;UID=u;PWD=p");
  connection->SetCommandTimeout(60s);
  connection->SetConnectionTimeout(3600s);
  EXPECT_EQ(Caught([&] { connection->Execute("x"); }).Number(), ErrorNumber::AdoObjectClosed);
  connection->Open("other", {});
  EXPECT_EQ(engine.options.userId + engine.options.password, "otherp");
  EXPECT_EQ(engine.options.commandTimeout, 60s);
  EXPECT_EQ(engine.options.connectionTimeout, 3600s);
  connection->SetCommandTimeout(7s);
  EXPECT_EQ(engine.options.commandTimeout, 7s);
  EXPECT_EQ(Caught([&] { connection->Open(); }).Number(), ErrorNumber::AdoObjectOpen);
}

TEST(Connection, ErrorsHoldTheLastOperationThatFailedOrWarned) {
  FakeEngine engine;
  const auto connection = MakeConnection(engine);
  engine.failure = DriverError({{"28000", 18456, "Login failed."}, {"01000", 5, "More."}});
  EXPECT_THAT(Caught([&] { connection->Open(); }), IsError(ErrorNumber::DbLogin, "Quorvel.ODBC", "Login failed."));
  EXPECT_EQ(connection->Errors().at(1).description, "More.");
  EXPECT_FALSE(connection->IsOpen());

  engine.failure.reset();
  connection->SetConnectionString("Data Source=(embedded)");
  connection->Open();
  engine.failure = DriverError({{"42S02", 208, "Invalid object name 'x'.", 3}, {"42000", 8180, "Not prepared."}});
  EXPECT_EQ(Caught([&] { connection->Execute("x"); }).Source(), "Quorvel.Embedded");
  engine.failure.reset();
  connection->Execute("SELECT 1");
  ASSERT_EQ(connection->Errors().size(), 2U);
  EXPECT_EQ(connection->Errors()[0].line, 3);
  EXPECT_EQ(connection->Errors()[1].number, ErrorNumber::DbStatement);
  engine.messages = {{"01000", 0, "A warning."}};
  connection->Execute("SELECT 1");
  ASSERT_EQ(connection->Errors().size(), 1U);
  EXPECT_EQ(connection->Errors()[0].description, "A warning.");
}

TEST(Connection, ExplainsAMissingServerOrDriver) {
  auto connection = std::make_shared<Connection>();
  EXPECT_THAT(Caught([&] { connection->Open(); }),
              IsError(ErrorNumber::DbUnspecified,
                      HasSubstr("Set the server to the name of a SQL Server, or to \"(embedded)\"")));
  EXPECT_EQ(connection->Errors().at(0).sqlState, "08001");
  connection->SetConnectionString("Server=SQL1; Driver=No Such Driver");
  EXPECT_THAT(Caught([&] { connection->Open(); }).Description(),
              AllOf(HasSubstr("No Such Driver is not installed"), HasSubstr("Installed: ")));
}

TEST(ProviderError, HasTheNumberOfItsSqlState) {
  const std::vector<std::pair<std::string_view, std::int32_t>> cases = {
      {"42S02", -2147217865}, {"42S22", -2147217900}, {"42000", -2147217900}, {"23000", -2147217873},
      {"HYT00", -2147217871}, {"28000", -2147217843}, {"08001", -2147467259}, {"", -2147467259},
  };
  for (const auto& [sqlState, number] : cases) EXPECT_EQ(NumberOfSqlState(sqlState), number) << sqlState;
}

}  // namespace
}  // namespace quorvel::ado
