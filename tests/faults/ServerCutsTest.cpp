// The connection to a server is cut at, after and amid the answer of each request of a load and a save.

#include <string>
#include <thread>

#include "tests/faults/HostAtWork.h"
#include "tests/support/TestSettings.h"
#include "tests/support/tds/StandInServer.h"

namespace quorvel::test {
namespace {

class ServerCuts : public testing::TestWithParam<void (StandInServer::*)(int)> {};
INSTANTIATE_TEST_SUITE_P(Of, ServerCuts,
                         testing::Values(&StandInServer::DropAtRequest, &StandInServer::DropAfterRequest,
                                         &StandInServer::DropAmidRows));

TEST_P(ServerCuts, LoadAndSaveThatAreTriedAgainWriteEverythingOnce) {
  const ScopedVariable inMemory("TMPDIR", "/dev/shm");
  const PromptsGuard prompts;
  int request = 1;
  for (std::size_t requests = 1; static_cast<std::size_t>(request) <= requests && !HasFailure(); ++request) {
    SCOPED_TRACE(request);
    prompts->answers.assign(2, PromptAnswer::Yes);
    const TestDatabase database;
    StandInServer server(database.DatabaseFile());
    UseSettings(server);
    server.ForgetRequests();
    (server.*GetParam())(request);
    // A new thread opens a connection of its own.
    std::thread([] { LoadChangeAndSave([] {}); }).join();
    requests = server.Requests().size();
    ExpectEverythingOnce(database);
  }
  EXPECT_GT(request, 10);
}

}  // namespace
}  // namespace quorvel::test
