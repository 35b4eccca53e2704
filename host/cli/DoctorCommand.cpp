#include <CLI/App.hpp>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "data/modDatabase.h"
#include "host/cli/Commands.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/DatabaseChecks.h"
#include "host/cli/Output.h"
#include "host/cli/Secrets.h"
#include "host/cli/TextLayout.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

std::string SettingsProblem() {
  try {
    modDatabase::Settings().Reload();
    return {};
  } catch (const Error& error) {
    return error.Description() + CauseOf(error);
  }
}

/// Whether the settings can be read. A host works with some wrong lines, such as a value that is set twice.
bool CheckSettingsFile(Report& report) {
  const std::vector<std::string> wrongLines = SettingsProblems();
  const bool isRead = report.Check(
      fmt::format("settings, kept in {}", registry::StoreLocation()), SettingsProblem(),
      wrongLines.empty()
          ? "See that this user can read and write that file of settings, or set QUORVEL_REGISTRY to another."
          : "Correct the lines that are named next.");
  if (!wrongLines.empty()) {
    report.Check("lines of the settings", fmt::format("{}", fmt::join(wrongLines, ". ")),
                 "Correct each line in that file with an editor.");
  }
  return isRead;
}

bool CheckSettings(Report& report) {
  if (!CheckSettingsFile(report)) return false;
  const std::string server(TrimBlanks(modDatabase::Settings().Server()));
  const std::string database(TrimBlanks(modDatabase::Settings().Database()));
  const bool hasServer =
      report.Check("server " + OneLine(WithoutPassword(server)), server.empty() ? "none is set" : "",
                   "Set one: quorvel settings 'Server=(embedded)', or the name of a SQL Server after Server=.");
  const bool hasDatabase =
      report.Check("database " + OneLine(WithoutPassword(database)), database.empty() ? "none is set" : "",
                   "Set one: quorvel settings Database=NAME, a file's name where the server is (embedded).");
  if (!hasServer || !hasDatabase || !UsesEmbeddedEngine()) return hasServer && hasDatabase;
  const std::string problem = FileNameProblem(modDatabase::Settings().Database());
  return problem.empty() ||
         report.Check("name of the database file", problem, "Then set it: quorvel settings Database=NAME.");
}

std::string_view ConnectionRemedy() {
  if (UsesEmbeddedEngine()) {
    return "See that the file is what 'quorvel settings' says; 'quorvel init' creates one that is not there. Tables "
           "and procedures were not checked.";
  }
  return "See that an ODBC driver for SQL Server is installed, that server, database, login and password are what "
         "'quorvel settings' says, and that this machine reaches the server (docs/database.md). Tables and procedures "
         "were not checked.";
}

std::shared_ptr<ado::Connection> CheckConnection(Report& report) {
  try {
    auto connection = ConnectForSetUp(std::chrono::seconds(15));
    report.Check(fmt::format("connection, {}", connection->Describe()), "", "");
    return connection;
  } catch (const Error& error) {
    report.Check("connection", error.Description(), ConnectionRemedy());
    return nullptr;
  }
}

void RunDoctor() {
  Report report;
  if (CheckSettings(report)) {
    if (const auto connection = CheckConnection(report)) CheckDatabase(report, *connection);
  }
  if (report.Failures() == 0) {
    fmt::print("\n{} passed: this machine can load remarks.\n", Counted(report.Checks(), "check"));
    return;
  }
  throw Error(ErrorNumber::Component, "quorvel.doctor",
              fmt::format("{} of {} failed", report.Failures(), Counted(report.Checks(), "check")));
}

}  // namespace

void AddDoctorCommand(CLI::App& app) {
  CLI::App* command = app.add_subcommand("doctor", "Check whether this machine can load remarks");
  command->group("Set up")->callback(RunDoctor);
}

}  // namespace quorvel::cli
