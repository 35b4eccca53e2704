#include <gmock/gmock.h>

#include "ado/Command.h"
#include "ado/engine/Session.h"
#include "tests/support/Rows.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::ado {
namespace {

using test::FailureOf;
using test::RowsOf;
using test::TestDatabase;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class EmbeddedProcedures : public ::testing::Test {
 protected:
  [[nodiscard]] std::vector<std::string> Rows(std::string_view batch) { return RowsOf(*m_connection, batch); }

  TestDatabase m_database{TestDatabase::Content::Empty};
  std::shared_ptr<Connection> m_connection = m_database.Connect();
};

TEST_F(EmbeddedProcedures, TakeDefaultsAndGiveOutputs) {
  m_connection->Execute(
      "CREATE PROCEDURE spAdd (@a int, @b int = -5, @note nvarchar(10) = N'none', @sum int OUTPUT) AS\n"
      "SET NOCOUNT ON\n"
      "SELECT @sum = @a + @b\n"
      "SELECT @note AS Note, @sum AS Total");
  EXPECT_THAT(Rows("DECLARE @s int EXEC dbo.spAdd 7, @sum = @s OUTPUT SELECT @s AS s"), ElementsAre("none|2"));
  EXPECT_THAT(Rows("EXEC spadd @b = 1, @A = 2, @note = 'two'"), ElementsAre("two|3"));
  EXPECT_THAT(FailureOf(*m_connection, "EXEC spAdd @b = 1").Description(), HasSubstr("expects parameter '@a'"));
  EXPECT_THAT(FailureOf(*m_connection, "EXEC spAdd 1, 2, 'x', 3, 4").Description(), HasSubstr("too many arguments"));
  EXPECT_THAT(FailureOf(*m_connection, "EXEC spAdd @c = 1").Description(), HasSubstr("@c is not a parameter"));

  Command command;
  command.SetActiveConnection(m_connection);
  command.SetCommandType(CommandType::StoredProcedure);
  command.SetCommandText("[dbo].[spAdd]");
  command.Parameters("A").SetValue(40);
  command.Parameters("@B").SetValue("2");
  command.Execute();
  EXPECT_EQ(ToInt32(command.Parameters("@sum").Value()), 42);
}

TEST_F(EmbeddedProcedures, ChangesMadeByAnotherConnectionCountAtOnce) {
  m_connection->Execute("CREATE PROCEDURE spWhich AS SELECT 1 AS Version");
  EXPECT_THAT(Rows("EXEC spWhich"), ElementsAre("1"));
  m_database.Run("ALTER PROCEDURE spWhich @add int = 1 AS SELECT 1 + @add AS Version");
  EXPECT_THAT(Rows("EXEC spWhich"), ElementsAre("2"));
  m_database.Run("CREATE TABLE Unrelated (n int)");
  EXPECT_THAT(Rows("EXEC spWhich 5"), ElementsAre("6"));
  m_database.Run("DROP PROCEDURE spWhich");
  EXPECT_THAT(FailureOf(*m_connection, "EXEC spWhich").Description(), HasSubstr("Could not find stored procedure"));
}

TEST_F(EmbeddedProcedures, AreCheckedWhenTheyAreDefined) {
  EXPECT_EQ(FailureOf(*m_connection, "CREATE PROCEDURE spBad AS SELEC 1").Number(), ErrorNumber::DbStatement);
  EXPECT_EQ(m_connection->Errors().front().line, 1);
  EXPECT_THAT(FailureOf(*m_connection, "SELECT 1 CREATE PROCEDURE spLate AS SELECT 1").Description(),
              HasSubstr("must be the first statement"));
  m_connection->Execute("CREATE PROCEDURE spOnce AS SELECT * FROM MadeLater");
  EXPECT_THAT(FailureOf(*m_connection, "CREATE PROC spONCE AS SELECT 2").Description(), HasSubstr("already an object"));
  EXPECT_THAT(FailureOf(*m_connection, "ALTER PROCEDURE spOther AS SELECT 2").Description(),
              HasSubstr("Invalid object name"));
  EXPECT_EQ(FailureOf(*m_connection, "EXEC spOnce").Number(), ErrorNumber::DbObjectNotFound);
  m_connection->Execute("CREATE TABLE MadeLater (n int)");
  EXPECT_THAT(Rows("EXEC spOnce"), IsEmpty());
}

TEST_F(EmbeddedProcedures, RecursionAndDynamicTextHaveTheirOwnVariables) {
  m_connection->Execute(
      "CREATE PROCEDURE spFactorial @n int, @result int OUTPUT AS\n"
      "DECLARE @smaller int, @inner int\n"
      "IF @n <= 1 BEGIN SET @result = 1 RETURN END\n"
      "SET @smaller = @n - 1\n"
      "EXEC spFactorial @smaller, @inner OUTPUT\n"
      "SET @result = @n * @inner");
  EXPECT_THAT(Rows("DECLARE @r int EXEC spFactorial 6, @r OUTPUT SELECT @r AS r"), ElementsAre("720"));
  EXPECT_THAT(Rows("DECLARE @t varchar(30) = 'SELECT 4 AS' EXEC (@t + ' four')"), ElementsAre("4"));
  m_connection->Execute("CREATE PROCEDURE spForever AS EXEC spForever");
  EXPECT_THAT(FailureOf(*m_connection, "EXEC spForever").Description(), HasSubstr("levels deep"));
}

// A row read into a result before a table changes shape must not be mistaken for one of the new shape.
TEST_F(EmbeddedProcedures, KeptStatementsFollowAChangedTable) {
  m_connection->Execute("CREATE TABLE Things (a int)");
  m_connection->Execute("CREATE PROCEDURE spThings AS SELECT * FROM Things");
  m_connection->Execute("INSERT INTO Things VALUES (1)");
  EXPECT_THAT(Rows("EXEC spThings"), ElementsAre("1"));
  m_database.Run("DROP TABLE Things CREATE TABLE Things (a int, b varchar(5))");
  m_database.Run("INSERT INTO Things VALUES (2, 'two')");
  EXPECT_THAT(Rows("EXEC spThings"), ElementsAre("2|two"));
}

}  // namespace
}  // namespace quorvel::ado
