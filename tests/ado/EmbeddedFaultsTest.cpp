// Faults of the outside: files that are no databases, files that are replaced, other writers, a broken or full disk.

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
#include <utility>

#include "ado/embedded/EmbeddedEngine.h"
#include "platform/AtScopeEnd.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
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

using namespace test;

std::string ConnectionStringOf(const std::string& file) { return "Data Source=(embedded);Initial Catalog=" + file; }

/// A database with an empty table.
class EmbeddedFaults : public testing::Test {
 protected:
  EmbeddedFaults() { m_database.Run("CREATE TABLE Note (t nvarchar(max))"); }
  /// Other software gives the file another name, and later its own again.
  void MoveAway() const { std::filesystem::rename(m_file, m_file + ".old"); }
  void MoveBack() const { std::filesystem::rename(m_file + ".old", m_file); }
  static void ExpectReplaced(Connection& connection, const std::string& batch, const std::string& file) {
    EXPECT_THAT(FailureOf(connection, batch).Description(), HasSubstr(file + " was deleted or replaced")) << batch;
    EXPECT_EQ(connection.Errors().at(0).sqlState, "08S01") << batch;
  }

  const TestDatabase m_database{TestDatabase::Content::Empty};
  const std::string m_file = m_database.DatabaseFile();
  const std::string m_insert = "INSERT INTO Note VALUES ('lost') ";
};

TEST(EmbeddedFiles, FileThatCannotBeDatabaseIsNamed) {
  const TemporaryFolder folder;
  const std::string text = folder.File("letter.txt");
  std::ofstream(text) << std::string(5000, 'x');
  const std::vector<std::pair<std::string, std::string>> table = {
      {"", "No database file is set"},         {folder.File("none.db"), folder.File("none.db") + " does not exist"},
      {folder.Path().string(), "is a folder"}, {text, "is not a database"},
      {text + "/below.db", "does not exist"},
  };
  for (const auto& [file, description] : table) {
    Connection connection;
    connection.SetConnectionString(ConnectionStringOf(file));
    EXPECT_THAT(Caught([&] { connection.Open(); }), IsError(ErrorNumber::DbUnspecified, HasSubstr(description)))
        << file;
    EXPECT_FALSE(connection.IsOpen()) << file;
    EXPECT_EQ(connection.Errors().size(), 1U) << file;
  }
  EXPECT_THROW(CreateEmbeddedDatabase(text + "/below.db"), Error);
}

