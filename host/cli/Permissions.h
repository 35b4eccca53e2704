#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ado/Connection.h"

/// The permissions that the component's login needs on a server. The embedded engine has no users.
namespace quorvel::cli {

/// One permission on one object, in the words of GRANT.
struct Permission {
  std::string_view name;
  std::string object;
  std::string column;  ///< empty for the whole object
};

/// EXECUTE on every procedure of the component.
[[nodiscard]] std::vector<Permission> ProcedurePermissions();
/// SELECT on every table that it reads with its own statements.
[[nodiscard]] std::vector<Permission> TablePermissions();
/// UPDATE on every column that it writes with its own statements.
[[nodiscard]] std::vector<Permission> ColumnPermissions();

/// The batch that asks a server for permissions of the login that runs it. It returns a row for each, with its index in
/// `needed` and 1, 0, or NULL when the server does not know.
[[nodiscard]] std::string PermissionQuery(std::span<const Permission> needed);

/// The permissions that the login lacks and those that the server does not know, as "spTWCAddUser" or
/// "ttwUser (IsActive)".
struct PermissionAnswer {
  std::vector<std::string> missing;
  std::vector<std::string> unknown;
};

/// Throws Error when the server cannot be asked.
[[nodiscard]] PermissionAnswer AskPermissions(ado::Connection& connection, std::span<const Permission> needed);

}  // namespace quorvel::cli
