#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "data/modDatabase.h"
#include "host/cli/Commands.h"
#include "host/cli/Output.h"
#include "host/cli/Secrets.h"
#include "platform/Environment.h"
#include "platform/Error.h"
#include "platform/RegistryKey.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

enum ExitStatus : int { kSuccess = 0, kFailure = 1, kWrongUsage = 2 };

constexpr const char* kDescription = "Shows and edits the remarks on the records of a business application.";
constexpr const char* kFooter =
    "First steps:\n"
    "  quorvel settings 'Server=(embedded)' Database=remarks.db\n"
    "  quorvel init --sample\n"
    "  quorvel list --context CustMaint --owner C1044 --user jsmith";

std::string VersionText() {
  const Version version = ComponentVersion();
  return fmt::format("quorvel {}.{}.{}", version.major, version.minor, version.revision);
}

/// The argument without what follows an equals sign or a short option: it may be a password.
std::string WithoutValue(const std::string& argument) {
  const bool isShortOption = argument.starts_with('-') && !argument.starts_with("--");
  const std::size_t end = isShortOption ? 2 : argument.find('=');
  return end < argument.size() ? argument.substr(0, end) + "..." : argument;
}

/// The arguments that have no place; empty when each has one.
std::string NotExpected(const CLI::App& app) {
  std::string arguments;
  bool isAfterOption = false;
  for (const std::string& argument : app.remaining(true)) {
    const bool isOption = argument.starts_with('-');
    arguments += " " + (isAfterOption && !isOption ? "..." : WithoutValue(argument));
    isAfterOption = isOption;
  }
  return arguments.empty() ? "" : "Not expected:" + arguments;
}

std::string Explanation(const CLI::App& app, const CLI::Error& error) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError)) return NotExpected(app);
  const std::string extras = NotExpected(app);
  const std::string text = error.what();
  // A value that cannot be converted comes after this sign. A mistyped option is why another one is missing.
  return text.substr(0, text.find(" = ")) + (extras.empty() ? "" : ". " + extras);
}

std::string UsageMessage(const CLI::App* app, const CLI::Error& error) {
  const auto chosen = app->get_subcommands();
  const std::string command = chosen.empty() ? "quorvel" : "quorvel " + chosen.front()->get_name();
  return fmt::format("quorvel: {}\nRun '{} --help' for more information.\n", Printable(Explanation(*app, error)),
                     command);
}

void Describe(CLI::App& app) {
  app.set_version_flag("--version", VersionText());
  app.require_subcommand(0, 1);
  app.failure_message(UsageMessage);
  app.get_formatter()->label("SUBCOMMAND", "COMMAND");
  app.get_formatter()->label("REQUIRED", "(required)");
  AddSettingsCommand(app);
  AddInitCommand(app);
  AddRunCommand(app);
  AddListCommand(app);
  AddPopupCommand(app);
  AddEditorCommand(app);
  AddAddCommand(app);
  AddChangeCommand(app);
  AddRemoveCommand(app);
  AddManageCommand(app);
  AddDoctorCommand(app);
  app.footer(kFooter);  // last: a command copies the footer that is set when it is added
}

void PrintError(std::int32_t number, std::string_view source, std::string_view description) {
  std::fflush(stdout);
  const std::string place = number == ErrorNumber::RegistryWrite
                                ? fmt::format("; the settings are kept in {}", registry::StoreLocation())
                                : "";
  PrintToErrors(fmt::format("quorvel: error {} at {}: {}{}\n", number, Printable(source), Printable(description),
                            Printable(place)));
}

int Run(const std::vector<std::string>& arguments) {
  CLI::App app(kDescription, "quorvel");
  Describe(app);
  // A person waits for the answer. A host, which may start before its server, waits for an hour.
  modDatabase::SetConnectionTimeout(std::chrono::seconds(15));
  try {
    std::vector<const char*> pointers(arguments.size());
    std::ranges::transform(arguments, pointers.begin(), &std::string::c_str);
    app.parse(static_cast<int>(pointers.size()), pointers.data());
    if (app.get_subcommands().empty()) {
      PrintToErrors(app.help());
      return kWrongUsage;
    }
    FinishOutput();
    return kSuccess;
  } catch (const CLI::ParseError& error) {
    const bool isHelp = app.exit(error) == 0;
    FinishOutput();
    return isHelp ? kSuccess : kWrongUsage;
  }
}

}  // namespace
}  // namespace quorvel::cli

int main(int argc, char** argv) {
  using quorvel::cli::PrintError;
  quorvel::cli::LeaveNoCoreDump();
  quorvel::cli::PrepareStreams();
  try {
    return quorvel::cli::Run(quorvel::cli::TakeArguments({argv, static_cast<std::size_t>(argc)}));
  } catch (const quorvel::cli::DoneButNotPrinted& done) {
    quorvel::cli::PrintToErrors(fmt::format("quorvel: {}\n", done.what()));
    return quorvel::cli::kSuccess;
  } catch (const quorvel::Error& error) {
    PrintError(error.Number(), error.Source(), error.Description() + quorvel::cli::CauseOf(error));
  } catch (const std::exception& error) {
    PrintError(quorvel::ErrorNumber::DbUnspecified, "quorvel", error.what());
  }
  return quorvel::cli::kFailure;
}
