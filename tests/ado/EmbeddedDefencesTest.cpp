// A file may come from a stranger, and a batch from a file: neither may reach beyond the file, run without an end, or
// end the host's process.

#include <pthread.h>
#include <sqlite3.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ado/Command.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/Rows.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::ado {
namespace {

using namespace test;

class EmbeddedDefences : public testing::Test {
 protected:
  /// Runs statements of SQLite on the file, as other software does.
  void RunOtherSoftware(const char* sql) const {
    sqlite3* file = nullptr;
    char* failure = nullptr;
    EXPECT_EQ(sqlite3_open(m_database.DatabaseFile().c_str(), &file), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(file, sql, nullptr, nullptr, &failure), SQLITE_OK) << failure;
    sqlite3_free(failure);
    sqlite3_close(file);
  }
  /// Calls the procedure as the component calls one that reads, and returns its first value.
  [[nodiscard]] std::string Read(const std::string& procedure) const {
    Command command = CallOf(m_connection, procedure);
    command.SetAccess(Access::Read);
    return Shown(command.Execute()->Fields(std::size_t{0}).Value());
  }

  const TestDatabase m_database{TestDatabase::Content::Empty};
  const std::shared_ptr<Connection> m_connection = m_database.Connect();
};

std::string Repeated(std::string_view piece, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

TEST_F(EmbeddedDefences, NoBatchOrProcedureReachesAnotherFileOrSetting) {
  m_connection->Execute("CREATE PROCEDURE spPlain AS SELECT 1 AS n");
  const std::string table =
      m_database.Ask("SELECT name FROM sqlite_schema WHERE type = 'table' AND sql LIKE '%Definition%'");
  m_connection->Execute("INSERT INTO [" + table +
                        "] (Name, Definition) VALUES ('spForeign', 'CREATE PROCEDURE spForeign AS "
                        "PRAGMA user_version = 7')");
  ExpectFailures(*m_connection, {{"ATTACH DATABASE 'other.db' AS other", "near 'ATTACH'"},
                                 {"EXEC ('ATTACH DATABASE ''other.db'' AS other')", "near 'ATTACH'"},
                                 {"VACUUM INTO 'other.db'", "near 'VACUUM'"},
                                 {"PRAGMA writable_schema = ON", "near 'PRAGMA'"},
                                 {"CREATE PROCEDURE spNew AS PRAGMA user_version = 7", "near 'PRAGMA'"},
                                 {"EXEC spForeign", "near 'PRAGMA'"},
                                 {"SELECT * FROM pragma_database_list", "does not let"},
                                 {"SELECT * FROM [pragma_optimize]", "does not let"},
                                 {"SELECT load_extension('x') AS n", "not a function"},
                                 {"SELECT [load_extension]('x') AS n", "near '('"},
                                 {"CREATE VIRTUAL TABLE Words USING fts5(Word)", "does not support"},
                                 {"UPDATE sqlite_schema SET sql = ''", "may not be modified"}});
  EXPECT_THAT(RowsOf(*m_connection, "EXEC spPlain"), ElementsAre("1"));
}

TEST_F(EmbeddedDefences, ViewsOfFileCallOnlyHarmlessFunctions) {
  RunOtherSoftware(
      "CREATE VIEW Harmless AS SELECT tsql_plus(1, 2) AS n;"
      "CREATE VIEW Loads AS SELECT load_extension('x') AS n;"
      "CREATE VIEW Finds AS SELECT tsql_object_id('Loads', 'U') AS n;"
      "CREATE VIEW Lists AS SELECT file FROM pragma_database_list;"
      "CREATE VIRTUAL TABLE Words USING fts5(Word)");
  EXPECT_THAT(RowsOf(*m_connection, "SELECT n FROM Harmless"), ElementsAre("3"));
  for (const auto& [batch, description] : {std::pair{"SELECT n FROM Loads", "unsafe use"},
                                           {"SELECT n FROM Finds", "unsafe use"},
                                           {"SELECT * FROM Lists", "unsafe use"},
                                           {"DELETE FROM Words_data", "may not be modified"}}) {
    EXPECT_THAT(FailureOf(*m_connection, batch).Description(), AnyOf(HasSubstr(description), HasSubstr("does not let")))
        << batch;
  }
}

TEST_F(EmbeddedDefences, ProcedureThatIsCalledToReadChangesNothingAndEndsItsTransaction) {
  RunOtherSoftware(
      "CREATE TABLE Note (n int);"
      "CREATE TABLE [#Watched] (n int);"
      "CREATE TRIGGER Watch AFTER INSERT ON [#Watched] BEGIN INSERT INTO Note VALUES (new.n); END");
  const std::vector<std::pair<std::string, const char*>> refused = {
      {"spWrites", "INSERT INTO Note VALUES (1)"},
      {"spWritesBelow", "EXEC spWrites"},
      {"spWritesText", "EXEC ('DELETE FROM Note')"},
      {"spTriggers", "INSERT INTO #Watched VALUES (1)"},
      {"spMakes", "CREATE TABLE Other (n int)"},
      {"spDrops", "DROP TABLE Note"},
      {"spDefines", "EXEC ('ALTER PROCEDURE spWrites AS SELECT 1 AS n')"},
  };
  for (const auto& [name, body] : refused) m_connection->Execute("CREATE PROCEDURE " + name + " AS " + body);
  // A statement that was compiled for a call that may write has no right of its own.
  m_connection->Execute("EXEC spWritesBelow");
  for (const auto& [name, body] : refused) {
    EXPECT_THAT(Caught([this, &procedure = name] { (void)Read(procedure); }),
                IsError(ErrorNumber::DbStatement, HasSubstr(name + " was called to read and may not change ")))
        << body;
  }
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM Note"), "1");

  m_connection->Execute(
      "CREATE PROCEDURE spTemporary AS DECLARE @n int BEGIN TRANSACTION CREATE TABLE #Found (n int PRIMARY KEY) INSERT "
      "INTO #Found SELECT n FROM Note SELECT @n = MAX(n) FROM #Found DROP TABLE #Found COMMIT SELECT @n AS n");
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Read("spTemporary"), "1");
  // Later changes would never be stored.
  m_connection->Execute("CREATE PROCEDURE spOpens AS BEGIN TRANSACTION SELECT 1 AS n");
  EXPECT_THAT(Caught([this] { (void)Read("spOpens"); }).Description(), HasSubstr("did not end it"));
  m_connection->Execute("EXEC spWrites");
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM Note"), "2");
}

TEST_F(EmbeddedDefences, CommandWithoutEndIsStoppedAndRolledBack) {
  RunOtherSoftware(
      "CREATE TABLE Note (n int);"
      "CREATE VIEW Endless AS WITH RECURSIVE r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r) SELECT n FROM r");
  m_database.Run("CREATE PROCEDURE spEndless AS SELECT COUNT(*) AS n FROM Endless");
  m_connection->SetCommandTimeout(std::chrono::seconds(1));
  for (const char* endless : {"WHILE 1 = 1 BEGIN END", "EXEC spEndless"}) {
    EXPECT_THAT(FailureOf(*m_connection, std::string("BEGIN TRANSACTION INSERT INTO Note VALUES (1) ") + endless),
                IsError(ErrorNumber::DbTimeout, HasSubstr("longer than the command timeout")))
        << endless;
    EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM Note"), "0") << endless;
  }
  m_connection->Execute("INSERT INTO Note VALUES (2)");
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM Note"), "1");

  RunOtherSoftware(
      "DROP TABLE quorvel_procedure;"
      "CREATE VIEW quorvel_procedure AS SELECT 'sp' || n AS Name, 'x' AS Definition FROM Endless;"
      "PRAGMA user_version = 99");
  EXPECT_THAT(Caught([this] { (void)m_connection->DiscoverParameters("spNone"); }),
              IsError(ErrorNumber::DbTimeout, HasSubstr("longer than the command timeout")));
}

/// Runs the operation on a thread with as small a stack as some hosts give theirs.
void RunOnSmallStack(std::function<void()> operation) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, std::size_t{256} * 1024);
  pthread_t thread{};
  const auto run = [](void* pointer) -> void* {
    (*static_cast<std::function<void()>*>(pointer))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &operation), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

