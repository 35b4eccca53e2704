// One suite over every engine: the component relies on these rules with every database.

#include <fmt/format.h>
#include "ado/Command.h"
#include "platform/Error.h"
#include "tests/support/Caught.h"
#include "tests/support/EngineUnderTest.h"
#include "tests/support/Matchers.h"
#include "tests/support/Rows.h"

namespace quorvel::ado {
namespace {

using namespace test;

class EngineTest : public ::testing::TestWithParam<EngineKind> {
 protected:
  void SetUp() override {
    if (const std::string reason = WhyNot(GetParam()); !reason.empty()) GTEST_SKIP() << reason;
    m_engine = std::make_unique<EngineUnderTest>(GetParam());
    m_connection = m_engine->Connect();
  }

  /// Runs a batch that is made as by fmt::format.
  template <typename... Parts>
  auto Run(fmt::format_string<Parts...> batch, Parts&&... parts) {
    return m_connection->Execute(fmt::format(batch, std::forward<Parts>(parts)...));
  }
  [[nodiscard]] std::vector<std::string> Rows(std::string_view batch) { return RowsOf(*m_connection, batch); }
  [[nodiscard]] Command Procedure(const std::string& name) const { return CallOf(m_connection, name); }

  std::unique_ptr<EngineUnderTest> m_engine;
  std::shared_ptr<Connection> m_connection;
};

class TransactSqlTest : public EngineTest {};

std::string NameOfParam(const ::testing::TestParamInfo<EngineKind>& info) { return NameOf(info.param); }

INSTANTIATE_TEST_SUITE_P(Engines, EngineTest,
                         ::testing::Values(EngineKind::Embedded, EngineKind::SqliteDriver, EngineKind::StandIn,
                                           EngineKind::SqlServer),
                         NameOfParam);
INSTANTIATE_TEST_SUITE_P(Engines, TransactSqlTest,
                         ::testing::Values(EngineKind::Embedded, EngineKind::StandIn, EngineKind::SqlServer),
                         NameOfParam);

TEST_P(EngineTest, ValuesComeBackAsTheyWere) {
  const std::string table = m_engine->Table("Values");
  Run("CREATE TABLE {} (n int NOT NULL PRIMARY KEY, s smallint NULL, r float NULL, v varchar(30) NULL, "
      "w nvarchar(30) NULL, d datetime NULL, m {} NULL)",
      table, m_engine->LongText());
  const std::string strange = fmt::format("O'Brien \"{}", m_engine->Strange());
  Run("INSERT INTO {} VALUES (1, -32768, 0.5, 'trailing  ', {}, '2024-02-29 23:59:58.997', {})", table,
      m_engine->Literal(strange), m_engine->Literal(strange + "\r\n  "));
  Run("INSERT INTO {} VALUES (-2147483648, 0, -1, '', '', '1900-01-01', '')", table);
  Run("INSERT INTO {} (n) VALUES (2147483647)", table);
  EXPECT_THAT(Rows(fmt::format("SELECT * FROM {} ORDER BY n", table)),
              ElementsAre("-2147483648|0|-1|||1900-01-01 00:00:00|",
                          "1|-32768|0.5|trailing  |" + strange + "|2024-02-29 23:59:58.997|" + strange + "\r\n  ",
                          "2147483647|NULL|NULL|NULL|NULL|NULL|NULL"));

  const auto rows = Run("SELECT n, d FROM {} WHERE n = 1", table);
  EXPECT_TRUE(std::holds_alternative<std::int64_t>(rows->Fields("N").Value()));
  EXPECT_TRUE(std::holds_alternative<DateTime>(rows->Fields("D").Value()));
}

TEST_P(EngineTest, ManyRowsComeWholeAndInOrder) {
  const std::string table = m_engine->Table("Many");
  Run("CREATE TABLE {} (n int NOT NULL PRIMARY KEY, w nvarchar(40) NULL)", table);
  Run("INSERT INTO {} VALUES (0, 'row 0')", table);
  int count = 1;
  for (; count < 2000; count *= 2) {
    Run("INSERT INTO {0} (n) SELECT n + {1} FROM {0}", table, count);
    const bool isServer = m_engine->SpeaksTransactSql();
    Run("UPDATE {0} SET w = {1} WHERE w IS NULL", table,
        isServer ? "N'row ' + CAST(n AS nvarchar(10))" : "'row ' || n");
  }
  const auto rows = Run("SELECT n, w FROM {} ORDER BY n", table);
  ASSERT_EQ(rows->RecordCount(), count);
  for (int n = 0; n < count; ++n, rows->MoveNext()) {
    ASSERT_EQ(ToInt32(rows->Fields("n").Value()), n);
    ASSERT_EQ(ToText(rows->Fields("w").Value()), fmt::format("row {}", n));
  }
  EXPECT_TRUE(rows->EndOfFile());
}

// A driver gives a long text in pieces. Neither the end of a piece nor a pair of surrogates that it cuts may show.
TEST_P(EngineTest, LongTextsComeWhole) {
  const std::string table = m_engine->Table("Long");
  Run("CREATE TABLE {} (n int NOT NULL PRIMARY KEY, m {} NULL, after_it int)", table, m_engine->LongText());
  std::vector<std::string> texts;
  for (const std::size_t length : {4000U, 4001U, 8001U, 16382U, 16383U, 16384U, 32766U, 100000U}) {
    const std::string text(length - 1, 'x');
    texts.push_back(text + "y");
    texts.push_back(text + std::string(m_engine->Strange()));
  }
  for (std::size_t n = 0; n < texts.size(); ++n) {
    Run("INSERT INTO {} VALUES ({}, {}, {})", table, n, m_engine->Literal(texts[n]), n + 100);
  }
  const auto rows = Run("SELECT n, m, after_it FROM {} ORDER BY n", table);
  for (std::size_t n = 0; n < texts.size(); ++n, rows->MoveNext()) {
    const std::string text = ToText(rows->Fields("m").Value());
    ASSERT_TRUE(text == texts[n]) << n << ": " << text.size() << " bytes for " << texts[n].size();
    ASSERT_EQ(ToInt32(rows->Fields("after_it").Value()), static_cast<std::int32_t>(n) + 100);
  }
}

TEST_P(EngineTest, FailedStatementCarriesItsNumberAndLeavesConnectionUsable) {
  const std::string table = m_engine->Table("Errors");
  Run("CREATE TABLE {} (n int NOT NULL PRIMARY KEY, m int NOT NULL)", table);
  Run("INSERT INTO {} VALUES (1, 1)", table);
  const std::vector<std::pair<std::string, std::int32_t>> cases = {
      {fmt::format("INSERT INTO {} VALUES (1, 1)", table), ErrorNumber::DbIntegrity},
      {fmt::format("INSERT INTO {} VALUES (2, NULL)", table), ErrorNumber::DbIntegrity},
      {fmt::format("SELECT nothing FROM {}", table), ErrorNumber::DbStatement},
      {"SELECT * FROM QvTest_NoSuchTable", ErrorNumber::DbObjectNotFound},
      {"EXEC QvTest_NoSuchProcedure", ErrorNumber::DbStatement},
      {"SELEC 1", ErrorNumber::DbStatement}};
  for (const auto& [batch, number] : cases) {
    const Error error = FailureOf(*m_connection, batch);
    EXPECT_TRUE(error.Number() == number || !m_engine->SpeaksTransactSql()) << batch << ": " << error.Number();
    EXPECT_THAT(error.Source(), HasSubstr("Quorvel."));
    EXPECT_THAT(m_connection->Errors(), Not(IsEmpty()));
  }
  (void)FailureOf(*m_connection, std::string_view("SELECT 1\0 + 'not sent'", 22));
  if (GetParam() != EngineKind::Embedded) (void)FailureOf(*m_connection, "SELECT '\xFF'");  // not UTF-8
  EXPECT_FALSE(m_connection->Execute("")->IsOpen());
  EXPECT_THAT(Rows(fmt::format("SELECT n FROM {}", table)), ElementsAre("1"));
}

TEST_P(TransactSqlTest, FirstResultSetCountsAndLaterFailureIsReported) {
  const std::string table = m_engine->Table("Results");
  Run("CREATE TABLE {} (n int NOT NULL PRIMARY KEY)", table);
  EXPECT_THAT(Rows(fmt::format("INSERT INTO {0} VALUES (1) UPDATE {0} SET n = 2 PRINT 'on the way' "
                               "SELECT n AS a FROM {0} SELECT 7 AS b DELETE FROM {0}",
                               table)),
              ElementsAre("2"));
  EXPECT_THAT(Rows(fmt::format("SELECT COUNT(*) FROM {}", table)), ElementsAre("0")) << "the batch ran to its end";
  EXPECT_EQ(FailureOf(*m_connection,
                      fmt::format("INSERT INTO {0} VALUES (1) SELECT n FROM {0} INSERT INTO {0} VALUES (1)", table))
                .Number(),
            ErrorNumber::DbIntegrity);
  EXPECT_FALSE(Run("DELETE FROM {} WHERE n = 77", table)->IsOpen());
}

TEST_P(TransactSqlTest, ProceduresReportTheirParametersAndTakeValues) {
  const std::string name = m_engine->Procedure("Add");
  Run("CREATE PROCEDURE {} @Total int OUTPUT, @A int, @B smallint = -5, "
      "@Note nvarchar(30) = N'none', @When datetime = NULL, @Long nvarchar(max) = NULL AS\n"
      "SET NOCOUNT ON\n"
      "SELECT @Total = @A + @B\n"
      "SELECT @Note AS Note, @When AS Day, @Long AS Long, @B AS B",
      name);
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

  Command brief = Procedure("dbo." + name);
  brief.Parameters("A").SetValue(1);
  brief.Parameters("B").SetValue(Null{});
  const auto defaults = brief.Execute();
  EXPECT_EQ(ToText(defaults->Fields("Note").Value()), "none");
  EXPECT_TRUE(IsNull(defaults->Fields("B").Value()));
  EXPECT_TRUE(IsNull(brief.Parameters("Total").Value()));

  Command gap = Procedure(name);
  gap.Parameters("A").SetValue(1);
  gap.Parameters("note").SetValue(std::string("x"));
  if (GetParam() == EngineKind::StandIn) {
    // FreeTDS cannot leave out a parameter in the middle. NULL in its place would be another call.
    EXPECT_THAT(Caught([&] { gap.Execute(); }).Description(), HasSubstr("Parameter @b of"));
  } else {
    gap.Execute();
    EXPECT_EQ(ToInt32(gap.Parameters("@Total").Value()), -4);
  }

  const std::string withLong = m_engine->Procedure("Long");
  Run("CREATE PROCEDURE {} @Long nvarchar(max) AS SELECT @Long AS Long", withLong);
  Command declared = Procedure(withLong);
  declared.Append(Command::CreateParameter("@Long", DataType::VarWChar, ParameterDirection::Input, 0, text));
  EXPECT_TRUE(ToText(declared.Execute()->Fields("Long").Value()) == text) << "declared without a size";
}

TEST_P(TransactSqlTest, WrongCallsAreErrorsOfTheCall) {
  const std::string name = m_engine->Procedure("Strict");
  Run("CREATE PROCEDURE {} @n smallint AS SELECT @n AS n", name);
  Command command = Procedure(name);
  EXPECT_EQ(Caught([&] { command.Execute(); }).Number(), ErrorNumber::DbStatement) << "@n is required";
  command.Parameters("@n").SetValue(7);
  EXPECT_EQ(ToInt32(command.Execute()->Fields("n").Value()), 7);
  Run("ALTER PROCEDURE {} @other int AS SELECT @other AS n", name);
  EXPECT_EQ(Caught([&] { (void)Procedure(name).Parameters("@n"); }).Number(), ErrorNumber::AdoItemNotFound);

  for (const char* wrong : {"QvTest_NoSuchProcedure", "no such procedure", "[open", "a.b.c.d", ""}) {
    EXPECT_EQ(Caught([&] { (void)Procedure(wrong).Parameters("@n"); }).Number(), ErrorNumber::DbStatement) << wrong;
    EXPECT_EQ(Caught([&] { (void)Procedure(wrong).Execute(); }).Number(), ErrorNumber::DbStatement) << wrong;
  }
  EXPECT_EQ(Caught([&] { (void)Procedure("QvTest_NoSuchProcedure").Execute(); }).Description(),
            "Could not find stored procedure 'QvTest_NoSuchProcedure'.");
}

}  // namespace
}  // namespace quorvel::ado
