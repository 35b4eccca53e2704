#include "host/cli/PermissionChecks.h"

#include <span>
#include <utility>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "host/cli/ConnectionSettings.h"
#include "platform/Error.h"

namespace quorvel::cli {
namespace {

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

}  // namespace

void RequireConnection(const ado::Connection& connection, const std::string& problem) {
  if (connection.IsLost()) throw LostConnection{problem};
}

std::string WithPermission(ado::Connection& connection, const std::string& procedure, std::string problem) {
  if (problem.empty() || UsesEmbeddedEngine()) return problem;
  RequireConnection(connection, problem);
  const Permission execute{"EXECUTE", procedure, ""};
  try {
    const bool isRefused = !AskPermissions(connection, std::span(&execute, 1)).missing.empty();
    return isRefused ? "the login lacks the permission EXECUTE on it" : problem;
  } catch (const Error& error) {
    RequireConnection(connection, error.Description());
    return problem;
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

}  // namespace quorvel::cli