TEST(EmbeddedFiles, OnlyOwnerAndGroupCanOpenANewDatabase) {
  const TemporaryFolder folder;
  const auto modeOf = [](const std::string& file) { return std::filesystem::status(file).permissions(); };
  for (const auto& [stricter, expected] : {std::pair<mode_t, int>{022, 0640}, {0, 0660}, {077, 0600}}) {
    const std::string file = folder.File(std::to_string(stricter));
    const mode_t usual = ::umask(stricter);
    CreateEmbeddedDatabase(file);
    const auto connection = ConnectBy(ConnectionStringOf(file));
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
TEST(EmbeddedFiles, LogGetsTheGroupOfTheFile) {
  if (::geteuid() != 0) GTEST_SKIP() << "needs another user";
  constexpr gid_t kShared = 3000;
  constexpr id_t kUser = 4001;
  const TemporaryFolder folder;
  const std::string file = folder.File("shared.db");
  CreateEmbeddedDatabase(file);
  for (const std::string& each : {file, folder.Path().string()}) {
    ASSERT_EQ(::chown(each.c_str(), 0, kShared), 0);
    std::filesystem::permissions(each, std::filesystem::perms{0770});
  }
  std::shared_ptr<Connection> first;
  std::shared_ptr<Connection> second;
  {
    const AtScopeEnd back([] { EXPECT_EQ(::seteuid(0) + ::setegid(0) + ::setgroups(0, nullptr), 0); });
    ASSERT_EQ(::setgroups(1, &kShared) + ::setegid(kUser) + ::seteuid(kUser), 0);
    first = ConnectBy(ConnectionStringOf(file));
    const auto giveLogTo = [&](gid_t group) {
      ASSERT_EQ(::seteuid(0), 0);
      ASSERT_EQ(::chown((file + "-wal").c_str(), kUser, group), 0);
      ASSERT_EQ(::setegid(kUser + 1), 0);
      ASSERT_EQ(::seteuid(kUser + 1), 0);
    };
    // The second user comes before the first one has given the log its group.
    giveLogTo(kUser);
    whileSleeping = [&] { giveLogTo(kShared); };
    second = ConnectBy(ConnectionStringOf(file));
  }
  for (const char* part : {"-wal", "-shm"}) {
    struct stat status {};
    ASSERT_EQ(::stat((file + part).c_str(), &status), 0) << part;
    EXPECT_EQ(status.st_uid, kUser) << part;
    EXPECT_EQ(status.st_gid, kShared) << part;
  }
}

// The byte says which version of the file's format is needed to write to it, so the file is read-only for root too.
TEST(EmbeddedFiles, ReadOnlyFileCanBeReadAndRefusesWrites) {
  constexpr std::streamoff kWriteVersion = 18;
  const TestDatabase database(TestDatabase::Content::Schema);
  std::fstream(database.DatabaseFile()).seekp(kWriteVersion).put('\x03');
  const auto connection = database.Connect();
  EXPECT_THAT(FailureOf(*connection, "INSERT INTO ttwRight (RightID) VALUES ('new')"),
              IsError(ErrorNumber::DbUnspecified, HasSubstr("is read-only here and did not take this change")));
  EXPECT_THAT(RowsOf(*connection, "SELECT COUNT(*) AS n FROM ttwRight"), ElementsAre("0"));
}

// An open file can be deleted or replaced by another one on POSIX. SQLite then writes to the one that has no name any
// more.
TEST_F(EmbeddedFaults, DeletedOrReplacedFileTakesNoWrite) {
  m_database.Run("INSERT INTO Note VALUES ('kept')");
  const auto writer = m_database.Connect();
  const auto committer = m_database.Connect();
  const auto reader = m_database.Connect();
  committer->Execute("BEGIN TRANSACTION " + m_insert);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  EXPECT_THAT(RowsOf(*reader, "SELECT t FROM Note"), ElementsAre("kept"));

  MoveAway();
  for (const auto& [connection, batch] :
       {std::pair{writer, m_insert}, {writer, "SELECT t FROM Note"}, {committer, "COMMIT"}, {writer, m_insert}}) {
    ExpectReplaced(*connection, batch, m_file);
    if (!std::filesystem::exists(m_file)) std::ofstream(m_file) << "another file";
  }
  const auto reads = [&] {
    try {
      return !RowsOf(*reader, "SELECT t FROM Note").empty();
    } catch (const Error&) {
      return false;
    }
  };
  while (reads()) ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "a reader never sees the new file";
  ExpectReplaced(*reader, m_insert, m_file);
  MoveBack();
  EXPECT_THAT(RowsOf(*writer, "SELECT t FROM Note"), ElementsAre("kept"));
}

TEST_F(EmbeddedFaults, FileReplacedWhileAWriterWaitsTakesNoWrite) {
  for (const std::string& batch : {m_insert, "BEGIN TRANSACTION " + m_insert + "COMMIT"}) {
    const auto first = m_database.Connect();
    const auto second = m_database.Connect();
    first->Execute("BEGIN TRANSACTION");
    const PromptsGuard prompts;
    auto waiting = std::async(std::launch::async, [&] { ExpectReplaced(*second, batch, m_file); });
    while (prompts->drawings == 0)
      ASSERT_EQ(waiting.wait_for(std::chrono::milliseconds(1)), std::future_status::timeout);
    MoveAway();
    ExpectReplaced(*first, "COMMIT", m_file);
    waiting.get();
    MoveBack();
  }
}

// A commit in a batch of its own changes nothing that SQLite counts.
TEST_F(EmbeddedFaults, FileReplacedWhileTheDiskWritesIsNoSuccess) {
  for (const auto& [before, batch] : {std::pair<std::string, std::string>{"SELECT t FROM Note", m_insert},
                                      {"BEGIN TRANSACTION " + m_insert, "COMMIT"}}) {
    const auto writer = m_database.Connect();
    writer->Execute(before);
    whileSyncing = [this] { MoveAway(); };
    ExpectReplaced(*writer, batch, m_file);
    MoveBack();
  }
}

TEST_F(EmbeddedFaults, LinkThatLeadsToAnotherFileTakesNoWrite) {
  const TemporaryFolder folder;
  const std::string link = folder.File("link.db");
  std::filesystem::create_symlink(m_file, link);
  const auto connection = ConnectBy(ConnectionStringOf(link));
  std::filesystem::remove(link);
  std::filesystem::create_symlink(TestDatabase(TestDatabase::Content::Empty).DatabaseFile(), link);
  ExpectReplaced(*connection, m_insert, link);
}

// The disk fails after the commit was written, before it is known to be there.
TEST_F(EmbeddedFaults, FailedCommitOfUnknownOutcomeSaysSo) {
  failsToSync = true;
  const Error error = FailureOf(*m_database.Connect(), m_insert);
  failsToSync = false;
  const auto saysSo = AllOf(HasSubstr(m_file), EndsWith("It is not known whether the last change was stored."));
  EXPECT_THAT(error, IsError(ErrorNumber::DbUnspecified, saysSo));
}

// A log without a name is gone, with all that was written to it, when the program is killed.
TEST_F(EmbeddedFaults, DeletedFileBesideTheDatabaseTakesNoWrite) {
  for (const char* beside : {"-wal", "-shm"}) {
    const TestDatabase database(TestDatabase::Content::Empty);
    const auto writer = database.Connect();
    const std::string file = database.DatabaseFile() + beside;
    std::filesystem::remove(file);
    ExpectReplaced(*writer, "CREATE TABLE Other (t nvarchar(max))", file);
    EXPECT_TRUE(writer->IsLost());
  }
}

// Transactions that read before they write must wait for each other. SQLite by itself refuses the write of a reader
// when another connection has written since it began.
TEST_F(EmbeddedFaults, WritersWaitFromTheirFirstReadUpToCommandTimeout) {
  m_database.Run("CREATE TABLE Counter (n int NOT NULL) INSERT INTO Counter VALUES (0)");
  m_database.Run(
      "CREATE PROCEDURE spCount AS DECLARE @n int BEGIN TRANSACTION "
      "SELECT @n = n FROM Counter UPDATE Counter SET n = @n + 1 COMMIT");
  const auto first = m_database.Connect();
  const auto second = m_database.Connect();
  EXPECT_THAT(RowsOf(*first, "BEGIN TRANSACTION SELECT n FROM Counter"), ElementsAre("0"));
  EXPECT_THAT(RowsOf(*second, "SELECT n FROM Counter"), ElementsAre("0")) << "readers do not wait";
  second->SetCommandTimeout(std::chrono::seconds(1));
  // A batch that defines a procedure reads and writes, too.
  for (const char* batch : {"EXEC spCount", "ALTER PROCEDURE spCount AS SELECT 1 AS n"}) {
    const PromptsGuard prompts;
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
  EXPECT_EQ(m_database.Ask("SELECT n FROM Counter"), "2");
}

/// Writes until the database refuses, then ends the program: with 1 when the error has the right number. A limit on the
/// size of files takes the place of a full disk: the system refuses the write in the same way.
[[noreturn]] void FillDisk(const TestDatabase& database) {
  std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{400'000, 400'000};
  setrlimit(RLIMIT_FSIZE, &limit);
  try {
    for (int i = 0; i < 1000; ++i) database.Run("INSERT INTO Note VALUES (REPLICATE('y', 4000))");
    _exit(0);
  } catch (const Error& error) {
    _exit(error.Number() == ErrorNumber::DbUnspecified ? 1 : 2);
  }
}

TEST_F(EmbeddedFaults, FullDiskIsErrorAndKeepsWhatWasSaved) {
  m_database.Run("INSERT INTO Note VALUES ('saved')");
  EXPECT_EXIT(FillDisk(m_database), testing::ExitedWithCode(1), "");
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM Note WHERE t = 'saved'"), "1");
}

}  // namespace
}  // namespace quorvel::ado
