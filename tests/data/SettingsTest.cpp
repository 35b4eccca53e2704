#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <fstream>
#include <set>
#include <stdexcept>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include "data/DBConnect.h"
#include "data/modRegistry.h"
#include "platform/Environment.h"
#include "platform/FileUpdate.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvel {
namespace {

const std::string kKey = "Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\Software\\Tarnwick]\n";

class Settings : public testing::Test {
 protected:
  Settings() {
    RedirectWarnings([this](std::string_view message) { m_warnings.emplace_back(message); });
  }
  ~Settings() override { RedirectWarnings({}); }

  void Put(const std::string& lines) const { std::ofstream(m_file) << kKey << lines; }
  [[nodiscard]] std::string Content() const { return ReadWholeFile(m_file).value_or("(none)"); }

  test::TemporaryFolder m_folder;
  std::string m_file = m_folder.File("settings.reg");
  test::ScopedVariable m_variable{"QUORVEL_REGISTRY", m_file};
  std::vector<std::string> m_warnings;
};

TEST_F(Settings, FirstRunCreatesFourEmptyValues) {
  EXPECT_EQ(DBConnect().ConnectionString(), "Provider=SQLOLEDB.1;Data Source=; Initial Catalog=; User ID=; Password=");
  EXPECT_EQ(Content(), kKey + "\"Server\"=\"\"\n\"Database\"=\"\"\n\"UserId\"=\"\"\n\"Password\"=\"\"\n");
  EXPECT_TRUE(m_warnings.empty());
}

TEST_F(Settings, ConnectionStringHoldsTheValuesUnquoted) {
  Put("\"SERVER\"=\"HOST\\\\INST\"\n\"Database\"=\"a;b\"\n\"UserId\"=\"jörg\"\n\"Password\"=\"x'\\\"=; y\"\n");
  const std::string before = Content();
  EXPECT_EQ(DBConnect().ConnectionString(),
            "Provider=SQLOLEDB.1;Data Source=HOST\\INST; Initial Catalog=a;b; User ID=jörg; Password=x'\"=; y");
  EXPECT_EQ(Content(), before);
}

TEST_F(Settings, AreReadOnceUntilReload) {
  Put("\"Server\"=\"one\"\n");
  DBConnect settings;
  EXPECT_EQ(settings.Server(), "one");
  Put("\"Server\"=\"two\"\n\"Database\"=\"new\"\n");
  EXPECT_EQ(settings.Server(), "one");
  EXPECT_EQ(settings.Database(), "");
  settings.Reload();
  EXPECT_EQ(settings.Server(), "two");
  EXPECT_EQ(settings.Database(), "new");
}

TEST_F(Settings, ReplacesOtherTypesWithAWarning) {
  Put("\"Server\"=dword:0000002a\n; kept\n\"Database\"=\"Ledger\"\n\"UserId\"=hex:01,\\\n  02\n\"Password\"=\"p\"\n");
  EXPECT_EQ(DBConnect().ConnectionString(),
            "Provider=SQLOLEDB.1;Data Source=; Initial Catalog=Ledger; User ID=; Password=p");
  EXPECT_THAT(m_warnings,
              testing::ElementsAre("Warning: Converted registry value to string: \r\nSoftware\\Tarnwick\\Server",
                                   "Warning: Converted registry value to string: \r\nSoftware\\Tarnwick\\UserId"));
  EXPECT_THAT(Content(), testing::HasSubstr("; kept\n\"Database\"=\"Ledger\"\n"));
  EXPECT_EQ(DBConnect().Server(), "");
  EXPECT_EQ(m_warnings.size(), 2U) << "repaired for good";

  RedirectWarnings([](std::string_view) { throw std::runtime_error("the log is gone"); });
  Put("\"Server\"=dword:0000002a\n");
  EXPECT_EQ(DBConnect().Server(), "") << "a lost warning is no error";
  RedirectWarnings({});
  LogWarning("to the system's log,\r\nfrom a test");
}

const std::string kFour = "\"Server\"=\"SQL1\"\n\"Database\"=\"Ledger\"\n\"UserId\"=\"app\"\n\"Password\"=\"p\"\n";

TEST_F(Settings, AFileThatIsBeingWrittenIsReadAgain) {
  const std::string whole = kKey + kFour;
  for (const std::size_t length :
       {std::size_t{0}, std::size_t{10}, kKey.size() / 2, kKey.size(), kKey.size() + 12, whole.size() - 8}) {
    std::ofstream(m_file) << whole.substr(0, length);
    const std::jthread writer([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(60));
      std::ofstream(m_file) << whole;
    });
    EXPECT_THAT(DBConnect().ConnectionString(),
                testing::EndsWith("=SQL1; Initial Catalog=Ledger; User ID=app; Password=p"))
        << length;
  }
  EXPECT_EQ(Content(), whole);
  EXPECT_TRUE(m_warnings.empty());
}

