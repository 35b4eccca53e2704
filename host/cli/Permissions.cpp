#include "host/cli/Permissions.h"

#include <fmt/format.h>

#include "host/cli/ExpectedSchema.h"

namespace quorvel::cli {
namespace {

std::string Literal(std::string_view text) {
  std::string literal = "N'";
  for (const char c : text) {
    literal += c;
    if (c == '\'') literal += c;
  }
  return literal + "'";
}

std::string Described(const Permission& permission) {
  if (permission.column.empty()) return permission.object;
  return fmt::format("{} ({})", permission.object, permission.column);
}

}  // namespace

std::vector<Permission> ProcedurePermissions() {
  std::vector<Permission> needed;
  for (const ExpectedProcedure& each : ExpectedProcedures()) needed.push_back({"EXECUTE", each.name, ""});
  return needed;
}

std::vector<Permission> TablePermissions() {
  std::vector<Permission> needed;
  for (const ExpectedTable& table : ExpectedTables()) needed.push_back({"SELECT", table.name, ""});
  return needed;
}

std::vector<Permission> ColumnPermissions() {
  std::vector<Permission> needed;
  for (const ExpectedTable& table : ExpectedTables()) {
    for (const std::string& column : table.written) needed.push_back({"UPDATE", table.name, column});
  }
  return needed;
}

std::string PermissionQuery(std::span<const Permission> needed) {
  std::string query;
  for (std::size_t i = 0; i < needed.size(); ++i) {
    const Permission& permission = needed[i];
    const std::string column =
        permission.column.empty() ? "" : fmt::format(", {}, N'COLUMN'", Literal(permission.column));
    query += fmt::format("{}SELECT {} AS Place, HAS_PERMS_BY_NAME({}, N'OBJECT', N'{}'{}) AS Held",
                         i == 0 ? "" : " UNION ALL\n", i, Literal(permission.object), permission.name, column);
  }
  return query;
}

PermissionAnswer AskPermissions(ado::Connection& connection, std::span<const Permission> needed) {
  PermissionAnswer answer;
  if (needed.empty()) return answer;
  const auto rows = connection.Execute(PermissionQuery(needed));
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    const Permission& permission = needed[static_cast<std::size_t>(ToInt32(rows->Fields("Place").Value()))];
    const Value held = rows->Fields("Held").Value();
    if (IsNull(held)) {
      answer.unknown.push_back(Described(permission));
    } else if (!ToBoolean(held)) {
      answer.missing.push_back(Described(permission));
    }
  }
  return answer;
}

}  // namespace quorvel::cli
