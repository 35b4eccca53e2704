#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <vector>

#include "data/DBConnect.h"
#include "data/modRegistry.h"
#include "platform/Environment.h"
#include "platform/Error.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvel {
namespace {

using registry::Hive;

/// Keeps the warnings of one test.
class Warnings {
 public:
  Warnings() {
    RedirectWarnings([this](std::string_view message) { texts.emplace_back(message); });
  }
  ~Warnings() { RedirectWarnings({}); }
  Warnings(const Warnings&) = delete;
  Warnings& operator=(const Warnings&) = delete;

  std::vector<std::string> texts;
};

class Settings : public testing::Test {
 protected:
  void Put(const std::string& lines) const {
    std::ofstream(m_file) << "Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\Software\\Tarnwick]\n"
                          << lines;
  }
  [[nodiscard]] std::string Content() const {
    std::ostringstream content;
    content << std::ifstream(m_file).rdbuf();
    return content.str();
  }

  test::TemporaryFolder m_folder;
  std::string m_file = m_folder.File("settings.reg");
  test::ScopedVariable m_variable{"QUORVEL_REGISTRY", m_file};
  Warnings m_warnings;
};

constexpr const char* kFourEmptyValues =
    "Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE\\Software\\Tarnwick]\n"
    "\"Server\"=\"\"\n\"Database\"=\"\"\n\"UserId\"=\"\"\n\"Password\"=\"\"\n";

TEST_F(Settings, TheFirstRunMakesFourEmptyValues) {
  EXPECT_EQ(DBConnect().ConnectionString(), "Provider=SQLOLEDB.1;Data Source=; Initial Catalog=; User ID=; Password=");
  EXPECT_EQ(Content(), kFourEmptyValues);
  EXPECT_TRUE(m_warnings.texts.empty());
}

TEST_F(Settings, FirstRunsInManyProcessesAgree) {
  std::vector<pid_t> children;
  for (int i = 0; i < 8; ++i) {
    children.push_back(::fork());
    if (children.back() == 0) ::_exit(DBConnect().Server().empty() ? 0 : 1);
  }
  for (const pid_t child : children) {
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  for (const char* value : {"[HKEY", "\"Server\"=\"\"\n", "\"Database\"=", "\"UserId\"=", "\"Password\"="}) {
    const std::string content = Content();
    ASSERT_NE(content.find(value), std::string::npos) << value;
    EXPECT_EQ(content.find(value), content.rfind(value)) << value;
  }
}

TEST_F(Settings, ValuesGoIntoTheConnectionStringAsTheyAre) {
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
  EXPECT_EQ(settings.ConnectionString(), "Provider=SQLOLEDB.1;Data Source=one; Initial Catalog=; User ID=; Password=");
  settings.Reload();
  EXPECT_EQ(settings.Server(), "two");
  EXPECT_EQ(settings.Database(), "new");
}

TEST_F(Settings, AValueThatIsNoStringIsReplacedWithAWarning) {
  Put("\"Server\"=dword:0000002a\n; kept\n\"Database\"=\"Ledger\"\n\"UserId\"=hex:01,\\\n  02\n\"Password\"=\"p\"\n");
  EXPECT_EQ(DBConnect().ConnectionString(),
            "Provider=SQLOLEDB.1;Data Source=; Initial Catalog=Ledger; User ID=; Password=p");
  EXPECT_THAT(m_warnings.texts,
              testing::ElementsAre("Warning: Converted registry value to string: \r\nSoftware\\Tarnwick\\Server",
                                   "Warning: Converted registry value to string: \r\nSoftware\\Tarnwick\\UserId"));
  EXPECT_THAT(Content(), testing::HasSubstr("; kept\n\"Database\"=\"Ledger\"\n"));
  EXPECT_EQ(DBConnect().Server(), "");
  EXPECT_EQ(m_warnings.texts.size(), 2U) << "repaired for good";
}

TEST_F(Settings, AStoreThatCannotBeWrittenIsError110AndNothingCountsAsLoaded) {
  Put("\"Server\"=\"SQL1\"\n");
  DBConnect settings;
  {
    const test::ScopedVariable below("QUORVEL_REGISTRY", m_file + "/below.reg");
    try {
      settings.Reload();
      ADD_FAILURE() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), 110);
      EXPECT_EQ(error.Source(), "GetRegStringValue");
      EXPECT_EQ(error.Description(), "Could not read or create registry string value: Software\\Tarnwick\\Server");
    }
  }
  EXPECT_EQ(settings.Server(), "SQL1");
}

TEST_F(Settings, ADefaultIsWrittenOnceAndThenRead) {
  const auto read = [](const char* fallback) {
    return modRegistry::GetRegStringValue(Hive::LocalMachine, "Software\\Other\\Deep", "Name", fallback);
  };
  EXPECT_EQ(read("line\nbreak"), "line\nbreak");
  EXPECT_EQ(read("another"), "line\nbreak");
}

}  // namespace
}  // namespace quorvel
