// A host works while the calls of the system fail, or the connection to its server is cut, each in turn. It tries a
// step again that failed, as a user does.

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

#include "data/modRegistry.h"
#include "tests/faults/SystemCalls.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/TestSettings.h"
#include "tests/support/tds/StandInServer.h"

namespace quorvel::test {
namespace {

using Fault = FailingSystemCall::Fault;

/// Loads a list, changes, removes and adds a remark, and saves. Calls `endFaults` before a step is tried again.
void LoadChangeAndSave(const std::function<void()>& endFaults) {
  const auto insist = [&](const std::function<void()>& step) {
    try {
      step();
    } catch (const Error& error) {
      endFaults();
      EXPECT_NE(error.Description(), "");
      step();
    }
  };
  const ContextHolder context;
  insist([&] { context->Load("CustMaint", "C1044", "admin"); });
  ChangeText(RemarkAt(context, 1), "changed");
  context->RemarkList()->Remove(std::int64_t{2});
  context->AddRemark("Cust.General", "added", "admin");
  insist([&] { context->Save(true); });
  EXPECT_FALSE(context->RemarkList()->Dirty());
}

/// Calls `work` with a new database for the fault 1, 2 and so on, and returns how often. `work` returns the call that
/// failed, or nothing at the end. Afterwards everything is stored, and nothing twice.
int WorkWithEachFault(const std::function<std::string(const TestDatabase&, int fault)>& work) {
  const ScopedVariable inMemory("TMPDIR", "/dev/shm");
  const PromptsGuard prompts;
  int fault = 1;
  for (std::string failed = "none yet"; !failed.empty() && !testing::Test::HasFailure(); ++fault) {
    prompts->answers.assign(2, PromptAnswer::Yes);
    const TestDatabase database;
    failed = work(database, fault);
    SCOPED_TRACE(std::to_string(fault) + " " + failed);
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo"), "2042") << "one is removed and one added";
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'added'"), "1");
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'changed'"), "1");
    EXPECT_EQ(IntegrityOf(database.DatabaseFile()), "ok");
  }
  return fault;
}

class ServerCuts : public testing::TestWithParam<void (StandInServer::*)(int)> {};
INSTANTIATE_TEST_SUITE_P(Of, ServerCuts,
                         testing::Values(&StandInServer::DropAtRequest, &StandInServer::DropAfterRequest,
                                         &StandInServer::DropAmidRows));

TEST_P(ServerCuts, LoadAndSaveThatAreTriedAgainWriteEverythingOnce) {
  const int rounds = WorkWithEachFault([](const TestDatabase& database, int request) {
    StandInServer server(database.DatabaseFile());
    UseSettings(server);
    server.ForgetRequests();
    (server.*GetParam())(request);
    // A new thread opens a connection of its own.
    std::thread([] { LoadChangeAndSave([] {}); }).join();
    const auto requests = server.Requests();
    const auto cut = static_cast<std::size_t>(request) - 1;
    return cut < requests.size() ? requests[cut] : "";
  });
  EXPECT_GT(rounds, 10);
}

class SystemFaults : public testing::TestWithParam<Fault> {};
INSTANTIATE_TEST_SUITE_P(Of, SystemFaults, testing::Values(Fault::Once, Fault::DiskFull),
                         [](const auto& fault) { return fault.param == Fault::Once ? "OneCall" : "AFullDisk"; });

TEST_P(SystemFaults, SaveThatIsTriedAgainWritesEverythingOnce) {
  const int rounds = WorkWithEachFault([](const TestDatabase&, int call) {
    const FailingSystemCall failing(GetParam(), call);
    std::thread([] { LoadChangeAndSave(FailingSystemCall::Disarm); }).join();
    return FailingSystemCall::Failed();
  });
  EXPECT_GT(rounds, 20);
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
