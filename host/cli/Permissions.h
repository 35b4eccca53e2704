#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ado/Connection.h"

/// What the component's login must be allowed on a server, to hold one against. The embedded engine has no users.
namespace quorvel::cli {

/// One permission on one object, as GRANT names them.
struct Permission {
  std::string_view name;
  std::string object;
  std::string column;  ///< empty for the whole object
};

/// EXECUTE on every procedure of the component.
[[nodiscard]] std::vector<Permission> ProcedurePermissions();
/// SELECT on every table that it reads with statements of its own.
[[nodiscard]] std::vector<Permission> TablePermissions();
/// UPDATE on every column that it writes with statements of its own.
[[nodiscard]] std::vector<Permission> ColumnPermissions();

/// The batch that asks a server for permissions of the login that runs it: a row for each, with its place in `needed`
/// and 1, 0, or NULL where the server does not know.
[[nodiscard]] std::string PermissionQuery(std::span<const Permission> needed);

/// What came of asking: "spTWCAddUser" or "ttwUser (IsActive)" of each permission that is not held, and of each that
/// the server could not tell of.
struct PermissionAnswer {
  std::vector<std::string> missing;
  std::vector<std::string> unknown;
};

/// Throws Error when the server cannot be asked.
[[nodiscard]] PermissionAnswer AskPermissions(ado::Connection& connection, std::span<const Permission> needed);

}  // namespace quorvel::cli
