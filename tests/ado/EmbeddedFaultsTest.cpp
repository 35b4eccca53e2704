// Faults of the outside: files that are no databases, other writers, a full disk.

#include <gmock/gmock.h>
#include <grp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <future>
#include <memory>
#include <thread>
#include <utility>

#include "ado/embedded/EmbeddedEngine.h"
#include "platform/AtScopeEnd.h"
#include "tests/support/Caught.h"
#include "tests/support/Rows.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestDatabase.h"

namespace {
bool failsToSync = false;
std::function<void()> whileSyncing;
std::function<void()> whileSleeping;
}  // namespace

/// In the place of the system's function, for SQLite as well.
extern "C" int fdatasync(int descriptor) {
  if (whileSyncing) std::exchange(whileSyncing, {})();
  if (!failsToSync) return static_cast<int>(::syscall(SYS_fdatasync, descriptor));
  errno = EIO;
  return -1;
}

extern "C" int nanosleep(const timespec* time, timespec* left) {
  if (whileSleeping) std::exchange(whileSleeping, {})();
  return static_cast<int>(::syscall(SYS_nanosleep, time, left));
}

namespace quorvel::ado {
namespace {

using test::FailureOf;
using test::RowsOf;
using test::TestDatabase;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(EmbeddedFaults, FileThatCannotBeDatabaseIsNamed) {
  const test::TemporaryFolder folder;
  const std::string text = folder.File("letter.txt");
  std::ofstream(text) << std::string(5000, 'x');
  const std::vector<std::pair<std::string, std::string>> table = {
      {"", "No database file is set"},         {folder.File("none.db"), folder.File("none.db") + " does not exist"},
      {folder.Path().string(), "is a folder"}, {text, "is not a database"},
      {text + "/below.db", "does not exist"},
  };
  for (const auto& [file, description] : table) {
    Connection connection;
    connection.SetConnectionString("Data Source=(embedded);Initial Catalog=" + file);
    const Error error = test::Caught([&] { connection.Open(); });
    EXPECT_THAT(error.Description(), HasSubstr(description));
    EXPECT_EQ(error.Number(), ErrorNumber::DbUnspecified) << file;
    EXPECT_FALSE(connection.IsOpen()) << file;
    EXPECT_EQ(connection.Errors().size(), 1U) << file;
  }
  EXPECT_THROW(CreateEmbeddedDatabase(text + "/below.db"), Error);
}

TEST(EmbeddedFaults, OnlyOwnerAndGroupCanOpenANewDatabase) {
  const test::TemporaryFolder folder;
  const auto modeOf = [](const std::string& file) { return std::filesystem::status(file).permissions(); };
  for (const auto& [stricter, expected] : {std::pair<mode_t, int>{022, 0640}, {0, 0660}, {077, 0600}}) {
    const std::string file = folder.File(std::to_string(stricter));
    const mode_t usual = ::umask(stricter);
    CreateEmbeddedDatabase(file);
    const auto connection = std::make_shared<Connection>();
    connection->SetConnectionString("Data Source=(embedded);Initial Catalog=" + file);
    connection->Open();
    (void)connection->Execute("CREATE TABLE T (A int)");
    ::umask(usual);
    for (const char* part : {"", "-wal", "-shm"}) {
      EXPECT_EQ(modeOf(file + part), std::filesystem::perms(expected)) << file + part;
    }
  }
  const std::string link = folder.File("link");
  std::filesystem::create_symlink("target", link);
  const mode_t usual = ::umask(0);
  CreateEmbeddedDatabase(link);
  CreateEmbeddedDatabase(folder.File("new/folders/file"));
  ::umask(usual);
  for (const char* made : {"new", "new/folders"}) {
    EXPECT_EQ(modeOf(folder.File(made)), std::filesystem::perms{0775}) << "other users could replace the file";
  }
  EXPECT_EQ(modeOf(folder.File("target")), std::filesystem::perms{0660});
}

// Two users of a file may have nothing but its group in common.
TEST(EmbeddedFaults, LogGetsTheGroupOfTheFile) {
  if (::geteuid() != 0) GTEST_SKIP() << "needs another user";
  constexpr gid_t kShared = 3000;
  constexpr id_t kUser = 4001;
  const test::TemporaryFolder folder;
  const std::string file = folder.File("shared.db");
  CreateEmbeddedDatabase(file);
  for (const std::string& each : {file, folder.Path().string()}) {
    ASSERT_EQ(::chown(each.c_str(), 0, kShared), 0);
    std::filesystem::permissions(each, std::filesystem::perms{0770});
  }
  const auto connection = std::make_shared<Connection>();
  const auto second = std::make_shared<Connection>();
  connection->SetConnectionString("Data Source=(embedded);Initial Catalog=" + file);
  second->SetConnectionString("Data Source=(embedded);Initial Catalog=" + file);
  {
    const AtScopeEnd back([] { EXPECT_EQ(::seteuid(0) + ::setegid(0) + ::setgroups(0, nullptr), 0); });
    ASSERT_EQ(::setgroups(1, &kShared) + ::setegid(kUser) + ::seteuid(kUser), 0);
    connection->Open();
    const auto giveLogTo = [&](gid_t group) {
      ASSERT_EQ(::seteuid(0), 0);
      ASSERT_EQ(::chown((file + "-wal").c_str(), kUser, group), 0);
      ASSERT_EQ(::setegid(kUser + 1), 0);
      ASSERT_EQ(::seteuid(kUser + 1), 0);
    };
    // The second user comes before the first one has given the log its group.
    giveLogTo(kUser);
    whileSleeping = [&] { giveLogTo(kShared); };
    second->Open();
  }
  for (const char* part : {"-wal", "-shm"}) {
    struct stat status {};
    ASSERT_EQ(::stat((file + part).c_str(), &status), 0) << part;
    EXPECT_EQ(status.st_uid, kUser) << part;
    EXPECT_EQ(status.st_gid, kShared) << part;
  }
}

// The byte says which version of the file's format is needed to write to it, so the file is read-only for root too.
TEST(EmbeddedFaults, ReadOnlyFileCanBeReadAndRefusesWrites) {
  constexpr std::streamoff kWriteVersion = 18;
  const TestDatabase database(TestDatabase::Content::Schema);
  std::fstream(database.DatabaseFile()).seekp(kWriteVersion).put('\x03');
  const auto connection = database.Connect();
  const Error error = FailureOf(*connection, "INSERT INTO ttwRight (RightID) VALUES ('new')");
  EXPECT_THAT(error.Description(), HasSubstr("is read-only here and did not take this change"));
  EXPECT_EQ(error.Number(), ErrorNumber::DbUnspecified);
  EXPECT_THAT(RowsOf(*connection, "SELECT COUNT(*) AS n FROM ttwRight"), ElementsAre("0"));
}

// An open file can be deleted or replaced by another one on POSIX. SQLite then writes to the one that has no name any
// more.
TEST(EmbeddedFaults, DeletedOrReplacedFileTakesNoWrite) {
  const TestDatabase database(TestDatabase::Content::Empty);
  database.Run("CREATE TABLE Note (t nvarchar(max)) INSERT INTO Note VALUES ('kept')");
  const std::string file = database.DatabaseFile();
  const auto writer = database.Connect();
  const auto committer = database.Connect();
  const auto reader = database.Connect();
  const std::string insert = "INSERT INTO Note VALUES ('lost')";
  committer->Execute("BEGIN TRANSACTION " + insert);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  EXPECT_THAT(RowsOf(*reader, "SELECT t FROM Note"), ElementsAre("kept"));

  std::filesystem::rename(file, file + ".old");
  for (const auto& [connection, batch] :
       {std::pair{writer, insert}, {writer, "SELECT t FROM Note"}, {committer, "COMMIT"}, {writer, insert}}) {
    EXPECT_THAT(FailureOf(*connection, batch).Description(), HasSubstr(file + " was deleted or replaced")) << batch;
    EXPECT_EQ(connection->Errors().front().sqlState, "08S01") << batch;
    if (!std::filesystem::exists(file)) std::ofstream(file) << "another file";
  }
  const auto reads = [&] {
    try {
      return !RowsOf(*reader, "SELECT t FROM Note").empty();
    } catch (const Error&) {
      return false;
    }
  };
  while (reads()) ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "a reader never sees the new file";
  EXPECT_THAT(FailureOf(*reader, insert).Description(), HasSubstr(file + " was deleted or replaced"));
  std::filesystem::rename(file + ".old", file);
  EXPECT_THAT(RowsOf(*writer, "SELECT t FROM Note"), ElementsAre("kept"));
}

TEST(EmbeddedFaults, FileReplacedWhileAWriterWaitsTakesNoWrite) {
  const TestDatabase database(TestDatabase::Content::Empty);
  database.Run("CREATE TABLE Note (t nvarchar(max))");
  const std::string file = database.DatabaseFile();
  const std::string insert = "INSERT INTO Note VALUES ('lost') ";
  for (const std::string& batch : {insert, "BEGIN TRANSACTION " + insert + "COMMIT"}) {
    const auto first = database.Connect();
    const auto second = database.Connect();
    first->Execute("BEGIN TRANSACTION");
    const quorvel::test::PromptsGuard prompts;
    auto waiting = std::async(std::launch::async, [&] { return FailureOf(*second, batch).Description(); });
    while (prompts->drawings == 0)
      ASSERT_EQ(waiting.wait_for(std::chrono::milliseconds(1)), std::future_status::timeout);
    std::filesystem::rename(file, file + ".old");
    EXPECT_THAT(FailureOf(*first, "COMMIT").Description(), HasSubstr("was deleted or replaced"));
    EXPECT_THAT(waiting.get(), HasSubstr("was deleted or replaced")) << batch;
    std::filesystem::rename(file + ".old", file);
  }
}

// A commit in a batch of its own changes nothing that SQLite counts.
TEST(EmbeddedFaults, FileReplacedWhileTheDiskWritesIsNoSuccess) {
  const TestDatabase database(TestDatabase::Content::Empty);
  database.Run("CREATE TABLE Note (t nvarchar(max))");
  const std::string file = database.DatabaseFile();
  for (const auto& [before, batch] : {std::pair{"SELECT t FROM Note", "INSERT INTO Note VALUES ('a')"},
                                      {"BEGIN TRANSACTION INSERT INTO Note VALUES ('b')", "COMMIT"}}) {
    const auto writer = database.Connect();
    writer->Execute(before);
    whileSyncing = [&] { std::filesystem::rename(file, file + ".old"); };
    EXPECT_THAT(FailureOf(*writer, batch).Description(), HasSubstr("was deleted or replaced")) << batch;
    std::filesystem::rename(file + ".old", file);
  }
}

TEST(EmbeddedFaults, LinkThatLeadsToAnotherFileTakesNoWrite) {
  const TestDatabase database(TestDatabase::Content::Empty);
  const test::TemporaryFolder folder;
  const std::string link = folder.File("link.db");
  std::filesystem::create_symlink(database.DatabaseFile(), link);
  const auto connection = test::ConnectBy("Data Source=(embedded);Initial Catalog=" + link);
  connection->Execute("CREATE TABLE Note (t nvarchar(max))");
  std::filesystem::remove(link);
  std::filesystem::create_symlink(TestDatabase(TestDatabase::Content::Empty).DatabaseFile(), link);
  EXPECT_THAT(FailureOf(*connection, "INSERT INTO Note VALUES ('lost')").Description(),
              HasSubstr(link + " was deleted or replaced"));
}

// The disk fails after the commit was written, before it is known to be there.
TEST(EmbeddedFaults, FailedCommitOfUnknownOutcomeSaysSo) {
  const TestDatabase database(TestDatabase::Content::Empty);
  const auto connection = database.Connect();
  connection->Execute("CREATE TABLE Note (t nvarchar(max))");
  failsToSync = true;
  const Error error = FailureOf(*connection, "INSERT INTO Note VALUES ('perhaps')");
  failsToSync = false;
  EXPECT_THAT(error.Description(), testing::EndsWith("It is not known whether the last change was stored."));
  EXPECT_THAT(error.Description(), HasSubstr(database.DatabaseFile()));
}

// A log without a name is gone, with all that was written to it, when the program is killed.
TEST(EmbeddedFaults, DeletedFileBesideTheDatabaseTakesNoWrite) {
  for (const char* beside : {"-wal", "-shm"}) {
    const TestDatabase database(TestDatabase::Content::Empty);
    const auto writer = database.Connect();
    const std::string file = database.DatabaseFile() + beside;
    std::filesystem::remove(file);
    EXPECT_THAT(
        FailureOf(*writer, "CREATE TABLE Note (t nvarchar(max)) INSERT INTO Note VALUES ('lost')").Description(),
        HasSubstr(file + " was deleted or replaced"));
    EXPECT_TRUE(writer->IsLost());
  }
}

// Transactions that read before they write must wait for each other. SQLite by itself refuses the write of a reader
// when another connection has written since it began.
TEST(EmbeddedFaults, WritersWaitFromTheirFirstReadUpToCommandTimeout) {
  const TestDatabase database(TestDatabase::Content::Empty);
  database.Run("CREATE TABLE Counter (n int NOT NULL) INSERT INTO Counter VALUES (0)");
  database.Run(
      "CREATE PROCEDURE spCount AS DECLARE @n int BEGIN TRANSACTION "
      "SELECT @n = n FROM Counter UPDATE Counter SET n = @n + 1 COMMIT");
  const auto first = database.Connect();
  const auto second = database.Connect();
  EXPECT_THAT(RowsOf(*first, "BEGIN TRANSACTION SELECT n FROM Counter"), ElementsAre("0"));
  EXPECT_THAT(RowsOf(*second, "SELECT n FROM Counter"), ElementsAre("0")) << "readers do not wait";
  second->SetCommandTimeout(std::chrono::seconds(1));
  // A batch that defines a procedure reads and writes, too.
  for (const char* batch : {"EXEC spCount", "ALTER PROCEDURE spCount AS SELECT 1 AS n"}) {
    const quorvel::test::PromptsGuard prompts;
    std::string nested;
    prompts->meanwhile = [&] { nested = FailureOf(*second, "SELECT n FROM Counter").Description(); };
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(FailureOf(*second, batch).Number(), ErrorNumber::DbTimeout) << batch;
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(900)) << batch;
    EXPECT_GT(prompts->drawings, 0) << "windows draw themselves during the wait";
    EXPECT_THAT(nested, HasSubstr("waits for another program"))
        << "a handler of the host runs in the middle of a batch";
  }

