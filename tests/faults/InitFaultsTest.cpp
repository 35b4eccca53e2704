// `quorvel init` while the calls of the system fail, each in turn.

#include <filesystem>
#include <string>

#include "tests/faults/Rounds.h"
#include "tests/faults/SystemCalls.h"
#include "tests/host/CommandLine.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::test {
namespace {

using testing::AnyOf;
using testing::HasSubstr;

struct Start {
  const char* name;
  /// Makes the database from which init begins; null for none.
  const char* change;
  bool isRefused;
};

/// Before the folder of the test is made.
struct InMemory {
  const ScopedVariable folder{"TMPDIR", "/dev/shm"};
};

class InitFaults : InMemory, public CommandLine, public testing::WithParamInterface<Start> {
 protected:
  /// The text after the name of the variable in the errors, which the library of the calls writes at the end.
  static Outcome InitWithFailingCall(int number, std::string& report) {
    const ScopedVariable library("LD_PRELOAD", QUORVEL_SYSTEM_CALLS);
    const ScopedVariable call(kFailingCall, std::to_string(number));
    Outcome outcome = Quorvel({"init"});
    const std::size_t at = outcome.errors.find(kFailingCall);
    report = at == std::string::npos ? "" : outcome.errors.substr(at + std::string(kFailingCall).size());
    outcome.errors.resize(std::min(at, outcome.errors.size()));
    return outcome;
  }
};
INSTANTIATE_TEST_SUITE_P(
    Of, InitFaults,
    testing::Values(Start{"ANewFile", nullptr, false},
                    Start{"AnOlderVersion", "DROP TABLE ttwLayout\nGO\nDROP PROCEDURE spTWCqvGetContext", false},
                    Start{"ANewerVersion", "INSERT INTO ttwLayout (LayoutVersion) VALUES (99)", true}),
    [](const auto& start) { return start.param.name; });

TEST_P(InitFaults, LeaveAFileThatTheNextInitCompletes) {
  const bool isNew = GetParam().change == nullptr;
  Initialize(true);
  if (!isNew) RunSql(GetParam().change);
  const std::string file = File("test.db");
  const std::string before = File("before.db");
  std::filesystem::rename(file, before);
  const auto start = [&] {
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(file + suffix);
    if (!isNew) std::filesystem::copy_file(before, file);
  };
  start();
  std::string report;
  EXPECT_EQ(InitWithFailingCall(1'000'000, report).status, GetParam().isRefused ? 1 : 0);
  const int calls = 1'000'000 - std::stoi(report);
  EXPECT_GT(calls, 20);
  const int rounds = std::min(Rounds(12), calls);
  for (int round = 0; round < rounds && !HasFailure(); ++round) {
    start();
    const Outcome outcome = InitWithFailingCall(1 + round * calls / rounds, report);
    SCOPED_TRACE(report + outcome.output + outcome.errors);
    EXPECT_THAT(outcome.status, AnyOf(0, 1));
    EXPECT_TRUE(outcome.status == 0 || outcome.errors.starts_with("quorvel: error ")) << "the user is told";
    EXPECT_EQ(std::filesystem::exists(file) ? IntegrityOf(file) : "ok", "ok");
    const Outcome next = Quorvel({"init"});
    if (GetParam().isRefused) {
      EXPECT_THAT(next.errors, HasSubstr("A newer version has set this database up"));
    } else {
      EXPECT_THAT(next, Succeeds());
      EXPECT_THAT(Quorvel({"doctor"}), Succeeds());
    }
    EXPECT_THAT(RunSql("SELECT COUNT(*) AS N FROM tciMemo"), HasSubstr(isNew ? "\n0\n" : "\n2042\n"));
  }
}

}  // namespace
}  // namespace quorvel::test
