#include <gmock/gmock.h>

#include "tests/support/Rows.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::ado {
namespace {

using test::FailureOf;
using test::RowsOf;
using test::TestDatabase;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class EmbeddedProcedures : public ::testing::Test {
 protected:
  [[nodiscard]] std::vector<std::string> Rows(std::string_view batch) { return RowsOf(*m_connection, batch); }

  TestDatabase m_database{TestDatabase::Content::Empty};
  std::shared_ptr<Connection> m_connection = m_database.Connect();
};

TEST_F(EmbeddedProcedures, ExecPassesArgumentsByPositionAndName) {
  m_connection->Execute(
      "CREATE PROCEDURE spAdd (@a int, @b int = -5, @note nvarchar(10) = N'none', @sum int OUTPUT) AS\n"
      "SELECT @sum = @a + @b\n"
      "SELECT @note AS Note, @sum AS Total");
  EXPECT_THAT(Rows("DECLARE @s int EXEC dbo.spAdd 7, @sum = @s OUTPUT SELECT @s AS s"), ElementsAre("none|2"));
  EXPECT_THAT(Rows("EXEC spadd @b = 1, @A = 2, @note = 'two'"), ElementsAre("two|3"));
  EXPECT_THAT(Rows("DECLARE @t varchar(30) = 'SELECT 4 AS' EXEC (@t + ' four') EXEC (@t + ' four, 5')"),
              ElementsAre("4"));
}

TEST_F(EmbeddedProcedures, EveryLevelOfRecursionHasItsOwnVariables) {
  m_connection->Execute(
      "CREATE PROCEDURE spFactorial @n int, @result int OUTPUT AS\n"
      "DECLARE @smaller int = @n - 1, @inner int\n"
      "IF @n <= 1 BEGIN SET @result = 1 RETURN END\n"
      "EXEC spFactorial @smaller, @inner OUTPUT\n"
      "SET @result = @n * @inner");
  EXPECT_THAT(Rows("DECLARE @r int EXEC spFactorial 6, @r OUTPUT SELECT @r AS r"), ElementsAre("720"));
}

// What a connection has compiled must not outlive a change of the procedure or of a table that it reads.
TEST_F(EmbeddedProcedures, ChangesByAnotherConnectionCountAtOnce) {
  m_connection->Execute("CREATE PROCEDURE spWhich AS SELECT 1 AS Version");
  EXPECT_THAT(Rows("EXEC spWhich"), ElementsAre("1"));
  m_database.Run("ALTER PROCEDURE spWhich @add int = 1 AS SELECT 1 + @add AS Version");
  EXPECT_THAT(Rows("EXEC spWhich"), ElementsAre("2"));
  m_database.Run("CREATE TABLE Things (a int)");
  EXPECT_THAT(Rows("EXEC spWhich 5"), ElementsAre("6"));
  m_database.Run("ALTER PROCEDURE spWhich AS SELECT * FROM Things");
  m_connection->Execute("INSERT INTO Things VALUES (1)");
  EXPECT_THAT(Rows("EXEC spWhich"), ElementsAre("1"));
  m_database.Run("DROP TABLE Things CREATE TABLE Things (a int, b varchar(5)) INSERT INTO Things VALUES (2, 'two')");
  EXPECT_THAT(Rows("EXEC spWhich"), ElementsAre("2|two"));
  m_database.Run("DROP PROCEDURE spWhich");
  EXPECT_THAT(FailureOf(*m_connection, "EXEC spWhich").Description(), HasSubstr("Could not find stored procedure"));
}

TEST_F(EmbeddedProcedures, WrongDefinitionsAndCallsAreRefused) {
  EXPECT_THAT(FailureOf(*m_connection, "EXEC spNobody 1").Description(), HasSubstr("Could not find stored procedure"))
      << "in a file that never had a procedure";
  m_connection->Execute("CREATE PROCEDURE spOnce @a int, @b int = 1 AS SELECT * FROM MadeLater");
  m_connection->Execute("CREATE PROCEDURE spForever AS EXEC spForever");
  const std::vector<std::pair<const char*, const char*>> table = {
      {"CREATE PROCEDURE spBad AS SELEC 1", "Incorrect syntax near 'SELEC'"},
      {"SELECT 1 CREATE PROCEDURE spLate AS SELECT 1", "must be the first statement"},
      {"CREATE PROC spONCE AS SELECT 2", "already an object"},
      {"ALTER PROCEDURE spOther AS SELECT 2", "Invalid object name 'spOther'"},
      {"EXEC spBad", "Could not find stored procedure"},
      {"EXEC spOnce @b = 1", "expects parameter '@a'"},
      {"EXEC spOnce 1, 2, 3", "too many arguments"},
      {"EXEC spOnce 1, @c = 1", "@c is not a parameter"},
      {"EXEC spOnce 1", "Invalid object name 'MadeLater'"},
      {"EXEC spForever", "levels deep"},
  };
  for (const auto& [batch, description] : table) {
    EXPECT_THAT(FailureOf(*m_connection, batch).Description(), HasSubstr(description)) << batch;
  }
  m_connection->Execute("CREATE TABLE MadeLater (n int) INSERT INTO MadeLater VALUES (7)");
  EXPECT_THAT(Rows("EXEC spOnce 1"), ElementsAre("7"));
}

}  // namespace
}  // namespace quorvel::ado
