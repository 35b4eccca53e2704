#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ado/Connection.h"
#include "host/cli/Permissions.h"
#include "host/cli/Report.h"

/// The part of the doctor that is about the permissions of the component's login on a server.
namespace quorvel::cli {

inline constexpr std::string_view kAskAdministrator =
    "A DBA runs 'quorvel init --grants': it creates what is missing and the role QuorvelUser, of which the login must "
    "be a member.";

/// Thrown instead of reporting an object as wrong when the connection itself failed.
struct LostConnection {
  std::string reason;
};

/// Throws LostConnection with the problem when the connection is lost.
void RequireConnection(const ado::Connection& connection, const std::string& problem);

/// The problem of a procedure, or that the login lacks the permission to run it: a server hides what the login may not
/// use, so that the procedure looks wrong or missing. The embedded engine has no users.
[[nodiscard]] std::string WithPermission(ado::Connection& connection, const std::string& procedure,
                                         std::string problem);

/// Checks all permissions that the login needs, `ownerProcedures` among them.
void CheckPermissions(Report& report, ado::Connection& connection, std::vector<Permission> ownerProcedures);

}  // namespace quorvel::cli
