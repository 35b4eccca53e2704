// A host works while the calls of the system fail, each in turn. It tries a step again that failed, as a user does:
// then everything is stored, and nothing twice.

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include "data/modRegistry.h"
#include "tests/faults/SystemCalls.h"
#include "tests/runtime/RuntimeTest.h"

namespace quorvel::test {
namespace {

using Fault = FailingSystemCall::Fault;

class SystemFaults : public testing::TestWithParam<Fault> {
 protected:
  const ScopedVariable m_inMemory{"TMPDIR", "/dev/shm"};
};
INSTANTIATE_TEST_SUITE_P(Of, SystemFaults, testing::Values(Fault::Once, Fault::DiskFull),
                         [](const auto& fault) { return fault.param == Fault::Once ? "OneCall" : "AFullDisk"; });

/// Does the step, and again without faults when it fails.
void Insist(const std::function<void()>& step) {
  try {
    step();
  } catch (const Error& error) {
    FailingSystemCall::Disarm();
    EXPECT_NE(error.Description(), "");
    step();
  }
}

void LoadChangeAndSave() {
  const ContextHolder context;
  Insist([&] { context->Load("CustMaint", "C1044", "admin"); });
  RemarkAt(context, 1).SetMemoText("changed");
  RemarkAt(context, 1).SetDirty(true);
  context->RemarkList()->Remove(std::int64_t{2});
  context->AddRemark("Cust.General", "added", "admin");
  Insist([&] { context->Save(true); });
  EXPECT_FALSE(context->RemarkList()->Dirty());
}

TEST_P(SystemFaults, SaveThatIsTriedAgainWritesEverythingOnce) {
  PromptsGuard prompts;
  int call = 1;
  for (std::string failed = "none yet"; !failed.empty(); ++call) {
    prompts->answers.assign(2, PromptAnswer::Yes);
    const TestDatabase database;
    {
      const FailingSystemCall failing(GetParam(), call);
      // A new thread opens a connection of its own.
      std::thread(LoadChangeAndSave).join();
      failed = FailingSystemCall::Failed();
    }
    SCOPED_TRACE(std::to_string(call) + " " + failed);
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo"), "2042") << "one is removed and one added";
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'added'"), "1");
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'changed'"), "1");
    EXPECT_EQ(IntegrityOf(database.DatabaseFile()), "ok");
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
