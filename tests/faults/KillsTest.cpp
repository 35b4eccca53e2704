// Programs that are killed in the middle of their work: the next one finds everything that was acknowledged, and goes
// on.

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <new>
#include <string>
#include <thread>

#include "data/modRegistry.h"
#include "tests/faults/Rounds.h"
#include "tests/host/CommandLine.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/Rows.h"

namespace quorvel::test {
namespace {

using testing::AnyOf;
using testing::ElementsAre;

/// Kills the process after that time.
void KillAfter(pid_t process, std::chrono::microseconds time) {
  std::this_thread::sleep_for(time);
  ::kill(process, SIGKILL);
  ASSERT_EQ(::waitpid(process, nullptr, 0), process);
}

TEST_F(CommandLine, KilledWriterHasStoredWhatItAcknowledged) {
  Initialize(true);
  const std::string file = File("test.db");
  void* const shared = ::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(shared, MAP_FAILED);
  auto& acknowledged = *new (shared) std::atomic<int>;
  for (int round = 1; round <= Rounds(40); ++round) {
    acknowledged = 0;
    const pid_t writer = ::fork();
    if (writer == 0) {
      // A new thread opens a connection of its own. An error ends the process.
      std::thread([&] {
        const ContextHolder context("CustMaint", "C1020", "admin");
        for (int i = 1;; ++i, ++acknowledged) {
          context->AddRemark("Cust.General", fmt::format("round {}, remark {}", round, i), "admin");
          context->Save(true);
        }
      }).join();
    }
    while (acknowledged == 0) ASSERT_EQ(::waitpid(writer, nullptr, WNOHANG), 0);
    KillAfter(writer, std::chrono::microseconds(round * 7919 % 20'000));
    // The connection must not outlive the round: a process that is forked cannot have it.
    const auto connection = ConnectBy("Data Source=(embedded);Initial Catalog=" + file);
    const auto stored = RowsOf(*connection, fmt::format("SELECT COUNT(*) AS n, COUNT(DISTINCT MemoText) AS texts FROM "
                                                        "tciMemo WHERE MemoText LIKE 'round {}, %'",
                                                        round));
    const auto times = [](int count) { return fmt::format("{0}|{0}", count); };
    EXPECT_THAT(stored, ElementsAre(AnyOf(times(acknowledged), times(acknowledged + 1)))) << round;
    EXPECT_EQ(IntegrityOf(file), "ok") << round;
  }
}

TEST_F(CommandLine, KilledInitIsFinishedByTheNext) {
  for (int round = 0; round < Rounds(12); ++round) {
    const std::string file = File(std::to_string(round).c_str());
    ASSERT_THAT(Quorvel({"settings", "Server=(embedded)", "Database=" + file}), Succeeds());
    const pid_t init = ::fork();
    if (init == 0) {
      ::dup2(::open("/dev/null", O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
      ::execl(QUORVEL_PROGRAM, QUORVEL_PROGRAM, "init", "--sample", nullptr);
      ::_exit(1);
    }
    KillAfter(init, std::chrono::milliseconds(5 + round * 53 % 400));
    EXPECT_THAT(Quorvel({"init", "--sample"}), Succeeds()) << round;
    EXPECT_THAT(Quorvel({"doctor"}), Succeeds()) << round;
    EXPECT_THAT(RunSql("SELECT COUNT(*) AS Memos FROM tciMemo"), testing::HasSubstr("\n 2042\n")) << round;
  }
}

TEST(KilledSettings, AreWrittenAllOrNone) {
  const TemporaryFolder folder;
  const ScopedVariable variable("QUORVEL_REGISTRY", folder.File("settings.reg"));
  const auto key = registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey);
  const auto valuesOf = [](int write) {
    const std::string text = std::to_string(write);
    return std::array{registry::Assignment{"Server", text}, registry::Assignment{"Password", text}};
  };
  ASSERT_FALSE(key->Assign(valuesOf(0)));
  for (int round = 0; round < Rounds(8); ++round) {
    const pid_t writer = ::fork();
    if (writer == 0) {
      for (int write = 1;; ++write) (void)key->Assign(valuesOf(write));
    }
    KillAfter(writer, std::chrono::microseconds(10'000 + round * 2939 % 20'000));
    EXPECT_EQ(key->Query("Server")->text, key->Query("Password")->text) << round;
    const std::filesystem::directory_iterator files(folder.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "no copy of the password is left";
  }
}

}  // namespace
}  // namespace quorvel::test
