#include "platform/RegistryKey.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <thread>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace quorvel::registry {
namespace {

namespace fs = std::filesystem;
constexpr const char* kPath = "Software\\Tarnwick";
constexpr const char* kHeader = "Windows Registry Editor Version 5.00\n";

std::string ContentOf(const std::string& file) {
  std::ostringstream content;
  content << std::ifstream(file).rdbuf();
  return content.str();
}

void Put(const std::string& file, const std::string& content) { std::ofstream(file) << content; }

unsigned ModeOf(const std::string& file) {
  struct stat status {};
  return ::stat(file.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

std::optional<Key> OpenKey() { return Key::Create(Hive::LocalMachine, kPath); }

class RegistryKey : public testing::Test {
 protected:
  test::TemporaryFolder m_folder;
  std::string m_file = m_folder.File("made/on/demand.reg");
  test::ScopedVariable m_variable{"QUORVEL_REGISTRY", m_file};
};

TEST_F(RegistryKey, MakesFolderFileAndKeyForOwnerAndGroupOnly) {
  const auto key = OpenKey();
  ASSERT_TRUE(key);
  EXPECT_EQ(ContentOf(m_file), std::string(kHeader) + "\n[HKEY_LOCAL_MACHINE\\Software\\Tarnwick]\n");
  EXPECT_EQ(ModeOf(m_file), 0640U);
  EXPECT_FALSE(key->Query("Server"));
  ASSERT_TRUE(key->SetString("Server", "SQL1"));
  ASSERT_TRUE(key->Delete("Missing"));
  EXPECT_EQ(OpenKey()->Query("SERVER")->text, "SQL1");

  ASSERT_EQ(::chmod(m_file.c_str(), 0600), 0);
  ASSERT_TRUE(key->SetString("Password", "x"));
  EXPECT_EQ(ModeOf(m_file), 0600U) << "an administrator's tighter mode is kept";
  ASSERT_EQ(::chmod(m_file.c_str(), 0644), 0);
  ASSERT_TRUE(key->Delete("Server"));
  EXPECT_EQ(ModeOf(m_file), 0640U);
  EXPECT_EQ(std::distance(fs::directory_iterator(fs::path(m_file).parent_path()), {}), 1) << "no litter";
}

TEST_F(RegistryKey, WritesNothingWhenNothingChanges) {
  ASSERT_TRUE(OpenKey()->SetString("Server", "SQL1"));
  struct stat before {};
  ASSERT_EQ(::stat(m_file.c_str(), &before), 0);
  ASSERT_TRUE(OpenKey()->SetString("Server", "SQL1"));
  ASSERT_TRUE(OpenKey()->Delete("Missing"));
  struct stat after {};
  ASSERT_EQ(::stat(m_file.c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
}

TEST_F(RegistryKey, ASymbolicLinkStaysAndItsFileChanges) {
  fs::create_directories(fs::path(m_file).parent_path());
  const std::string real = m_folder.File("real.reg");
  Put(real, kHeader);
  fs::create_symlink(real, m_file);
  ASSERT_TRUE(OpenKey()->SetString("Server", "SQL1"));
  EXPECT_TRUE(fs::is_symlink(m_file));
  EXPECT_NE(ContentOf(real).find("SQL1"), std::string::npos);
}

TEST_F(RegistryKey, WhatAKilledWriterLeftDoesNotStopTheNextOne) {
  ASSERT_TRUE(OpenKey());
  const fs::path left = fs::path(m_file).parent_path() / ".demand.reg.new";
  Put(left.string(), "half a fi");
  ASSERT_TRUE(OpenKey()->SetString("Server", "SQL1"));
  EXPECT_FALSE(fs::exists(left));
  EXPECT_EQ(OpenKey()->Query("Server")->text, "SQL1");
}

TEST_F(RegistryKey, NoKeyWhereNoStoreCanBe) {
  const std::string foreign = m_folder.File("hosts");
  Put(foreign, "127.0.0.1 localhost\n");
  const std::string pipe = m_folder.File("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  for (const std::string& place : {foreign, foreign + "/below.reg", pipe, m_folder.Path().string(),
                                   std::string("/proc/quorvel.reg"), std::string("/proc/quorvel/quorvel.reg")}) {
    const test::ScopedVariable variable("QUORVEL_REGISTRY", place);
    EXPECT_FALSE(OpenKey()) << place;
  }
  EXPECT_EQ(ContentOf(foreign), "127.0.0.1 localhost\n");
}

TEST_F(RegistryKey, AStoreThatFailsLaterSaysSoAndKeepsWhatItHeld) {
  const auto key = OpenKey();
  ASSERT_TRUE(key->SetString("Server", "SQL1"));
  const std::string before = ContentOf(m_file);
  // A folder where the temporary file should be cannot be removed as a file, so no writing can begin.
  fs::create_directory(fs::path(m_file).parent_path() / ".demand.reg.new");
  EXPECT_FALSE(key->SetString("Server", "SQL2"));
  EXPECT_FALSE(key->Delete("Server"));
  EXPECT_EQ(ContentOf(m_file), before);
  Put(m_file, "spoilt");
  EXPECT_FALSE(key->Query("Server"));
  EXPECT_FALSE(key->SetString("Server", "SQL2"));
}

TEST_F(RegistryKey, WritersInOtherProcessesAndThreadsLoseNothing) {
  constexpr int kWriters = 6;
  constexpr int kValues = 8;
  const auto write = [](const std::string& writer) {
    bool done = true;
    for (int i = 0; i < kValues; ++i) {
      const auto key = OpenKey();
      done = key && key->SetString(writer + std::to_string(i), writer) && done;
    }
    return done;
  };
  std::vector<pid_t> children;
  for (int p = 0; p < kWriters; ++p) {
    children.push_back(::fork());
    if (children.back() == 0) ::_exit(write("process" + std::to_string(p) + "-") ? 0 : 1);
  }
  std::vector<std::jthread> threads;
  threads.reserve(2);
  for (int t = 0; t < 2; ++t) {
    threads.emplace_back([&write, t] { EXPECT_TRUE(write("thread" + std::to_string(t) + "-")); });
  }
  threads.clear();
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  const std::string content = ContentOf(m_file);
  EXPECT_EQ(content.find("[HKEY"), content.rfind("[HKEY")) << "the key stands once";
  EXPECT_EQ(std::ranges::count(content, '='), (kWriters + 2) * kValues);
}

}  // namespace
}  // namespace quorvel::registry
