// A table or column is probed with a statement that reads no row. Its error is the problem.

#include "host/cli/SchemaProblems.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Value.h"

namespace quorvel::cli {
namespace {

std::string Describe(const std::vector<ado::ParameterInfo>& parameters) {
  std::string text;
  for (const ado::ParameterInfo& parameter : parameters) {
    if (!text.empty()) text += ", ";
    if (!parameter.name.starts_with('@')) text += '@';
    text += parameter.name;
    if (parameter.direction != ado::ParameterDirection::Input) text += " OUTPUT";
  }
  return text;
}

}  // namespace

std::string BatchProblem(ado::Connection& connection, std::string_view batch) {
  try {
    connection.Execute(batch);
    return {};
  } catch (const Error& error) {
    return error.Description();
  }
}

std::string TableProblem(ado::Connection& connection, std::string_view table) {
  return BatchProblem(connection, fmt::format("SELECT * FROM {} WHERE 1 = 0", table));
}

std::string TableProblem(ado::Connection& connection, const ExpectedTable& table) {
  return BatchProblem(connection,
                      fmt::format("SELECT {} FROM {} WHERE 1 = 0", fmt::join(table.columns, ", "), table.name));
}

std::vector<std::string> MissingColumns(ado::Connection& connection, const ExpectedTable& table) {
  std::vector<std::string> missing;
  if (TableProblem(connection, table).empty() || !TableProblem(connection, table.name).empty()) return missing;
  for (const std::string& column : table.columns) {
    const auto problem = BatchProblem(connection, fmt::format("SELECT {} FROM {} WHERE 1 = 0", column, table.name));
    if (!problem.empty()) missing.push_back(column);
  }
  if (connection.IsLost()) missing.clear();
  return missing;
}

std::string MissingColumnsProblem(const std::vector<std::string>& missing) {
  return fmt::format("lacks the {} {}", missing.size() == 1 ? "column" : "columns", fmt::join(missing, ", "));
}

std::string MissingColumnsRemedy(const ExpectedTable& table, const std::vector<std::string>& missing) {
  std::string remedy = "'quorvel init' adds no column to a table. Restore the table from a backup";
  std::string statements;
  for (const std::string& column : missing) {
    const std::string definition = ColumnDefinition(table.name, column);
    // A table with rows refuses a column that has no value for them. No key of quorvel.sql has a DEFAULT.
    if (definition.find(" DEFAULT ") == std::string::npos) {
      return remedy + fmt::format("; the column {} cannot be added to a table with rows.", column);
    }
    statements += fmt::format("\n        ALTER TABLE {} ADD {}", table.name, definition);
  }
  return remedy + ", or run:" + statements;
}

int FindLayoutVersion(ado::Connection& connection) {
  const auto found = connection.Execute(fmt::format("SELECT OBJECT_ID('{}') AS Id", kLayoutTable));
  if (IsNull(found->Fields("Id").Value())) return 0;
  const Value newest = connection.Execute(fmt::format("SELECT MAX(LayoutVersion) AS Newest FROM {}", kLayoutTable))
                           ->Fields("Newest")
                           .Value();
  return IsNull(newest) ? 0 : ToInt32(newest);
}

std::string ProcedureProblem(ado::Connection& connection, const ExpectedProcedure& procedure) {
  try {
    const std::string found = Describe(connection.DiscoverParameters(procedure.name));
    if (EqualIgnoringCase(found, procedure.parameters)) return {};
    return fmt::format("it takes ({}) and not ({})", found, procedure.parameters);
  } catch (const Error& error) {
    return error.Description();
  }
}

std::string OwnerProcedureProblem(ado::Connection& connection, std::string_view procedure) {
  try {
    const auto found = connection.DiscoverParameters(procedure);
    if (!found.empty() && ado::SameName(found.front().name, "@OwnerID")) return {};
    return fmt::format("it takes ({}) and not (@OwnerID)", Describe(found));
  } catch (const Error& error) {
    return error.Description();
  }
}

}  // namespace quorvel::cli
