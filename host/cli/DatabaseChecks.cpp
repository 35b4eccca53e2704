// The part of the doctor that needs an open connection. A problem of one object is a failed check and the next object
// follows; only a lost connection ends the checks.

#include "host/cli/DatabaseChecks.h"

#include <utility>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "data/modDatabase.h"
#include "host/cli/ConnectionSettings.h"
#include "host/cli/Permissions.h"
#include "host/cli/SchemaProblems.h"
#include "host/cli/TextLayout.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

constexpr std::string_view kRunInit = "Run 'quorvel init' to create what is missing.";
constexpr std::string_view kAskAdministrator =
    "A DBA runs 'quorvel init --grants': it creates what is missing and the role QuorvelUser, of which the login must "
    "be a member.";

/// The advice for a missing object. A server also hides existing objects from a login without permissions.
std::string_view SchemaRemedy() { return UsesEmbeddedEngine() ? kRunInit : kAskAdministrator; }

/// Thrown instead of reporting an object as wrong when the connection itself failed.
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

/// On a server the component's login needs no permission on the table itself: the procedures reach it.
void CheckMemoTable(Report& report, ado::Connection& connection) {
  if (UsesEmbeddedEngine()) {
    CheckObject(report, connection, fmt::format("table {}", kMemoTable), TableProblem(connection, kMemoTable),
                kRunInit);
  } else {
    CheckObject(report, connection, fmt::format("table {}, read by a procedure", kMemoTable),
                BatchProblem(connection, "EXEC spTWCqvGetFilteredMemos '', 0, 0"), kAskAdministrator);
  }
}

void CheckSchema(Report& report, ado::Connection& connection) {
  for (const ExpectedTable& table : ExpectedTables()) {
    CheckObject(report, connection, fmt::format("table {}", table.name), TableProblem(connection, table),
                SchemaRemedy());
  }
  CheckMemoTable(report, connection);
  for (const ExpectedProcedure& procedure : ExpectedProcedures()) {
    CheckObject(report, connection, fmt::format("procedure {} ({})", procedure.name, procedure.parameters),
                ProcedureProblem(connection, procedure), SchemaRemedy());
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
    Report::Skip(check.what, fmt::format("the server gives no answer for {}", fmt::join(answer.unknown, ", ")));
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

/// True when the procedure exists.
bool CheckOwnerProcedure(Report& report, ado::Connection& connection, const std::string& entity,
                         const std::string& procedure) {
  const std::string what = fmt::format("owner procedure {}, entity {}", OneLine(procedure), OneLine(entity));
  const std::string problem =
      procedure.empty() ? "the entity names none" : OwnerProcedureProblem(connection, procedure);
  return CheckObject(report, connection, what, problem,
                     "The host application must create it, and ttwRemarkEntity.spGetOwnerName must hold its name.");
}

/// Returns the permissions that the login needs on the existing ones.
std::vector<Permission> CheckOwnerProcedures(Report& report, ado::Connection& connection) {
  std::vector<Permission> needed;
  try {
    const auto entities = connection.Execute("SELECT RemarkEntityID, spGetOwnerName FROM ttwRemarkEntity");
    for (; !entities->EndOfFile(); entities->MoveNext()) {
      const std::string procedure(TrimBlanks(modDatabase::FieldText(entities->Fields("spGetOwnerName"))));
      const bool exists = CheckOwnerProcedure(report, connection,
                                              modDatabase::FieldText(entities->Fields("RemarkEntityID")), procedure);
      if (exists) needed.push_back({"EXECUTE", procedure, ""});
    }
  } catch (const Error& error) {
    CheckObject(report, connection, "owner procedures", error.Description(), SchemaRemedy());
  }
  return needed;
}

}  // namespace

void CheckDatabase(Report& report, ado::Connection& connection) {
  try {
    CheckSchema(report, connection);
    std::vector<Permission> ownerProcedures = CheckOwnerProcedures(report, connection);
    if (!UsesEmbeddedEngine()) CheckPermissions(report, connection, std::move(ownerProcedures));
  } catch (const LostConnection& lost) {
    report.Check("connection", fmt::format("it was lost: {}", lost.reason),
                 "See that server and network stay up, and run this again. What follows was not checked.");
  }
}

}  // namespace quorvel::cli
