// A host works while the calls of the system fail, each in turn.

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <string>
#include <thread>

#include "data/modRegistry.h"
#include "tests/faults/HostAtWork.h"
#include "tests/faults/SystemCalls.h"

namespace quorvel::test {
namespace {

using Fault = FailingSystemCall::Fault;

class SystemFaults : public testing::TestWithParam<Fault> {
 protected:
  const ScopedVariable m_inMemory{"TMPDIR", "/dev/shm"};
};
INSTANTIATE_TEST_SUITE_P(Of, SystemFaults, testing::Values(Fault::Once, Fault::DiskFull),
                         [](const auto& fault) { return fault.param == Fault::Once ? "OneCall" : "AFullDisk"; });

TEST_P(SystemFaults, SaveThatIsTriedAgainWritesEverythingOnce) {
  PromptsGuard prompts;
  int call = 1;
  for (std::string failed = "none yet"; !failed.empty(); ++call) {
    prompts->answers.assign(2, PromptAnswer::Yes);
    const TestDatabase database;
    {
      const FailingSystemCall failing(GetParam(), call);
      // A new thread opens a connection of its own.
      std::thread([] { LoadChangeAndSave(FailingSystemCall::Disarm); }).join();
      failed = FailingSystemCall::Failed();
    }
    SCOPED_TRACE(std::to_string(call) + " " + failed);
    ExpectEverythingOnce(database);
    if (HasFailure()) return;
  }
  EXPECT_GT(call, 20);
}

TEST_P(SystemFaults, SettingsAreWrittenAllOrNone) {
  constexpr auto kHive = registry::Hive::LocalMachine;
  const TemporaryFolder folder;
  const ScopedVariable variable("QUORVEL_REGISTRY", folder.File("settings.reg"));
  const auto valuesOf = [](const std::string& text) {
    return std::array{registry::Assignment{"Server", text}, registry::Assignment{"Password", text}};
  };
  int call = 1;
  for (std::string failed = "none yet"; !failed.empty(); ++call) {
    const auto key = registry::Key::Create(kHive, modRegistry::kSettingsKey);
    ASSERT_FALSE(key->Assign(valuesOf("old")));
    std::error_code failure;
    {
      const FailingSystemCall failing(GetParam(), call);
      failure = key->Assign(valuesOf("new"));
      failed = FailingSystemCall::Failed();
    }
    SCOPED_TRACE(std::to_string(call) + " " + failed);
    for (const char* name : {"Server", "Password"}) EXPECT_EQ(key->Query(name)->text, failure ? "old" : "new");
    const std::filesystem::directory_iterator files(folder.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "no copy of the password is left";
  }
  EXPECT_GT(call, 3);
}

}  // namespace
}  // namespace quorvel::test
