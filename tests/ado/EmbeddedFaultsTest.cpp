#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

#include "ado/embedded/EmbeddedEngine.h"
#include "tests/support/Rows.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::ado {
namespace {

using test::FailureOf;
using test::RowsOf;
using test::TestDatabase;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

Error OpenFailure(const std::string& file) {
  auto connection = std::make_shared<Connection>();
  connection->SetConnectionString("Data Source=(embedded);Initial Catalog=" + file);
  try {
    connection->Open();
  } catch (const Error& error) {
    EXPECT_FALSE(connection->IsOpen());
    EXPECT_EQ(connection->Errors().size(), 1U);
    return error;
  }
  ADD_FAILURE() << "opened " << file;
  return {0, "", ""};
}

TEST(EmbeddedFaults, FilesThatCannotBeADatabaseAreNamed) {
  const test::TemporaryFolder folder;
  const std::string text = folder.File("letter.txt");
  std::ofstream(text) << std::string(5000, 'x');
  EXPECT_THAT(OpenFailure("").Description(), HasSubstr("No database file is set"));
  EXPECT_THAT(OpenFailure(folder.File("none.db")).Description(), HasSubstr(folder.File("none.db") + " does not exist"));
  EXPECT_THAT(OpenFailure(folder.Path().string()).Description(), HasSubstr("is a folder"));
  EXPECT_THAT(OpenFailure(text).Description(), HasSubstr("is not a database"));
  EXPECT_THAT(OpenFailure(text + "/below.db").Description(), HasSubstr("does not exist"));
  EXPECT_THROW(CreateEmbeddedDatabase(text + "/below.db"), Error);
  EXPECT_EQ(OpenFailure(text).Number(), ErrorNumber::DbUnspecified);
}

TEST(EmbeddedFaults, ADatabaseWithoutTheSchemaSaysWhichProcedureIsMissing) {
  const TestDatabase database(TestDatabase::Content::Empty);
  const auto connection = database.Connect();
  const Error error = FailureOf(*connection, "EXEC spTWCqvGetContext 'CustMaint'");
  EXPECT_EQ(error.Number(), ErrorNumber::DbStatement);
  EXPECT_EQ(error.Description(), "Could not find stored procedure 'spTWCqvGetContext'.");
}

TEST(EmbeddedFaults, ALockedDatabaseTimesOutAfterTheCommandTimeout) {
  const TestDatabase database(TestDatabase::Content::Schema);
  const auto holder = database.Connect();
  const auto waiter = database.Connect();
  holder->Execute("BEGIN TRANSACTION INSERT INTO ttwRight (RightID) VALUES ('held')");
  waiter->SetCommandTimeout(std::chrono::seconds(1));
  const auto begin = std::chrono::steady_clock::now();
  const Error error = FailureOf(*waiter, "INSERT INTO ttwRight (RightID) VALUES ('late')");
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(900));
  EXPECT_EQ(error.Number(), ErrorNumber::DbTimeout) << error.Description();
  EXPECT_THAT(RowsOf(*waiter, "SELECT COUNT(*) AS n FROM ttwRight"), ElementsAre("0")) << "readers do not wait";
  holder->Execute("COMMIT");
  waiter->Execute("INSERT INTO ttwRight (RightID) VALUES ('late')");
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM ttwRight"), "2");
}

TEST(EmbeddedFaults, AKilledWriterLosesOnlyWhatItHadNotCommitted) {
  const TestDatabase database(TestDatabase::Content::Schema);
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t writer = fork();
  if (writer == 0) {
    const auto connection = database.Connect();
    connection->Execute("INSERT INTO ttwRight (RightID) VALUES ('saved')");
    connection->Execute("BEGIN TRANSACTION INSERT INTO ttwRight (RightID) VALUES ('pending')");
    (void)!write(ready[1], "x", 1);
    pause();
    _exit(0);
  }
  char signal = 0;
  ASSERT_EQ(read(ready[0], &signal, 1), 1);
  kill(writer, SIGKILL);
  waitpid(writer, nullptr, 0);
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM ttwRight"), "1");
  database.Run("INSERT INTO ttwRight (RightID) VALUES ('next')");
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM ttwRight"), "2");
}

// To define a procedure is to write, and writers wait for each other.
TEST(EmbeddedFaults, ProgramsThatDefineProceduresAtOnceWaitForEachOther) {
  const TestDatabase database(TestDatabase::Content::Schema);
  database.Run("CREATE PROCEDURE spShared AS SELECT 0 AS n");
  std::vector<pid_t> programs;
  for (int program = 0; program < 4; ++program) {
    programs.push_back(fork());
    if (programs.back() != 0) continue;
    try {
      const auto connection = database.Connect();
      for (int i = 0; i < 20; ++i) {
        connection->Execute("ALTER PROCEDURE spShared AS SELECT " + std::to_string(100 * program + i) + " AS n");
      }
      _exit(0);
    } catch (...) {
      _exit(1);
    }
  }
  for (const pid_t program : programs) {
    int status = 1;
    waitpid(program, &status, 0);
    EXPECT_EQ(status, 0);
  }
}

// A limit on the size of files stands for a full disk: the system refuses the write in the same place.
TEST(EmbeddedFaults, AFullDiskIsAnErrorAndKeepsWhatWasSaved) {
  const TestDatabase database(TestDatabase::Content::Schema);
  const pid_t writer = fork();
  if (writer == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const auto connection = database.Connect();
    connection->Execute("INSERT INTO ttwRight (RightID) VALUES ('saved')");
    const rlimit limit{400000, 400000};
    setrlimit(RLIMIT_FSIZE, &limit);
    int refused = 0;
    for (int i = 0; i < 20 && refused == 0; ++i) {
      try {
        connection->Execute("INSERT INTO ttwRight (RightID, Comments) SELECT REPLICATE('x', " + std::to_string(i + 1) +
                            "), REPLICATE('y', 480) UNION ALL SELECT REPLICATE('z', " + std::to_string(i + 1) +
                            "), REPLICATE('y', 480)");
        for (int k = 0; k < 40; ++k)
          connection->Execute("UPDATE ttwRight SET Comments = REPLICATE('y', 480 - " + std::to_string(k) + ")");
      } catch (const Error& error) {
        refused = error.Number() == ErrorNumber::DbUnspecified ? 1 : 2;
      }
    }
    _exit(refused);
  }
  int status = 0;
  waitpid(writer, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 1) << "1: refused with the right number";
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM ttwRight WHERE RightID = 'saved'"), "1");
}

TEST(EmbeddedFaults, KeepsEveryCharacterOfALongText) {
  const TestDatabase database(TestDatabase::Content::Empty);
  const auto connection = database.Connect();
  connection->Execute("CREATE TABLE Texts (t nvarchar(max) NULL)");
  connection->Execute("CREATE PROCEDURE spKeep @t nvarchar(max) AS INSERT INTO Texts VALUES (@t)");
  std::string text = "  '' \" ; -- \r\n\t";
  text.push_back('\0');
  const std::string planes = "a\u00e9\u4e2d\U0001F600\U00020000\U000E0041\U000F0000\U0010FFFD e\u0301 \u202Eright";
  while (text.size() < (1U << 20U)) text += planes;
  std::vector<Parameter> parameters;
  parameters.emplace_back(ParameterInfo{"@t", DataType::LongVarWChar, ParameterDirection::Input, 0}, text);
  connection->Call("spKeep", parameters);
  EXPECT_TRUE(ToText(connection->Execute("SELECT t FROM Texts")->Fields("t").Value()) == text);
}

}  // namespace
}  // namespace quorvel::ado
