// The T-SQL that the embedded engine reads: joins, comparisons, expressions, control flow, procedures, and its errors.

#include <utility>

#include "tests/support/Matchers.h"
#include "tests/support/Rows.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::ado {
namespace {

using namespace test;

class EmbeddedStatements : public ::testing::Test {
 protected:
  std::vector<std::string> Rows(std::string_view batch) { return RowsOf(*m_connection, batch); }

  TestDatabase m_database{TestDatabase::Content::Sample};
  std::shared_ptr<Connection> m_connection = m_database.Connect();
};

// The administration joins its statements from pieces without blanks between them, and the ON of a join may come after
// further joins. A server takes them as they are.
TEST_F(EmbeddedStatements, TakesJoinedPiecesAndJoinsWhoseOnComesLater) {
  EXPECT_THAT(Rows("SELECT rc.DisplaySeq FROM ttwRemarKType rt INNER JOIN ttwRemarkContext rc ON rc.RemarkTypeKey = "
                   "rt.RemarkTypeKey WHERE rc.ContextKey = 1ORDER BY rc.DisplaySeq"),
              SizeIs(4));
  EXPECT_THAT(
      Rows("select rtrim(T1.RemarkTypeID) as RemarkTypeID, T2.CanRead From (select RemarkTypeID from ttwRemarkType)T1 "
           "left join (SELECT t.RemarkTypeID as TypeID, max(r.CanRead) As CanRead FROM    ttwContext c INNER JOIN "
           "ttwRemarkContext rc ON c.ContextKey = rc.ContextKey RIGHT OUTER JOIN ttwUser u INNER JOIN ttwGroupMember "
           "gm ON u.UserKey = gm.UserKey INNER JOIN ttwRemarkRight r ON gm.GroupKey = r.GroupKey INNER JOIN "
           "ttwRemarkType t ON t.RemarkTypeKey = r.RemarkTypeKey ON rc.RemarkTypeKey = t.RemarkTypeKey inner join "
           "ttwRemarkEntity tr on tr.RemarkEntityKey = t.RemarkEntityKey WHERE   u.UserKey = 1GROUP BY t.RemarkTypeID, "
           "t.Caption)T2 on T2.TypeID = T1.RemarkTypeID ORDER BY T1.RemarkTypeID"),
      ElementsAre("Cust.AR.Coll|1", "Cust.Credit|1", "Cust.General|1", "Cust.Internal|NULL", "Ord.Note|1",
                  "Ord.Ship|NULL"));
  for (const char* const columns : {"a.n, b.n", "*"}) {
    EXPECT_THAT(Rows(std::string("SELECT ") + columns +
                     " FROM (SELECT 1 AS n) a INNER JOIN (SELECT 1 AS m) x ON x.m = a.n "
                     "right JOIN (SELECT 2 AS n) b ON a.n = b.n"),
                ElementsAre(columns[0] == '*' ? "NULL|NULL|2" : "NULL|2"));
  }
}

TEST_F(EmbeddedStatements, ComparesTextsWithoutCaseAndTrailingBlanks) {
  m_connection->Execute("CREATE TABLE Words (Word nvarchar(20) NOT NULL PRIMARY KEY, Note nvarchar(20) NULL)");
  m_connection->Execute("INSERT INTO Words (Word, Note) VALUES (N'Müller', N'a '), (N'Ωmega', N'A'), (N'plain', N'b')");
  const std::vector<std::pair<const char*, const char*>> conditions = {
      {"WORD = N'MÜLLER  '", "Müller"},       {"RTRIM(Word) = N'ωMEGA'", "Ωmega"},
      {"Word IN (N'PLAIN')", "plain"},        {"UPPER(Word) BETWEEN 'p' AND 'q'", "plain"},
      {"Note = 'B' AND 'x ' = 'X'", "plain"},
  };
  for (const auto& [condition, word] : conditions) {
    EXPECT_THAT(Rows(std::string("SELECT Word FROM words WHERE ") + condition), ElementsAre(word)) << condition;
  }
  EXPECT_THAT(Rows("SELECT DISTINCT RTRIM(Note) AS Note FROM Words"), SizeIs(2));
  EXPECT_THAT(Rows("DECLARE @a nvarchar(9) = 'x ' SELECT 1 AS Same WHERE @a = 'X'"), ElementsAre("1"));
  EXPECT_EQ(FailureOf(*m_connection, "INSERT INTO Words (Word) VALUES (N'MÜLLER ')").Number(),
            ErrorNumber::DbIntegrity);
}

TEST_F(EmbeddedStatements, EvaluatesExpressionsAsServerDoes) {
  const std::vector<std::pair<const char*, const char*>> table = {
      {"7 % 4 + 2 * 3", "9"},
      {"-(-3)", "3"},
      {"'a' + 'b' + N'c'", "abc"},
      {"'a' + NULL", "NULL"},
      {"(SELECT FirstName + ' ' + LastName FROM (SELECT 'Ann' AS FirstName, 'Lee' AS LastName) p)", "Ann Lee"},
      {"(SELECT a + b FROM (SELECT 2 AS a, 3 AS b) p)", "5"},
      {"(SELECT a + b FROM (SELECT '2' AS a, '3' AS b) p)", "23"},
      {"(SELECT a + b FROM (SELECT '2' AS a, 3 AS b) p)", "5"},
      {"LEN('ab  ')", "2"},
      {"'[' + RTRIM(' a ') + LTRIM(' b ') + ']'", "[ ab ]"},
      {"RIGHT('abcd', 2) + LEFT('xyz', 1)", "cdx"},
      {"ISNULL(NULL, 'x')", "x"},
      {"COALESCE(NULL, NULL, 3)", "3"},
      {"NULLIF('a', 'A')", "NULL"},
      {"CAST('12' AS int) + 1", "13"},
      {"CONVERT(varchar(2), 'abc')", "ab"},
      {"CAST('20260105' AS datetime)", "2026-01-05 00:00:00.000"},
      {"DATEADD(month, 1, '2026-01-31')", "2026-02-28 00:00:00.000"},
      {"CASE WHEN 1 = 1 AND NOT 2 < 1 THEN 'yes' ELSE 'no' END", "yes"},
      {"CASE 'B' WHEN 'b' THEN 1 ELSE 2 END", "1"},
      {"'it''s [not] a -- comment'", "it's [not] a -- comment"},
  };
  for (const auto& [expression, expected] : table) {
    EXPECT_THAT(Rows(std::string("SELECT ") + expression + " AS Result"), ElementsAre(expected)) << expression;
  }
}

TEST_F(EmbeddedStatements, RunsControlFlowAndVariables) {
  EXPECT_THAT(
      Rows("DECLARE @n int = 0, @t varchar(9)\n"
           "WHILE @n < 5 BEGIN SET @n = @n + 1 IF @n = 3 SET @t = 'three' ELSE SELECT @t = ISNULL(@t, 'none'); END\n"
           "IF NOT EXISTS (SELECT * FROM Customer WHERE CustID = 'nobody') SELECT @N AS n, @t AS t\n"
           "RETURN SELECT 'never'"),
      ElementsAre("5|three"));
  EXPECT_THAT(Rows("DECLARE @g int UPDATE ttwGroup SET Comments = 'x' "
                   "SELECT @g = GroupKey FROM ttwGroup WHERE GroupID = 'nobody' "
                   "IF @@ROWCOUNT = 0 SELECT 'none' AS Found ELSE SELECT 'some' AS Found"),
              ElementsAre("none"));
  EXPECT_THAT(Rows("CREATE TABLE Keys (k int IDENTITY PRIMARY KEY, v int) INSERT INTO Keys (v) VALUES (1), (1) "
                   "DELETE FROM Keys SELECT @@ROWCOUNT AS n"),
              ElementsAre("2"));
  EXPECT_THAT(Rows("INSERT INTO Keys (v) VALUES (1) SELECT k FROM Keys"), ElementsAre("3")) << "no key comes twice";
  EXPECT_THAT(Rows("SELECT TOP (2) RemarkTypeID FROM ttwRemarkType ORDER BY RemarkTypeID DESC"),
              ElementsAre("Ord.Ship", "Ord.Note"));
  EXPECT_THAT(Rows("SELECT 1 AS a UNION SELECT 1 UNION ALL SELECT 1"), ElementsAre("1", "1"));
  EXPECT_THAT(Rows("DECLARE @t varchar(9) = 'x' + CHAR(0) + ' ' SELECT @t AS t"), ElementsAre(std::string("x\0 ", 3)));
  EXPECT_THAT(Rows("/* a /* nested */ comment */ SELECT [Key] = 1 -- alias before\n"), ElementsAre("1"));
}

// A server converts to the column's or variable's type; SQLite keeps what it gets.
TEST_F(EmbeddedStatements, NumbersAreConvertedAsOnAServerAlsoInAnAddedColumn) {
  m_connection->Execute("CREATE TABLE Amount (n int, r float) CREATE TABLE Flag (b bit) CREATE TABLE Big (n bigint)");
  ExpectFailures(*m_connection, {{"INSERT INTO Amount (r) VALUES ('abc')", " holds "},
                                 {"INSERT INTO Big VALUES ('abc')", "to a whole number"},
                                 {"INSERT INTO Big VALUES ('1.5')", "to a whole number"},
                                 {"INSERT INTO Big VALUES (1e19)", " holds "}});
  m_connection->Execute("INSERT INTO Amount VALUES ('', '') INSERT INTO Amount (n, r) VALUES (1.9, 1.9), (-1.9, ' ')");
  m_connection->Execute("INSERT INTO Flag VALUES (0.5) INSERT INTO Big VALUES (-9223372036854775807 - 1), (1.9)");
  EXPECT_THAT(Rows("SELECT n FROM Big"), ElementsAre("-9223372036854775808", "1"));
  m_connection->Execute("INSERT INTO Amount SELECT * FROM Amount WHERE n = 1 UPDATE Amount SET n = '  ' WHERE n = -1");
  EXPECT_THAT(Rows("SELECT n, r FROM Amount"), ElementsAre("0|0", "1|1.9", "0|0", "1|1.9"));
  EXPECT_THAT(Rows("DECLARE @n int = 1.9 DECLARE @m smallint = '' SELECT @n AS n, @m AS m, CAST('' AS int) AS c"),
              ElementsAre("1|0|0"));
  EXPECT_THAT(Rows("DECLARE @b bit = 0.5 SELECT b, CASE WHEN @b = 1 THEN 1 END AS v FROM Flag"), ElementsAre("1|1"));

  m_connection->Execute("ALTER TABLE Flag ADD Rank smallint NOT NULL CONSTRAINT DF_Rank DEFAULT (7)");
  EXPECT_THAT(Rows("SELECT b, Rank FROM Flag"), ElementsAre("1|7"));
  ExpectFailures(*m_connection, {{"UPDATE Flag SET Rank = 70000", "Rank holds"}});
}

TEST_F(EmbeddedStatements, DefinitionIsThatOfAProcedureAndMayNameWhatIsYetToBeMade) {
  m_connection->Execute("CREATE PROCEDURE spLater AS SELECT Anything FROM NotYet");
  EXPECT_THAT(Rows("SELECT OBJECT_DEFINITION(OBJECT_ID('dbo.spLater', 'P')) AS Text"),
              ElementsAre("CREATE PROCEDURE spLater AS SELECT Anything FROM NotYet"));
  EXPECT_THAT(Rows("SELECT OBJECT_DEFINITION(OBJECT_ID('ttwUser')) AS Text, OBJECT_ID('spNone') AS Id"),
              ElementsAre("NULL|NULL"));
  EXPECT_THAT(Rows("SELECT ISDATE('20240229') AS a, ISDATE('2023-02-29') AS b, ISDATE(NULL) AS c"),
              ElementsAre("1|0|0"));
}

TEST_F(EmbeddedStatements, ErrorsCarrySqlStateTextAndLine) {
  struct Case {
    const char* batch;
    const char* sqlState;
    const char* description;
    int line = 1;
  };
  const std::vector<Case> table = {
      {"SELECT * FROM ttwGruop", "42S02", "Invalid object name 'ttwGruop'."},
      {"SELECT 1\n\nSELECT Nme FROM ttwGroup", "42S22", "Invalid column name 'Nme'.", 3},
      {"SELECT 1\nFORM ttwGroup WHERE", "42000", "Incorrect syntax near", 2},
      {"SELECT 'open", "42000", "Unclosed quotation mark"},
      {R"(SELECT "GroupID", "no column" FROM ttwGroup)", "42S22", "Invalid column name 'no column'."},
      {"SELECT @x", "42000", "Must declare the scalar variable \"@x\"."},
      {"SELECT FORMAT(1, 'x')", "42000", "'FORMAT' is not a function"},
      {"CREATE TRIGGER x ON y", "42000", "does not support CREATE TRIGGER"},
      {"SELECT 1\nCOMMIT", "42000", "no corresponding BEGIN TRANSACTION", 2},
      {"RAISERROR ('stop here', 16, 1)", "42000", "stop here"},
      {"INSERT INTO ttwGroup (GroupID, Caption) VALUES ('DEFAULT', 'again')", "23000", "ttwGroup.GroupID"},
      {"INSERT INTO ttwGroup (Caption) VALUES ('no id')", "23000", "NULL into ttwGroup.GroupID"},
      {"INSERT INTO ttwGroupMember (GroupKey, UserKey) VALUES (999, 999)", "23000", "FOREIGN KEY"},
      {"INSERT INTO ttwGroup (GroupID, Caption) VALUES (REPLICATE('x', 31), 'x')", "22001", "at most 30 characters"},
      {"UPDATE ttwContext SET RowHeight = 'tall'", "22018", "Conversion failed when converting 'tall'"},
      {"UPDATE ttwContext SET RowHeight = '1e3'", "22018", "Conversion failed when converting '1e3'"},
      {"UPDATE ttwContext SET GroupByType = 70000", "22003", "GroupByType holds whole numbers"},
      {"DECLARE @n smallint SET @n = 70000", "22003", ""},
      {"DECLARE @n int SET @n = '1.5'", "22018", "Conversion failed when converting '1.5'"},
      {"SELECT CAST('1e3' AS int)", "22018", "Conversion failed when converting '1e3'"},
      {"SELECT CONVERT(smallint, 70000)", "42000", "Arithmetic overflow: 70000"},
      {"SELECT CONVERT(tinyint, -1)", "42000", "Arithmetic overflow: -1"},
      {"SELECT 1\nEXEC ('SELECT nothing FROM ttwGroup')", "42S22", "Invalid column name 'nothing'", 2},
      {"IF 1 = 1\nBEGIN\n  SELECT nothing FROM ttwGroup\nEND", "42S22", "Invalid column name 'nothing'", 3},
      {"SELECT DATEADD(year, 9000000000, '2026-01-01')", "42000", "caused an overflow"},
      {"SELECT DATEADD(day, 999999999, '2026-01-01')", "42000", "caused an overflow"},
      {"UPDATE tciMemo SET DateStamp = 'yesterday'", "42000", "Conversion failed"},
      {"CREATE PROCEDURE spBad AS\nSELECT 1\nUPDATE ttwGroup SET Nme = 'x'", "42S22", "Invalid column name 'Nme'.", 3},
      {"-- above\nCREATE PROCEDURE spBad AS\nINSERT INTO ttwGroup (Nme) VALUES ('x')", "42S22", "name 'Nme'.", 3},
      {"CREATE PROCEDURE spBad AS IF EXISTS (SELECT Nme FROM ttwGroup) SELECT 1", "42S22", "name 'Nme'."},
      {"ALTER TABLE ttwRight ADD Extra int IDENTITY", "42000", "does not support a key or UNIQUE column"},
  };
  for (const Case& c : table) {
    EXPECT_THAT(FailureOf(*m_connection, c.batch).Description(), HasSubstr(c.description)) << c.batch;
    ASSERT_THAT(m_connection->Errors(), SizeIs(1)) << c.batch;
    EXPECT_EQ(m_connection->Errors().front().sqlState, c.sqlState) << c.batch;
    EXPECT_EQ(m_connection->Errors().front().line, c.line) << c.batch;
  }
}

TEST_F(EmbeddedStatements, StoresDatesInOneForm) {
  m_connection->Execute("CREATE TABLE Moments (n int NOT NULL PRIMARY KEY, At datetime NULL)");
  m_connection->Execute("INSERT INTO Moments VALUES (1, '2026-01-05T09:30:00'), (2, '20260105'), (3, NULL)");
  m_connection->Execute("INSERT INTO Moments (n, At) SELECT 4, '2026-01-05 09:29'");
  m_connection->Execute("INSERT INTO Moments (At, n) SELECT At, n + 10 FROM Moments WHERE n = 1");
  m_connection->Execute("UPDATE Moments SET At = '2027-02-03' WHERE n = 3");
  EXPECT_THAT(Rows("SELECT n FROM Moments ORDER BY At, n"), ElementsAre("2", "4", "1", "11", "3"));
}

TEST_F(EmbeddedStatements, ErrorRollsBackOpenTransaction) {
  m_connection->Execute("CREATE TABLE Log (n int NOT NULL PRIMARY KEY)");
  (void)FailureOf(*m_connection, "INSERT INTO Log VALUES (1) INSERT INTO Log VALUES (1)");
  EXPECT_THAT(Rows("SELECT n FROM Log"), ElementsAre("1")) << "no transaction was open";
  (void)FailureOf(*m_connection, "BEGIN TRANSACTION INSERT INTO Log VALUES (2) INSERT INTO Log VALUES (1) COMMIT");
  m_connection->Execute("CREATE PROCEDURE spLog AS BEGIN TRAN INSERT INTO Log VALUES (3) RAISERROR ('no', 16, 1)");
  (void)FailureOf(*m_connection, "EXEC spLog");
  EXPECT_EQ(m_database.Ask("SELECT MAX(n) FROM Log"), "1");
  m_connection->Execute("BEGIN TRANSACTION");
  m_connection->Execute("BEGIN TRAN INSERT INTO Log VALUES (3) COMMIT");
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM Log"), "1") << "an inner COMMIT commits nothing";
  m_connection->Execute("COMMIT TRANSACTION BEGIN TRAN DELETE FROM Log ROLLBACK");
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM Log"), "2");
}

TEST_F(EmbeddedStatements, ExecPassesArgumentsByPositionAndName) {
  m_connection->Execute(
      "CREATE PROCEDURE spAdd (@a int, @b int = -5, @note nvarchar(10) = N'none', @sum int OUTPUT) AS\n"
      "SELECT @sum = @a + @b\n"
      "SELECT @note AS Note, @sum AS Total");
  EXPECT_THAT(Rows("DECLARE @s int EXEC dbo.spAdd 7, @sum = @s OUTPUT SELECT @s AS s"), ElementsAre("none|2"));
  EXPECT_THAT(Rows("EXEC spadd @b = 1, @A = 2, @note = 'two'"), ElementsAre("two|3"));
  EXPECT_THAT(Rows("DECLARE @t varchar(30) = 'SELECT 4 AS' EXEC (@t + ' four') EXEC (@t + ' four, 5')"),
              ElementsAre("4"));

  m_connection->Execute(
      "CREATE PROCEDURE spFactorial @n int, @result int OUTPUT AS\n"
      "DECLARE @smaller int = @n - 1, @inner int\n"
      "IF @n <= 1 BEGIN SET @result = 1 RETURN END\n"
      "EXEC spFactorial @smaller, @inner OUTPUT\n"
      "SET @result = @n * @inner");
  EXPECT_THAT(Rows("DECLARE @r int EXEC spFactorial 6, @r OUTPUT SELECT @r AS r"), ElementsAre("720"))
      << "every level has its own variables";
}

// A compiled procedure must not outlive a change of the procedure or of a table that it reads.
TEST_F(EmbeddedStatements, ChangesByAnotherConnectionCountAtOnce) {
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

TEST_F(EmbeddedStatements, WrongDefinitionsAndCallsAreRefused) {
  EXPECT_THAT(FailureOf(*m_connection, "EXEC spNobody 1").Description(), HasSubstr("Could not find stored procedure"))
      << "in a file that never had a procedure";
  m_connection->Execute("CREATE PROCEDURE spOnce @a int, @b int = 1 AS SELECT * FROM MadeLater");
  m_connection->Execute("CREATE PROCEDURE spForever AS EXEC spForever");
  ExpectFailures(*m_connection, {{"CREATE PROCEDURE spBad AS SELEC 1", "Incorrect syntax near 'SELEC'"},
                                 {"SELECT 1 CREATE PROCEDURE spLate AS SELECT 1", "must be the first statement"},
                                 {"CREATE PROC spONCE AS SELECT 2", "already an object"},
                                 {"ALTER PROCEDURE spOther AS SELECT 2", "Invalid object name 'spOther'"},
                                 {"EXEC spBad", "Could not find stored procedure"},
                                 {"EXEC spOnce @b = 1", "expects parameter '@a'"},
                                 {"EXEC spOnce 1, 2, 3", "too many arguments"},
                                 {"EXEC spOnce 1, @c = 1", "@c is not a parameter"},
                                 {"EXEC spOnce 1", "Invalid object name 'MadeLater'"},
                                 {"EXEC spForever", "levels deep"}});
  m_connection->Execute("CREATE TABLE MadeLater (n int) INSERT INTO MadeLater VALUES (7)");
  EXPECT_THAT(Rows("EXEC spOnce 1"), ElementsAre("7"));
}

}  // namespace
}  // namespace quorvel::ado