  second->SetCommandTimeout(std::chrono::seconds(60));
  auto waiting = std::async(std::launch::async, [&] { second->Execute("EXEC spCount"); });
  first->Execute("UPDATE Counter SET n = n + 1 COMMIT");
  waiting.get();
  EXPECT_EQ(database.Ask("SELECT n FROM Counter"), "2");
}

/// Writes until the database refuses, then ends the program: with 1 when the error has the right number. A limit on the
/// size of files takes the place of a full disk: the system refuses the write in the same way.
[[noreturn]] void FillDisk(const TestDatabase& database) {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{400'000, 400'000};
  setrlimit(RLIMIT_FSIZE, &limit);
  try {
    for (int i = 0; i < 1000; ++i) database.Run("INSERT INTO Filling VALUES (REPLICATE('y', 4000))");
    _exit(0);
  } catch (const Error& error) {
    _exit(error.Number() == ErrorNumber::DbUnspecified ? 1 : 2);
  }
}

TEST(EmbeddedFaults, FullDiskIsErrorAndKeepsWhatWasSaved) {
  const TestDatabase database(TestDatabase::Content::Empty);
  database.Run("CREATE TABLE Filling (t nvarchar(max)) INSERT INTO Filling VALUES ('saved')");
  EXPECT_EXIT(FillDisk(database), ::testing::ExitedWithCode(1), "");
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM Filling WHERE t = 'saved'"), "1");
}

}  // namespace
}  // namespace quorvel::ado
