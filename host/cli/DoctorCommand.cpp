#include <CLI/App.hpp>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "data/modDatabase.h"
#include "host/cli/Commands.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/ExpectedSchema.h"
#include "host/cli/Permissions.h"
#include "host/cli/Report.h"
#include "host/cli/TextLayout.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

constexpr std::string_view kRunInit = "Run 'quorvel init' to create what is missing.";
constexpr std::string_view kAskAdministrator =
    "A DBA runs 'quorvel init --grants': it creates what is missing and the role QuorvelUser, of which the login must "
    "be a member.";

bool IsEmbedded() { return ado::IsEmbedded(modDatabase::Settings().Server()); }

/// What to do about an object that is missing; on a server one that is there may be hidden from the login.
std::string_view SchemaRemedy() { return IsEmbedded() ? kRunInit : kAskAdministrator; }

std::string SettingsProblem() {
  try {
    modDatabase::Settings().Reload();
    return {};
  } catch (const Error& error) {
    return error.Description();
  }
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
  return hasServer && hasDatabase;
}

std::string_view ConnectionRemedy() {
  if (IsEmbedded()) {
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

/// A lost connection says nothing of what was to be checked.
struct LostConnection {
  std::string reason;
};

void RequireConnection(const ado::Connection& connection, const std::string& problem) {
  const bool isLost = !connection.Errors().empty() && connection.Errors().front().sqlState.starts_with("08");
  if (isLost) throw LostConnection{problem};
}

/// One check of something in the database.
bool CheckObject(Report& report, const ado::Connection& connection, std::string_view what, const std::string& problem,
                 std::string_view remedy) {
  if (!problem.empty()) RequireConnection(connection, problem);
  return report.Check(what, problem, remedy);
}

/// On a server the component's login need not see the table itself: its procedures do.
void CheckMemoTable(Report& report, ado::Connection& connection) {
  if (IsEmbedded()) {
    CheckObject(report, connection, fmt::format("table {}", kMemoTable), TableProblem(connection, kMemoTable, "*"),
                kRunInit);
  } else {
    CheckObject(report, connection, fmt::format("table {}, read by a procedure", kMemoTable),
                BatchProblem(connection, "EXEC spTWCqvGetFilteredMemos '', 0, 0"), kAskAdministrator);
  }
}

void CheckSchema(Report& report, ado::Connection& connection) {
  for (const ExpectedTable& table : ExpectedTables()) {
    CheckObject(report, connection, fmt::format("table {}", table.name),
                TableProblem(connection, table.name, table.columns), SchemaRemedy());
  }
  CheckMemoTable(report, connection);
  for (const ExpectedProcedure& procedure : ExpectedProcedures()) {
    CheckObject(report, connection, fmt::format("procedure {} ({})", procedure.name, procedure.parameters),
                ProcedureProblem(connection, procedure.name, procedure.parameters), SchemaRemedy());
  }
}

/// One kind of permission that the login needs.
struct PermissionCheck {
  std::string_view what;
  std::vector<Permission> needed;
  std::string_view remedy;
};

void CheckPermission(Report& report, ado::Connection& connection, const PermissionCheck& check) {
  const PermissionAnswer answer = AskPermissions(connection, check.needed);
  if (!answer.missing.empty()) {
    report.Check(check.what, fmt::format("missing on {}", fmt::join(answer.missing, ", ")), check.remedy);
  } else if (!answer.unknown.empty()) {
    Report::Skip(check.what, fmt::format("the server does not tell for {}", fmt::join(answer.unknown, ", ")));
  } else {
    report.Check(check.what, "", "");
  }
}

void CheckPermissions(Report& report, ado::Connection& connection, std::vector<Permission> ownerProcedures) {
  try {
    for (const PermissionCheck& check :
         {PermissionCheck{"permission EXECUTE, procedures", ProcedurePermissions(), kAskAdministrator},
          PermissionCheck{"permission SELECT, tables", TablePermissions(), kAskAdministrator},
          PermissionCheck{"permission UPDATE, columns", ColumnPermissions(), kAskAdministrator},
          PermissionCheck{"permission EXECUTE, owner procedures", std::move(ownerProcedures),
                          "A DBA grants each: GRANT EXECUTE ON NAME TO QuorvelUser"}}) {
      CheckPermission(report, connection, check);
    }
  } catch (const Error& error) {
    RequireConnection(connection, error.Description());
    Report::Skip("permissions of the login", fmt::format("could not be checked: {}", error.Description()));
  }
}

/// True when the procedure is there.
bool CheckOwnerProcedure(Report& report, ado::Connection& connection, const std::string& entity,
                         const std::string& procedure) {
  const std::string what = fmt::format("owner procedure {}, entity {}", OneLine(procedure), OneLine(entity));
  const std::string problem =
      procedure.empty() ? "the entity names none" : OwnerProcedureProblem(connection, procedure);
  return CheckObject(report, connection, what, problem,
                     "The host application must create it, and ttwRemarkEntity.spGetOwnerName must hold its name.");
}

/// The permissions that the login needs on those that are there.
std::vector<Permission> CheckOwnerProcedures(Report& report, ado::Connection& connection) {
  std::vector<Permission> needed;
  try {
    const auto entities = connection.Execute("SELECT RemarkEntityID, spGetOwnerName FROM ttwRemarkEntity");
    for (; !entities->EndOfFile(); entities->MoveNext()) {
      const std::string procedure(TrimBlanks(modDatabase::FieldText(entities->Fields("spGetOwnerName"))));
      const bool isThere = CheckOwnerProcedure(report, connection,
                                               modDatabase::FieldText(entities->Fields("RemarkEntityID")), procedure);
      if (isThere) needed.push_back({"EXECUTE", procedure, ""});
    }
  } catch (const Error& error) {
    CheckObject(report, connection, "owner procedures", error.Description(), SchemaRemedy());
  }
  return needed;
}

void CheckDatabase(Report& report, ado::Connection& connection) {
  try {
    CheckSchema(report, connection);
    std::vector<Permission> ownerProcedures = CheckOwnerProcedures(report, connection);
    if (!IsEmbedded()) CheckPermissions(report, connection, std::move(ownerProcedures));
  } catch (const LostConnection& lost) {
    report.Check("connection", fmt::format("it was lost: {}", lost.reason),
                 "See that server and network stay up, and run this again. What follows was not checked.");
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
  CLI::App* command = app.add_subcommand("doctor", "Check what stands between this machine and its remarks");
  command->group("Set up")->callback(RunDoctor);
}

}  // namespace quorvel::cli