TEST_F(Settings, AWriterThatStallsBetweenTwoLinesLosesNoValue) {
  std::ofstream out(m_file);
  out << kKey << kFour.substr(0, kFour.find('\n') + 1) << std::flush;
  const std::jthread writer([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(700));
    out << kFour.substr(kFour.find('\n') + 1);
    out.close();
  });
  EXPECT_THAT(DBConnect().ConnectionString(), testing::EndsWith("; Initial Catalog=Ledger; User ID=app; Password=p"));
  EXPECT_EQ(Content(), kKey + kFour);
}

TEST_F(Settings, AreThoseOfOneMoment) {
  Put(kFour);
  std::jthread writer([](const std::stop_token& stop) {
    const auto key = registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey);
    for (int i = 0; !stop.stop_requested(); ++i) {
      const std::string text = i % 2 == 0 ? "A" : "B";
      EXPECT_FALSE(key->Assign(std::array<registry::Assignment, 4>{
          {{"Server", text}, {"Database", text}, {"UserId", text}, {"Password", text}}}));
    }
  });
  std::set<std::string> found;
  for (int i = 0; i < 300; ++i) found.insert(DBConnect().ConnectionString());
  writer = {};
  for (const std::string& each : found) {
    EXPECT_THAT(each, testing::MatchesRegex(".*Source=(A.*=A.*=A.*=A|B.*=B.*=B.*=B|SQL1.*=p)")) << each;
  }
}

TEST_F(Settings, WrongLinesAreReportedAndStay) {
  Put("Server=SQL1\n\"Database\"=\"old\"\n\"Database\"=\"new\"\n");
  const std::string before = Content();
  EXPECT_EQ(test::Caught([] { DBConnect().Reload(); }).Number(), 110);
  EXPECT_EQ(Content(), before);
  EXPECT_THAT(m_warnings, testing::ElementsAre(testing::HasSubstr("Could not read or create"),
                                               testing::HasSubstr("Line 4 has no value"),
                                               testing::HasSubstr("Line 6 sets \"Database\" once more")));

  m_warnings.clear();
  std::ofstream(m_file) << kKey.substr(0, kKey.size() - 2) << "\n\"Server\"=\"SQL1\"\n";
  EXPECT_EQ(test::Caught([] { DBConnect().Reload(); }).Number(), 110);
  EXPECT_THAT(m_warnings, testing::ElementsAre(testing::HasSubstr(": the file has a line that cannot be read"),
                                               testing::HasSubstr("Line 3 names a key without a closing bracket")));
}

/// Eight processes load for the first time while four set one value each. The exit status of each process is 0.
TEST_F(Settings, FirstLoadsLoseNoValueThatIsSetMeanwhile) {
  const auto run = [](const auto& action) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(action() ? 0 : 1);
    return child;
  };
  std::vector<pid_t> children;
  for (std::size_t i = 0; i < 8; ++i) {
    children.push_back(run([] { return DBConnect().ConnectionString().starts_with("Provider"); }));
    if (i % 2 != 0) continue;
    children.push_back(run([i] {
      const auto key = registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey);
      return key && key->SetString(std::array{"Server", "Database", "UserId", "Password"}.at(i / 2), "set");
    }));
  }
  for (const pid_t child : children) {
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  EXPECT_THAT(DBConnect().ConnectionString(),
              testing::EndsWith("=set; Initial Catalog=set; User ID=set; Password=set"));
}

TEST_F(Settings, UnwritableStoreIsError110AndIsReadAgain) {
  Put("\"Server\"=\"SQL1\"\n");
  DBConnect settings;
  // The system opens the second one and cannot read it.
  for (const std::string& place : {m_file + "/below.reg", std::string("/proc/self/mem")}) {
    const test::ScopedVariable elsewhere("QUORVEL_REGISTRY", place);
    EXPECT_THAT(test::Caught([&] { settings.Reload(); }),
                test::IsError(110, "GetRegStringValue",
                              "Could not read or create registry string value: Software\\Tarnwick\\Server"));
  }
  EXPECT_EQ(settings.Server(), "SQL1");
}

// With no spare descriptor nothing can be read; with one, the store can be read and not written.
TEST_F(Settings, AHostAtItsDescriptorLimitErasesNothingAndWritesNoDefault) {
#ifdef QUORVEL_SANITIZED
  GTEST_SKIP() << "the sanitizers need descriptors of their own: tested in the release build only";
#endif
  Put("\"Server\"=\"SQL1\"\n");
  const std::string before = Content();
  rlimit usual{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &usual), 0);
  for (rlim_t spare = 0; spare < 2; ++spare) {
    const int next = ::dup(STDIN_FILENO);
    ::close(next);
    const rlimit few{static_cast<rlim_t>(next) + spare, usual.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    const Error error = test::Caught([] { DBConnect().Reload(); });
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &usual), 0);
    EXPECT_EQ(error.Number(), 110) << spare;
    EXPECT_THAT(m_warnings, testing::Contains(testing::HasSubstr("Too many open files"))) << spare;
    m_warnings.clear();
    EXPECT_EQ(Content(), before) << spare;
  }
}

}  // namespace
}  // namespace quorvel
