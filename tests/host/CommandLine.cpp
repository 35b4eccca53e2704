#include "tests/host/CommandLine.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

#include "platform/FileUpdate.h"

namespace quorvel::test {

Outcome RunProgram(const std::vector<std::string>& command, const std::string& input) {
  const TemporaryFolder folder;
  std::ofstream(folder.File("in"), std::ios::binary) << input;
  posix_spawn_file_actions_t files{};
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, folder.File("in").c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, folder.File("out").c_str(), O_WRONLY | O_CREAT, 0600);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, folder.File("err").c_str(), O_WRONLY | O_CREAT, 0600);
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  pid_t child = 0;
  const int failure = posix_spawnp(&child, arguments.front(), &files, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  Outcome outcome;
  int status = 0;
  if (failure == 0 && waitpid(child, &status, 0) == child && WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
  outcome.output = ReadWholeFile(folder.File("out")).value_or("");
  outcome.errors = ReadWholeFile(folder.File("err")).value_or("");
  return outcome;
}

Outcome RunShell(const std::string& command, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), {"sh", "-c", command, QUORVEL_PROGRAM});
  return RunProgram(arguments);
}

CommandLine::CommandLine() : m_registry("QUORVEL_REGISTRY", File("settings.reg")), m_locale("LC_ALL", "C") {}

Outcome CommandLine::Quorvel(std::vector<std::string> arguments, const std::string& input) {
  arguments.insert(arguments.begin(), QUORVEL_PROGRAM);
  return RunProgram(arguments, input);
}

void CommandLine::Initialize(bool withSample) {
  ASSERT_THAT(Quorvel({"settings", "Server=(embedded)", "Database=" + File("test.db")}), Succeeds());
  std::vector<std::string> arguments = {"init"};
  if (withSample) arguments.emplace_back("--sample");
  ASSERT_THAT(Quorvel(arguments), Succeeds());
}

std::string CommandLine::RunSql(const std::string& script) {
  const Outcome outcome = Quorvel({"run", "-"}, script);
  EXPECT_THAT(outcome, Succeeds());
  return outcome.output;
}

std::vector<std::string> OnAcme(std::vector<std::string> arguments, const std::string& user) {
  arguments.insert(arguments.end(), {"--context", "CustMaint", "--owner", "C1044", "--user", user});
  return arguments;
}

}  // namespace quorvel::test
