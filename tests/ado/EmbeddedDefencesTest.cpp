// A file may come from a stranger, and a batch from a file: neither may reach beyond the file, run without an end, or
// end the host's process.

#include <gmock/gmock.h>
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
#include "tests/support/Rows.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::ado {
namespace {

using test::Caught;
using test::FailureOf;
using test::RowsOf;
using test::TestDatabase;
using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

using BatchesAndErrors = std::vector<std::pair<std::string, const char*>>;

/// Runs statements of SQLite on the file, as other software does.
void RunOtherSoftware(const TestDatabase& database, const char* sql) {
  sqlite3* file = nullptr;
  char* failure = nullptr;
  EXPECT_EQ(sqlite3_open(database.DatabaseFile().c_str(), &file), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(file, sql, nullptr, nullptr, &failure), SQLITE_OK) << failure;
  sqlite3_free(failure);
  sqlite3_close(file);
}

std::string Repeated(std::string_view piece, int times) {
  std::string text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

TEST(EmbeddedDefences, NoBatchOrProcedureReachesAnotherFileOrSetting) {
  const TestDatabase database(TestDatabase::Content::Empty);
  const auto connection = database.Connect();
  connection->Execute("CREATE PROCEDURE spPlain AS SELECT 1 AS n");
  const std::string table =
      database.Ask("SELECT name FROM sqlite_schema WHERE type = 'table' AND sql LIKE '%Definition%'");
  connection->Execute("INSERT INTO [" + table +
                      "] (Name, Definition) VALUES ('spForeign', 'CREATE PROCEDURE spForeign AS "
                      "PRAGMA user_version = 7')");
  const BatchesAndErrors refused = {
      {"ATTACH DATABASE 'other.db' AS other", "near 'ATTACH'"},
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
      {"UPDATE sqlite_schema SET sql = ''", "may not be modified"},
  };
  for (const auto& [batch, description] : refused) {
    EXPECT_THAT(FailureOf(*connection, batch).Description(), HasSubstr(description)) << batch;
  }
  EXPECT_THAT(RowsOf(*connection, "EXEC spPlain"), ElementsAre("1"));
}

TEST(EmbeddedDefences, ViewsOfFileCallOnlyHarmlessFunctions) {
  const TestDatabase database(TestDatabase::Content::Empty);
  RunOtherSoftware(database,
                   "CREATE VIEW Harmless AS SELECT tsql_plus(1, 2) AS n;"
                   "CREATE VIEW Loads AS SELECT load_extension('x') AS n;"
                   "CREATE VIEW Finds AS SELECT tsql_object_id('Loads', 'U') AS n;"
                   "CREATE VIEW Lists AS SELECT file FROM pragma_database_list;"
                   "CREATE VIRTUAL TABLE Words USING fts5(Word)");
  const auto connection = database.Connect();
  EXPECT_THAT(RowsOf(*connection, "SELECT n FROM Harmless"), ElementsAre("3"));
  const BatchesAndErrors refused = {
      {"SELECT n FROM Loads", "unsafe use"},
      {"SELECT n FROM Finds", "unsafe use"},
      {"SELECT * FROM Lists", "unsafe use"},
      {"DELETE FROM Words_data", "may not be modified"},
  };
  for (const auto& [batch, description] : refused) {
    EXPECT_THAT(FailureOf(*connection, batch).Description(), AnyOf(HasSubstr(description), HasSubstr("does not let")))
        << batch;
  }
}

/// Calls the procedure as the component calls one that reads, and returns its first value.
std::string Read(const std::shared_ptr<Connection>& connection, const std::string& procedure) {
  Command command;
  command.SetActiveConnection(connection);
  command.SetCommandType(CommandType::StoredProcedure);
  command.SetCommandText(procedure);
  command.SetAccess(Access::Read);
  return test::Shown(command.Execute()->Fields(std::size_t{0}).Value());
}

TEST(EmbeddedDefences, ProcedureThatIsCalledToReadChangesNothing) {
  const TestDatabase database(TestDatabase::Content::Empty);
  RunOtherSoftware(database,
                   "CREATE TABLE Note (n int);"
                   "CREATE TABLE [#Watched] (n int);"
                   "CREATE TRIGGER Watch AFTER INSERT ON [#Watched] BEGIN INSERT INTO Note VALUES (new.n); END");
  const auto connection = database.Connect();
  const BatchesAndErrors refused = {
      {"spWrites", "INSERT INTO Note VALUES (1)"},
      {"spWritesBelow", "EXEC spWrites"},
      {"spWritesText", "EXEC ('DELETE FROM Note')"},
      {"spTriggers", "INSERT INTO #Watched VALUES (1)"},
      {"spMakes", "CREATE TABLE Other (n int)"},
      {"spDrops", "DROP TABLE Note"},
      {"spDefines", "EXEC ('ALTER PROCEDURE spWrites AS SELECT 1 AS n')"},
  };
  for (const auto& [name, body] : refused) connection->Execute("CREATE PROCEDURE " + name + " AS " + body);
  // A statement that was compiled for a call that may write has no right of its own.
  connection->Execute("EXEC spWritesBelow");
  for (const auto& [name, body] : refused) {
    const Error error = Caught([&, &procedure = name] { Read(connection, procedure); });
    EXPECT_EQ(error.Number(), ErrorNumber::DbStatement) << body;
    EXPECT_THAT(error.Description(), HasSubstr(name + " was called to read and may not change ")) << body;
  }
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM Note"), "1");

  connection->Execute(
      "CREATE PROCEDURE spTemporary AS DECLARE @n int BEGIN TRANSACTION CREATE TABLE #Found (n int PRIMARY KEY) INSERT "
      "INTO #Found SELECT n FROM Note SELECT @n = MAX(n) FROM #Found DROP TABLE #Found COMMIT SELECT @n AS n");
  for (int i = 0; i < 2; ++i) EXPECT_EQ(Read(connection, "spTemporary"), "1");
  connection->Execute("EXEC spWrites");
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM Note"), "2");
}

// Later changes would never be stored.
TEST(EmbeddedDefences, CalledProcedureLeavesNoTransactionOpen) {
  const TestDatabase database(TestDatabase::Content::Empty);
  const auto connection = database.Connect();
  connection->Execute("CREATE TABLE Note (n int)");
  connection->Execute("CREATE PROCEDURE spOpens AS BEGIN TRANSACTION SELECT 1 AS n");
  EXPECT_THAT(Caught([&] { Read(connection, "spOpens"); }).Description(), HasSubstr("did not end it"));
  connection->Execute("INSERT INTO Note VALUES (1)");
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM Note"), "1");
}

TEST(EmbeddedDefences, CommandWithoutEndIsStoppedAndRolledBack) {
  const TestDatabase database(TestDatabase::Content::Empty);
  RunOtherSoftware(
      database,
      "CREATE TABLE Note (n int);"
      "CREATE VIEW Endless AS WITH RECURSIVE r(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM r) SELECT n FROM r");
  database.Run("CREATE PROCEDURE spEndless AS SELECT COUNT(*) AS n FROM Endless");
  const auto connection = database.Connect();
  connection->SetCommandTimeout(std::chrono::seconds(1));
  for (const char* endless : {"WHILE 1 = 1 BEGIN END", "EXEC spEndless"}) {
    const Error error = FailureOf(*connection, std::string("BEGIN TRANSACTION INSERT INTO Note VALUES (1) ") + endless);
    EXPECT_EQ(error.Number(), ErrorNumber::DbTimeout) << endless;
    EXPECT_THAT(error.Description(), HasSubstr("longer than the command timeout"));
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM Note"), "0") << endless;
  }
  connection->Execute("INSERT INTO Note VALUES (2)");
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM Note"), "1");
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

TEST(EmbeddedDefences, NothingOverflowsSmallStack) {
  const TestDatabase database(TestDatabase::Content::Empty);
  constexpr int kLevels = 190;
  const std::string blocks = Repeated("IF 1 = 1 ", 60);
  database.Run("CREATE PROCEDURE spDeep AS " + blocks + "EXEC spDeep");
  const std::vector<std::string> batches = {
      "SELECT " + Repeated("(", kLevels) + "1" + Repeated(")", kLevels) + " AS n",
      "SELECT " + Repeated("(SELECT ", kLevels) + "1" + Repeated(")", kLevels) + " AS n",
      "SELECT " + Repeated("RIGHT(", kLevels) + "'a'" + Repeated(", 1)", kLevels) + " AS n",
      "SELECT 1 AS n WHERE " + Repeated("NOT ", kLevels) + "1 = 1",
      "SELECT 0" + Repeated(" + 1", 990) + " AS n",
      "EXEC spDeep",
  };
  RunOnSmallStack([&] {
    const auto connection = database.Connect();
    for (const std::string& batch : batches) {
      EXPECT_THAT(FailureOf(*connection, batch).Description(), HasSubstr("nested too deeply")) << batch.substr(0, 20);
    }
    EXPECT_THAT(RowsOf(*connection, "SELECT RIGHT(RIGHT(N'aöü', 2), 5) AS r, RIGHT('a', 0) AS n"), ElementsAre("öü|"));
  });
}

}  // namespace
}  // namespace quorvel::ado
