// Measures a Load of a few remarks from a stand-in server whose answers take 40 ms, as on a network with 20 ms each
// way: with the calls that a driver sends together, and with one request for each call.

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <string>

#include "runtime/RemarkContext.h"
#include "tests/support/TestDatabase.h"
#include "tests/support/TestSettings.h"
#include "tests/support/tds/StandInServer.h"

namespace {

using namespace quorvel;
using test::StandInServer;

std::chrono::duration<double, std::milli> TimeLoad() {
  const auto context = RemarkContext::Create();
  const auto begin = std::chrono::steady_clock::now();
  context->Load("CustMaint", "C1044", "admin");
  const auto end = std::chrono::steady_clock::now();
  context->Dispose();
  return end - begin;
}

void Measure(StandInServer& server) {
  server.ForgetRequests();
  (void)TimeLoad();
  const std::size_t requests = server.Requests().size();
  std::array<double, 41> times{};
  for (double& time : times) time = TimeLoad().count();
  std::ranges::sort(times);
  fmt::print("{} requests: {:.1f} ms (quartiles {:.1f} and {:.1f})\n", requests, times[20], times[10], times[30]);
}

}  // namespace

int main() {
  const test::TestDatabase database;
  StandInServer server(database.DatabaseFile());
  test::UseSettings(server);
  server.DelayAnswers(std::chrono::milliseconds(40));
  (void)TimeLoad();
  const std::string together = server.Requests().at(0);
  Measure(server);
  // The connection sends single calls when the server refuses what makes one request of several.
  constexpr int kPermissionDenied = 229;
  server.AnswerWith(together, {{StandInServer::Part::Kind::Error, {"", kPermissionDenied, "denied", 1}, 0, {}, {}}});
  (void)TimeLoad();
  Measure(server);
}
