// The store in a text file: access rights, failed and concurrent writes. RegistryExportTest covers the format.

#include "platform/RegistryKey.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "platform/FileUpdate.h"
#include "platform/posix/NewFile.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvel::registry {
namespace {

namespace fs = std::filesystem;
constexpr const char* kPath = "Software\\Tarnwick";
constexpr const char* kHeader = "Windows Registry Editor Version 5.00\n";

std::string ContentOf(const std::string& file) { return ReadWholeFile(file).value_or("(none)"); }

void Put(const std::string& file, const std::string& content) { std::ofstream(file) << content; }

fs::perms ModeOf(const std::string& file) { return fs::status(file).permissions(); }

std::optional<Key> OpenKey() { return Key::Create(Hive::LocalMachine, kPath); }

class RegistryKey : public testing::Test {
 protected:
  test::TemporaryFolder m_folder;
  std::string m_file = m_folder.File("made/on/demand.reg");
  test::ScopedVariable m_variable{"QUORVEL_REGISTRY", m_file};
};

TEST_F(RegistryKey, CreatesFolderFileAndKeyForOwnerAndGroupOnly) {
  const auto key = OpenKey();
  ASSERT_TRUE(key);
  EXPECT_EQ(ContentOf(m_file), std::string(kHeader) + "\n[HKEY_LOCAL_MACHINE\\Software\\Tarnwick]\n");
  EXPECT_EQ(ModeOf(m_file), fs::perms{0640});
  EXPECT_FALSE(key->Query("Server"));
  ASSERT_TRUE(key->SetString("Server", "SQL1"));
  EXPECT_EQ(OpenKey()->Query("SERVER")->text, "SQL1");

  const std::string before = m_folder.File("before");
  fs::create_hard_link(m_file, before);
  ASSERT_TRUE(key->SetString("Server", "SQL1"));
  EXPECT_TRUE(fs::equivalent(m_file, before)) << "an unchanged file is not written";

  fs::permissions(m_file, fs::perms{0600});
  ASSERT_TRUE(key->SetString("Password", "x"));
  EXPECT_EQ(ModeOf(m_file), fs::perms{0600}) << "an administrator's narrower mode is kept";
  fs::permissions(m_file, fs::perms{0644});
  ASSERT_TRUE(key->SetString("Server", "SQL2"));
  EXPECT_EQ(ModeOf(m_file), fs::perms{0640});

  fs::remove(m_file);
  const mode_t usual = ::umask(077);
  EXPECT_TRUE(OpenKey());
  ::umask(usual);
  EXPECT_EQ(ModeOf(m_file), fs::perms{0600}) << "a stricter umask is respected";
}

TEST_F(RegistryKey, KeepsASymbolicLinkAndChangesItsFile) {
  fs::create_directories(fs::path(m_file).parent_path());
  const std::string real = m_folder.File("real.reg");
  fs::create_symlink("../../real.reg", m_file);
  for (const char* server : {"into a new file", "into the same file"}) {
    ASSERT_TRUE(OpenKey()->SetString("Server", server));
    EXPECT_TRUE(fs::is_symlink(m_file));
    EXPECT_NE(ContentOf(real).find(server), std::string::npos);
  }
}

TEST_F(RegistryKey, RefusesPlacesThatCannotHoldAStore) {
  const std::string foreign = m_folder.File("hosts");
  Put(foreign, "127.0.0.1 localhost\n");
  const std::string pipe = m_folder.File("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& place :
       {foreign, foreign + "/below.reg", pipe, m_folder.Path().string(), std::string("/proc/quorvel/quorvel.reg")}) {
    const test::ScopedVariable variable("QUORVEL_REGISTRY", place);
    EXPECT_FALSE(OpenKey()) << place;
  }
  EXPECT_EQ(ContentOf(foreign), "127.0.0.1 localhost\n");
}

TEST_F(RegistryKey, FailedWritesKeepTheFile) {
  const auto key = OpenKey();
  const fs::path temporary = fs::path(m_file).parent_path() / ".demand.reg.new";
  {
    Put(temporary.string(), "being written");
    const Descriptor writer(::open(m_file.c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_EQ(::flock(writer.Get(), LOCK_EX), 0);
    const Assignment value{"Server", "SQL1"};
    const std::error_code failure = key->Assign({&value, 1});
    EXPECT_EQ(failure, std::errc::device_or_resource_busy);
    EXPECT_EQ(Explain(failure), "another program keeps the file locked or open for writing");
    EXPECT_FALSE(key->Query("Server"));
    EXPECT_TRUE(fs::exists(temporary)) << "a writer is at work";
  }
  EXPECT_FALSE(key->Query("Server"));
  EXPECT_FALSE(fs::exists(temporary)) << "its writer is gone";
  Put(temporary.string(), "left by a killed writer");
  ASSERT_TRUE(key->SetString("Server", "SQL1"));
  EXPECT_FALSE(fs::exists(temporary));

  const std::string before = ContentOf(m_file);
  // A folder cannot be removed as a file, so no temporary file can be created.
  fs::create_directory(temporary);
  EXPECT_FALSE(key->SetString("Server", "SQL2"));
  EXPECT_EQ(ContentOf(m_file), before);
  Put(m_file, "spoilt");
  EXPECT_FALSE(key->Query("Server"));
  EXPECT_FALSE(key->SetString("Server", "SQL2"));
}

/// Writes eight values and opens the key for each of them.
bool WriteValues(const std::string& writer) {
  bool done = true;
  for (int i = 0; i < 8; ++i) {
    const auto key = OpenKey();
    done = key && key->SetString(writer + std::to_string(i), writer) && done;
  }
  return done;
}

TEST_F(RegistryKey, WritersInOtherProcessesAndThreadsLoseNothing) {
  std::vector<pid_t> children;
  for (const char* writer : {"a", "b", "c", "d"}) {
    children.push_back(::fork());
    if (children.back() == 0) ::_exit(WriteValues(writer) ? 0 : 1);
  }
  std::jthread thread([] { EXPECT_TRUE(WriteValues("thread")); });
  EXPECT_TRUE(WriteValues("parent"));
  thread.join();
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  const std::string content = ContentOf(m_file);
  EXPECT_EQ(content.find("[HKEY"), content.rfind("[HKEY")) << "the key occurs once";
  EXPECT_EQ(std::ranges::count(content, '='), 6 * 8);
}

// Its caller could otherwise lead it to a database of his own.
TEST_F(RegistryKey, AProgramWithChangedIdentityDoesNotObeyTheVariable) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can give a program another identity: nothing was tested";
  const std::string program = m_folder.File("program");
  fs::copy_file(STORE_LOCATION, program);
  constexpr uid_t kOther = 65534;
  ASSERT_EQ(::chown(program.c_str(), kOther, kOther), 0);
  ASSERT_EQ(::chmod(program.c_str(), S_ISUID | S_IRUSR | S_IXUSR), 0);
  std::FILE* output = ::popen(program.c_str(), "r");  // NOLINT(cert-env33-c): the name is the test's own
  ASSERT_NE(output, nullptr);
  std::array<char, 256> place{};
  EXPECT_NE(std::fgets(place.data(), place.size(), output), nullptr);
  if (::pclose(output) != 0) GTEST_SKIP() << "the system gives no other identity here: nothing was tested";
  EXPECT_STREQ(place.data(), "/etc/quorvel/quorvel.reg\n");
}

}  // namespace
}  // namespace quorvel::registry
