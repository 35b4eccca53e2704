#include <fmt/format.h>
#include <gmock/gmock.h>

#include "ado/Command.h"
#include "platform/Error.h"
#include "tests/support/Caught.h"
#include "tests/support/EngineUnderTest.h"
#include "tests/support/Rows.h"

// One suite over every engine: what the component relies on must hold whichever database is behind it.
namespace quorvel::ado {
namespace {

using test::EngineKind;
using test::EngineUnderTest;
using test::FailureOf;
using test::RowsOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class EngineTest : public ::testing::TestWithParam<EngineKind> {
 protected:
  void SetUp() override {
    if (const std::string reason = test::WhyNot(GetParam()); !reason.empty()) GTEST_SKIP() << reason;
    m_engine = std::make_unique<EngineUnderTest>(GetParam());
    m_connection = m_engine->Connect();
  }

  [[nodiscard]] std::vector<std::string> Rows(std::string_view batch) { return RowsOf(*m_connection, batch); }
  [[nodiscard]] Command Procedure(const std::string& name) const {
    Command command;
    command.SetActiveConnection(m_connection);
    command.SetCommandType(CommandType::StoredProcedure);
    command.SetCommandText(name);
    return command;
  }

  std::unique_ptr<EngineUnderTest> m_engine;
  std::shared_ptr<Connection> m_connection;
};

class TransactSqlTest : public EngineTest {};

std::string NameOfParam(const ::testing::TestParamInfo<EngineKind>& info) { return test::NameOf(info.param); }

INSTANTIATE_TEST_SUITE_P(Engines, EngineTest,
                         ::testing::Values(EngineKind::Embedded, EngineKind::SqliteDriver, EngineKind::StandIn,
                                           EngineKind::SqlServer),
                         NameOfParam);
INSTANTIATE_TEST_SUITE_P(Engines, TransactSqlTest,
                         ::testing::Values(EngineKind::Embedded, EngineKind::StandIn, EngineKind::SqlServer),
                         NameOfParam);

TEST_P(EngineTest, ValuesComeBackAsTheyWere) {
  const std::string table = m_engine->Table("Values");
  m_connection->Execute(
      fmt::format("CREATE TABLE {} (n int NOT NULL PRIMARY KEY, s smallint NULL, r float NULL, "
                  "v varchar(30) NULL, w nvarchar(30) NULL, d datetime NULL, m {} NULL)",
                  table, m_engine->LongText()));
  const std::string strange = fmt::format("O'Brien \"{}", m_engine->Strange());
  m_connection->Execute(
      fmt::format("INSERT INTO {} VALUES (1, -32768, 0.5, 'trailing  ', {}, '2024-02-29 23:59:58.997', "
                  "{})",
                  table, m_engine->Literal(strange), m_engine->Literal(strange + "\r\n  ")));
  m_connection->Execute(fmt::format("INSERT INTO {} VALUES (-2147483648, 0, -1, '', '', '1900-01-01', '')", table));
  m_connection->Execute(fmt::format("INSERT INTO {} (n) VALUES (2147483647)", table));
  EXPECT_THAT(Rows(fmt::format("SELECT * FROM {} ORDER BY n", table)),
              ElementsAre("-2147483648|0|-1|||1900-01-01 00:00:00|",
                          "1|-32768|0.5|trailing  |" + strange + "|2024-02-29 23:59:58.997|" + strange + "\r\n  ",
                          "2147483647|NULL|NULL|NULL|NULL|NULL|NULL"));

  const auto rows = m_connection->Execute(fmt::format("SELECT n, w, d, m FROM {} WHERE n = 1", table));
  EXPECT_TRUE(std::holds_alternative<std::int64_t>(rows->Fields("N").Value()));
  EXPECT_TRUE(std::holds_alternative<DateTime>(rows->Fields("D").Value()));
  EXPECT_TRUE(IsText(rows->Fields("M").Value()));
}

TEST_P(EngineTest, ManyRowsComeWholeAndInOrder) {
  const std::string table = m_engine->Table("Many");
  m_connection->Execute(fmt::format("CREATE TABLE {} (n int NOT NULL PRIMARY KEY, w nvarchar(40) NULL)", table));
  m_connection->Execute(fmt::format("INSERT INTO {} VALUES (0, 'row 0')", table));
  int count = 1;
  for (; count < 2000; count *= 2) {
    const std::string_view joined =
        m_engine->SpeaksTransactSql() ? "N'row ' + CAST(n + {1} AS nvarchar(10))" : "'row ' || (n + {1})";
    m_connection->Execute(fmt::format(
        fmt::runtime(fmt::format("INSERT INTO {{0}} SELECT n + {{1}}, {} FROM {{0}}", joined)), table, count));
  }
  const auto rows = m_connection->Execute(fmt::format("SELECT n, w FROM {} ORDER BY n", table));
  ASSERT_EQ(rows->RecordCount(), count);
  for (int n = 0; n < count; ++n, rows->MoveNext()) {
    ASSERT_EQ(ToInt32(rows->Fields("n").Value()), n);
    ASSERT_EQ(ToText(rows->Fields("w").Value()), fmt::format("row {}", n));
  }
  EXPECT_TRUE(rows->EndOfFile());
}

// A driver gives a long text in pieces; neither a piece's end nor a pair of surrogates cut there may show.
TEST_P(EngineTest, LongTextsComeWhole) {
  const std::string table = m_engine->Table("Long");
  m_connection->Execute(fmt::format("CREATE TABLE {} (n int NOT NULL PRIMARY KEY, m {} NULL, after_it int)", table,
                                    m_engine->LongText()));
  std::vector<std::string> texts;
  for (const std::size_t length : {4000U, 4001U, 8001U, 16382U, 16383U, 16384U, 32766U, 100000U}) {
    std::string text(length - 1, 'x');
    texts.push_back(text + "y");
    texts.push_back(fmt::format("{}{}", text, m_engine->Strange()));
  }
  for (std::size_t n = 0; n < texts.size(); ++n) {
    m_connection->Execute(
        fmt::format("INSERT INTO {} VALUES ({}, {}, {})", table, n, m_engine->Literal(texts[n]), n + 100));
  }
  const auto rows = m_connection->Execute(fmt::format("SELECT n, m, after_it FROM {} ORDER BY n", table));
  for (std::size_t n = 0; n < texts.size(); ++n, rows->MoveNext()) {
    const std::string text = ToText(rows->Fields("m").Value());
    ASSERT_TRUE(text == texts[n]) << n << ": " << text.size() << " bytes for " << texts[n].size();
    ASSERT_EQ(ToInt32(rows->Fields("after_it").Value()), static_cast<std::int32_t>(n) + 100);
  }
}

TEST_P(EngineTest, AFailedStatementLeavesTheConnectionUsable) {
  const std::string table = m_engine->Table("Errors");
  m_connection->Execute(fmt::format("CREATE TABLE {} (n int NOT NULL PRIMARY KEY)", table));
  const std::string twice = fmt::format("INSERT INTO {} VALUES (1)", table);
  m_connection->Execute(twice);
  EXPECT_THAT(FailureOf(*m_connection, twice).Source(), HasSubstr("Quorvel."));
  EXPECT_THAT(m_connection->Errors(), Not(IsEmpty()));
  EXPECT_NE(FailureOf(*m_connection, "SELECT * FROM QvTest_NoSuchTable").Number(), 0);
  EXPECT_NE(FailureOf(*m_connection, "SELEC 1").Number(), 0);
  using namespace std::string_view_literals;
  EXPECT_NE(FailureOf(*m_connection, "SELECT 1\0 + 'not sent'"sv).Number(), 0);
  const bool keepsBytes = GetParam() == EngineKind::Embedded;
  EXPECT_TRUE(keepsBytes || FailureOf(*m_connection, "SELECT '\xFF'").Number() != 0) << "not UTF-8";
  EXPECT_FALSE(m_connection->Execute("")->IsOpen());
  EXPECT_THAT(Rows(fmt::format("SELECT n FROM {}", table)), ElementsAre("1"));
}

TEST_P(TransactSqlTest, ErrorsCarryTheNumbersThatHostsTestFor) {
  const std::string table = m_engine->Table("Numbers");
  const std::string child = m_engine->Table("Child");
  m_connection->Execute(fmt::format("CREATE TABLE {} (n int NOT NULL PRIMARY KEY)", table));
  m_connection->Execute(fmt::format("CREATE TABLE {} (n int NOT NULL REFERENCES {} (n))", child, table));
  m_connection->Execute(fmt::format("INSERT INTO {} VALUES (1)", table));
  struct Case {
    std::string batch;
    std::int32_t number;
  };
  for (const Case& each : {Case{"SELECT * FROM QvTest_NoSuchTable", ErrorNumber::DbObjectNotFound},
                           {"SELEC 1", ErrorNumber::DbStatement},
                           {fmt::format("SELECT nothing FROM {}", table), ErrorNumber::DbStatement},
                           {fmt::format("INSERT INTO {} VALUES (1)", table), ErrorNumber::DbIntegrity},
                           {fmt::format("INSERT INTO {} VALUES (NULL)", child), ErrorNumber::DbIntegrity},
                           {fmt::format("INSERT INTO {} VALUES (7)", child), ErrorNumber::DbIntegrity},
                           {"EXEC QvTest_NoSuchProcedure", ErrorNumber::DbStatement}}) {
    EXPECT_EQ(FailureOf(*m_connection, each.batch).Number(), each.number) << each.batch;
  }
}

TEST_P(TransactSqlTest, TheFirstResultSetCountsAndAFailureBehindItIsNotLost) {
  const std::string table = m_engine->Table("Results");
  m_connection->Execute(fmt::format("CREATE TABLE {} (n int NOT NULL PRIMARY KEY)", table));
  EXPECT_THAT(Rows(fmt::format("INSERT INTO {0} VALUES (1) UPDATE {0} SET n = 2 PRINT 'on the way' "
                               "SELECT n AS a FROM {0} SELECT 7 AS b DELETE FROM {0}",
                               table)),
              ElementsAre("2"));
  EXPECT_THAT(Rows(fmt::format("SELECT COUNT(*) FROM {}", table)), ElementsAre("0")) << "the batch ran to its end";
  EXPECT_EQ(FailureOf(*m_connection,
                      fmt::format("INSERT INTO {0} VALUES (1) SELECT n FROM {0} INSERT INTO {0} VALUES (1)", table))
                .Number(),
            ErrorNumber::DbIntegrity);
  EXPECT_FALSE(m_connection->Execute(fmt::format("DELETE FROM {} WHERE n = 77", table))->IsOpen());
}

TEST_P(TransactSqlTest, ProceduresTellTheirParametersAndTakeValues) {
  const std::string name = m_engine->Procedure("Add");
  m_connection->Execute(
      fmt::format("CREATE PROCEDURE {} @Total int OUTPUT, @A int, @B smallint = -5, "
                  "@Note nvarchar(30) = N'none', @When datetime = NULL, @Long nvarchar(max) = NULL AS\n"
                  "SET NOCOUNT ON\n"
                  "SELECT @Total = @A + @B\n"
                  "SELECT @Note AS Note, @When AS Day, @Long AS Long, @B AS B",
                  name));
  const auto parameters = m_connection->DiscoverParameters(name);
  ASSERT_THAT(parameters, SizeIs(6));
  EXPECT_TRUE(SameName(parameters[0].name, "@Total"));
  EXPECT_NE(parameters[0].direction, ParameterDirection::Input);
  EXPECT_EQ(parameters[2].type, DataType::SmallInt);
  EXPECT_EQ(parameters[3].size, 30);
  EXPECT_LE(parameters[5].size, 0);

  const std::string text = std::string(9000, 'z') + "\U0001F600 ";
  Command command = Procedure(name);
  command.Parameters("a").SetValue("40");
  command.Parameters("@B").SetValue(2);
  command.Parameters("note").SetValue(std::string("e\u0301 \U0001F600 'x' "));
  command.Parameters("WHEN").SetValue(ToDateTime(Value(std::string("2024-02-29 23:59:58.997"))));
  command.Parameters("long").SetValue(text);
  const auto rows = command.Execute();
  EXPECT_EQ(ToInt32(command.Parameters("@Total").Value()), 42);
  EXPECT_EQ(ToText(rows->Fields("Note").Value()), "e\u0301 \U0001F600 'x' ");
  EXPECT_EQ(ToText(rows->Fields("Day").Value()), "2024-02-29 23:59:58.997");
  EXPECT_TRUE(ToText(rows->Fields("Long").Value()) == text) << ToText(rows->Fields("Long").Value()).size();

  Command declared = Procedure(name);
  const auto append = [&declared](const char* parameter, DataType type, std::int32_t size, const Value& value) {
    declared.Append(Command::CreateParameter(parameter, type, ParameterDirection::Input, size, value));
  };
  append("@Total", DataType::Integer, 0, Null{});
  append("@A", DataType::Integer, 0, std::int64_t{1});
  append("@B", DataType::SmallInt, 0, std::int64_t{1});
  append("@Note", DataType::VarWChar, 30, "");
  append("@When", DataType::DBTimeStamp, 0, Null{});
  append("@Long", DataType::VarWChar, 0, text);
  EXPECT_TRUE(ToText(declared.Execute()->Fields("Long").Value()) == text) << "declared without a size";

  Command brief = Procedure("dbo." + name);
  brief.Parameters("A").SetValue(1);
  brief.Parameters("B").SetValue(Null{});
  const auto defaults = brief.Execute();
  EXPECT_EQ(ToText(defaults->Fields("Note").Value()), "none");
  EXPECT_TRUE(IsNull(defaults->Fields("B").Value()));
  EXPECT_TRUE(IsNull(brief.Parameters("Total").Value()));
}

TEST_P(TransactSqlTest, WrongCallsAreErrorsOfTheCall) {
  const std::string name = m_engine->Procedure("Strict");
  m_connection->Execute(fmt::format("CREATE PROCEDURE {} @n smallint, @id varchar(30) = '' AS SELECT @n AS n", name));
  Command command = Procedure(name);
  EXPECT_EQ(test::Caught([&] { (void)command.Parameters("@nobody"); }).Number(), ErrorNumber::AdoItemNotFound);
  EXPECT_EQ(test::Caught([&] { command.Parameters("@n").SetValue(40000); }).Number(), ErrorNumber::Overflow);
  EXPECT_EQ(test::Caught([&] { command.Parameters("@n").SetValue("abc"); }).Number(), ErrorNumber::TypeMismatch);
  EXPECT_EQ(test::Caught([&] { command.Parameters("@id").SetValue(std::string(31, 'x')); }).Number(),
            ErrorNumber::AdoDataConversion);
  EXPECT_EQ(test::Caught([&] { command.Execute(); }).Number(), ErrorNumber::DbStatement) << "@n is required";
  command.Parameters("@n").SetValue(7);
  EXPECT_EQ(ToInt32(command.Execute()->Fields("n").Value()), 7);
  m_connection->Execute(fmt::format("ALTER PROCEDURE {} @other int AS SELECT @other AS n", name));
  Command changed = Procedure(name);
  EXPECT_EQ(test::Caught([&] { (void)changed.Parameters("@n"); }).Number(), ErrorNumber::AdoItemNotFound);

  for (const std::string_view nobody : {"QvTest_NoSuchProcedure", "no such procedure", "[open", "a.b.c.d", ""}) {
    Command missing = Procedure(std::string(nobody));
    const Error error = test::Caught([&] { (void)missing.Parameters("@n"); });
    EXPECT_EQ(error.Number(), ErrorNumber::DbStatement) << nobody;
    const bool isName = nobody.starts_with("QvTest");
    EXPECT_TRUE(!isName || error.Description() == "Could not find stored procedure 'QvTest_NoSuchProcedure'.");
    EXPECT_EQ(test::Caught([&] { (void)Procedure(std::string(nobody)).Execute(); }).Number(), ErrorNumber::DbStatement)
        << nobody;
  }
}

}  // namespace
}  // namespace quorvel::ado