TEST_F(EmbeddedDefences, NothingOverflowsSmallStack) {
  constexpr int kLevels = 190;
  m_database.Run("CREATE PROCEDURE spDeep AS " + Repeated("IF 1 = 1 ", 60) + "EXEC spDeep");
  std::vector<std::string> nested = {
      "SELECT " + Repeated("(", kLevels) + "1" + Repeated(")", kLevels) + " AS n",
      "SELECT " + Repeated("(SELECT ", kLevels) + "1" + Repeated(")", kLevels) + " AS n",
      "SELECT " + Repeated("RIGHT(", kLevels) + "'a'" + Repeated(", 1)", kLevels) + " AS n",
      "SELECT 1 AS n WHERE " + Repeated("NOT ", kLevels) + "1 = 1",
      "SELECT 0" + Repeated(" + 1", 990) + " AS n",
      "EXEC spDeep",
      "SELECT 1 FROM a" + Repeated(" JOIN b", 5'000),
      "SELECT 1" + Repeated(" + 1", 1'000'000) + " AS n",
      "SELECT 1" + Repeated(" * 1", 1'000'000) + " AS n",
  };
  for (const char* endless : {"(", "NOT ", "- ", "(SELECT ", "CASE WHEN ", "* FROM (SELECT "}) {
    nested.push_back("SELECT " + Repeated(endless, 5'000));
  }
  for (const char* endless : {"BEGIN ", "IF 1 = 1 "}) nested.push_back(Repeated(endless, 5'000));
  const std::vector<std::pair<std::string, std::string>> fitting = {
      {"SELECT 1 AS n WHERE 1 = 1" + Repeated(" AND (1 = 1 OR 2 = 1)", 500), "1"},
      {"SELECT LEN('a'" + Repeated(" + 'b'", 500) + ") AS n", "501"},
      {"SELECT 0" + Repeated(" - 1 + 3 * 2", 300) + " AS n", "1500"},
  };
  RunOnSmallStack([&] {
    const auto connection = m_database.Connect();
    for (const std::string& batch : nested) ExpectFailures(*connection, {{batch, "nested too deeply"}});
    // The deepest statement that is taken comes closest to the end of the stack.
    for (const char* open : {"(", "(SELECT "}) {
      int levels = 1;
      try {
        for (; levels < kLevels; ++levels) {
          connection->Execute("SELECT " + Repeated(open, levels) + "1" + Repeated(")", levels) + " AS n");
        }
      } catch (const Error& error) {
        EXPECT_THAT(error.Description(), HasSubstr("nested too deeply"));
      }
      EXPECT_THAT(levels, AllOf(testing::Gt(1), testing::Lt(kLevels))) << open;
    }
    EXPECT_THAT(RowsOf(*connection, "SELECT RIGHT(RIGHT(N'aöü', 2), 5) AS r, RIGHT('a', 0) AS n"), ElementsAre("öü|"));
  });
  // With the usual stack long statements fit.
  for (const auto& [batch, row] : fitting) EXPECT_THAT(RowsOf(*m_connection, batch), ElementsAre(row));
}

}  // namespace
}  // namespace quorvel::ado
