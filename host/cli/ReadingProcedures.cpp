#include "host/cli/ReadingProcedures.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "ado/Command.h"
#include "platform/Error.h"

namespace quorvel::cli {
namespace {

/// The parameters of a call by their types; an identifier is sent as the empty text, a number as 0.
using Types = std::vector<ado::DataType>;

struct ReadingProcedure {
  std::string_view name;
  Types parameters;
  std::vector<std::string_view> columns;
};

const std::array<ReadingProcedure, 4>& ReadingProcedures() {
  using enum ado::DataType;
  static const std::array<ReadingProcedure, 4> procedures = {
      {{"spTWCqvGetContext",
        {VarChar},
        {"Caption", "EntityKey", "EntityName", "spGetOwnerName", "GroupByType", "AllowRowSizing", "RowHeight",
         "EditBehavior"}},
       {"spTWCqvGetRemarkTypes", {VarChar}, {"TypeID", "Caption", "Priority"}},
       {"spTWCqvGetUserRights", {VarChar}, {"TypeID", "CanCreate", "CanRead", "CanUpdate", "CanDelete"}},
       {"spTWCqvGetFilteredMemos",
        {VarChar, SmallInt, Integer},
        {"TypeID", "MemoKey", "DateStamp", "UserID", "MemoText"}}}};
  return procedures;
}

ado::Parameter Nothing(ado::DataType type) {
  constexpr std::int32_t kIdSize = 30;
  const bool isText = ado::IsTextType(type);
  return ado::Command::CreateParameter("", type, ado::ParameterDirection::Input, isText ? kIdSize : 0,
                                       isText ? Value{std::string()} : Value{std::int64_t{0}});
}

bool HasColumn(const ado::Recordset& rows, std::string_view name) {
  for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
    if (ado::SameName(rows.Fields(i).Name(), name)) return true;
  }
  return false;
}

std::string ResultProblem(const ado::Recordset& rows, const std::vector<std::string_view>& columns) {
  if (!rows.IsOpen()) return "it returns no result";
  std::vector<std::string_view> missing;
  std::copy_if(columns.begin(), columns.end(), std::back_inserter(missing),
               [&](std::string_view column) { return !HasColumn(rows, column); });
  return missing.empty() ? "" : fmt::format("its result lacks {}", fmt::join(missing, ", "));
}

std::string ProblemOf(ado::Connection& connection, const ReadingProcedure& procedure) {
  ado::Command command;
  command.SetActiveConnection(connection.shared_from_this());
  command.SetCommandType(ado::CommandType::StoredProcedure);
  command.SetCommandText(std::string(procedure.name));
  command.SetAccess(ado::Access::Read);
  for (const ado::DataType type : procedure.parameters) command.Append(Nothing(type));
  try {
    return ResultProblem(*command.Execute(), procedure.columns);
  } catch (const Error& error) {
    return error.Description();
  }
}

}  // namespace

std::string ReadingProblem(ado::Connection& connection, std::string_view procedure) {
  const auto& known = ReadingProcedures();
  const auto* const found =
      std::find_if(known.begin(), known.end(), [&](const auto& each) { return each.name == procedure; });
  return found == known.end() ? "" : ProblemOf(connection, *found);
}

std::string LookupProblem(ado::Connection& connection, std::string_view procedure) {
  return ProblemOf(connection, {procedure, {ado::DataType::VarChar}, {"OwnerKey", "OwnerName"}});
}

}  // namespace quorvel::cli
