// Measures the command line as a process, from its start to its end, against SQLite's shell.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "bench/BareSqlite.h"
#include "bench/BareStatements.h"
#include "bench/BenchDatabase.h"

namespace quorvel::bench {
namespace {

constexpr std::int64_t kRemarks = 10;

/// Runs a program with its output thrown away. False when it cannot be started or fails.
bool RunProcess(std::vector<std::string> command) {
  std::vector<char*> arguments(command.size() + 1);  // the last one stays null
  std::ranges::transform(command, arguments.begin(), [](std::string& argument) { return argument.data(); });
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int failure = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  return failure == 0 && waitpid(child, &status, 0) == child && status == 0;
}

std::string WithValue(const std::string& sql, int parameter, const std::string& value) {
  return std::regex_replace(sql, std::regex("\\?" + std::to_string(parameter)), value);
}

/// The statements with their values in place, since the shell of SQLite keeps parameters in a table.
std::string Statements() {
  BareSqlite bare(DatabaseFile());
  BareSqlite::Context context;
  bare.Load(kContext, OwnerOf(kRemarks), kUser, context);
  const std::string place = std::string("'") + kContext + "'";
  const std::string memos =
      WithValue(WithValue(WithValue(bare::kMemos, 1, place), 2, std::to_string(context.entityKey)), 3,
                std::to_string(context.ownerKey));
  return WithValue(bare::kContext, 1, place) + ";" + WithValue(bare::kTypes, 1, place) + ";" +
         WithValue(bare::kRights, 1, std::string("'") + kUser + "'") + ";" +
         WithValue(bare::kOwner, 1, "'" + OwnerOf(kRemarks) + "'") + ";" + memos + ";";
}

void RunAgainAndAgain(benchmark::State& state, const std::vector<std::string>& command) {
  for ([[maybe_unused]] auto _ : state) {
    if (!RunProcess(command)) state.SkipWithError((command[0] + " cannot be started, or failed").c_str());
  }
}

void ListProcess(benchmark::State& state) {
  DatabaseFile();
  const auto program = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "quorvel";
  RunAgainAndAgain(state,
                   {program.string(), "list", "--context", kContext, "--owner", OwnerOf(kRemarks), "--user", kUser});
}

void BareListProcess(benchmark::State& state) { RunAgainAndAgain(state, {"sqlite3", DatabaseFile(), Statements()}); }

BENCHMARK(ListProcess)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BareListProcess)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace quorvel::bench
