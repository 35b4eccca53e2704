#include <CLI/App.hpp>
#include <chrono>
#include <memory>

#include <fmt/format.h>

#include "data/modDatabase.h"
#include "host/cli/Commands.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/ExpectedSchema.h"
#include "host/cli/TextLayout.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

constexpr std::string_view kRunInit = "Run 'quorvel init' to create what is missing.";

/// Prints each check as it is made and counts the failures.
class Report {
 public:
  /// One check; it failed when `problem` is not empty, and then `remedy` says what to do.
  bool Check(std::string_view what, const std::string& problem, std::string_view remedy) {
    ++m_checks;
    if (problem.empty()) {
      fmt::print("ok    {}\n", TrimBlanks(what));
      return true;
    }
    ++m_failures;
    fmt::print("FAIL  {}: {}\n      {}\n", TrimBlanks(what), problem, remedy);
    return false;
  }
  [[nodiscard]] std::size_t Checks() const noexcept { return m_checks; }
  [[nodiscard]] std::size_t Failures() const noexcept { return m_failures; }

 private:
  std::size_t m_checks = 0;
  std::size_t m_failures = 0;
};

std::string SettingsProblem() {
  try {
    modDatabase::Settings().Reload();
    return {};
  } catch (const Error& error) {
    return error.Description();
  }
}

/// Only the embedded engine is built in; any other server would have to be a SQL Server.
bool CheckEngine(Report& report, const std::string& server) {
  const bool isBuiltIn = ado::IsEmbedded(server);
  return report.Check(isBuiltIn ? "engine, embedded" : "engine",
                      isBuiltIn ? "" : "this build has none for a SQL Server",
                      "Use the embedded engine: quorvel settings 'Server=(embedded)' Database=FILE");
}

bool CheckSettings(Report& report) {
  if (!report.Check(fmt::format("settings, kept in {}", registry::StoreLocation()), SettingsProblem(),
                    "Make that file readable and writable for this user, or set QUORVEL_REGISTRY to one that is.")) {
    return false;
  }
  const std::string server(TrimBlanks(modDatabase::Settings().Server()));
  const std::string database(TrimBlanks(modDatabase::Settings().Database()));
  const bool hasServer =
      report.Check("server " + OneLine(server), server.empty() ? "none is set" : "",
                   "Set one: quorvel settings 'Server=(embedded)', or the name of a SQL Server after Server=.");
  const bool hasDatabase =
      report.Check("database " + OneLine(database), database.empty() ? "none is set" : "",
                   "Set one: quorvel settings Database=NAME, a file's name where the server is (embedded).");
  return hasServer && hasDatabase && CheckEngine(report, server);
}

/// A connection of its own: the component's waits for a server for up to an hour.
std::shared_ptr<ado::Connection> CheckConnection(Report& report) {
  auto connection = std::make_shared<ado::Connection>();
  try {
    connection->SetConnectionString(modDatabase::Settings().ConnectionString());
    connection->SetCommandTimeout(std::chrono::seconds(15));
    connection->Open();
    report.Check(fmt::format("connection, {}", connection->Describe()), "", "");
    return connection;
  } catch (const Error& error) {
    report.Check(
        "connection", error.Description(),
        "See that the file is what 'quorvel settings' says; 'quorvel init' creates one that is not there. Tables "
        "and procedures were not checked.");
    return nullptr;
  }
}

void CheckSchema(Report& report, ado::Connection& connection) {
  for (const ExpectedTable& table : ExpectedTables()) {
    report.Check(fmt::format("table {}", table.name), TableProblem(connection, table.name, table.columns), kRunInit);
  }
  for (const ExpectedProcedure& procedure : ExpectedProcedures()) {
    report.Check(fmt::format("procedure {} ({})", procedure.name, procedure.parameters),
                 ProcedureProblem(connection, procedure.name, procedure.parameters), kRunInit);
  }
}

void CheckOwnerProcedure(Report& report, ado::Connection& connection, const std::string& entity,
                         const std::string& procedure) {
  const std::string what = fmt::format("owner procedure {}, entity {}", OneLine(procedure), OneLine(entity));
  const std::string problem =
      procedure.empty() ? "the entity names none" : ProcedureProblem(connection, procedure, "@OwnerID");
  report.Check(what, problem,
               "The host application must create it, and ttwRemarkEntity.spGetOwnerName must hold its name.");
}

void CheckOwnerProcedures(Report& report, ado::Connection& connection) {
  try {
    const auto entities = connection.Execute("SELECT RemarkEntityID, spGetOwnerName FROM ttwRemarkEntity");
    for (; !entities->EndOfFile(); entities->MoveNext()) {
      CheckOwnerProcedure(report, connection, modDatabase::FieldText(entities->Fields("RemarkEntityID")),
                          std::string(TrimBlanks(modDatabase::FieldText(entities->Fields("spGetOwnerName")))));
    }
  } catch (const Error& error) {
    report.Check("owner procedures", error.Description(), kRunInit);
  }
}

void RunDoctor() {
  Report report;
  if (CheckSettings(report)) {
    if (const auto connection = CheckConnection(report)) {
      CheckSchema(report, *connection);
      CheckOwnerProcedures(report, *connection);
    }
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
  CLI::App* command = app.add_subcommand("doctor", "Check what stands between this machine and its remarks");
  command->group("Set up")->callback(RunDoctor);
}

}  // namespace quorvel::cli
