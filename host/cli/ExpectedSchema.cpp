#include "host/cli/ExpectedSchema.h"

#include <array>

#include <fmt/format.h>

#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::cli {
namespace {

constexpr std::array kTables = {
    ExpectedTable{"ttwUser", "UserKey, UserID, LastName, FirstName, BranchID, IsActive",
                  "FirstName, LastName, BranchID, IsActive"},
    ExpectedTable{"ttwGroup", "GroupKey, GroupID, Caption, Comments", "Caption, Comments"},
    ExpectedTable{"ttwGroupMember", "GroupKey, UserKey", ""},
    ExpectedTable{"ttwRight", "RightKey, RightID, Caption, Comments", "Caption, Comments"},
    ExpectedTable{"ttwRightAssignment", "GroupKey, RightKey", ""},
    ExpectedTable{"ttwRemarkEntity",
                  "RemarkEntityKey, RemarkEntityID, Caption, spGetOwnerName, AcuityEntityKey, Comments",
                  "Caption, Comments, spGetOwnerName, AcuityEntityKey"},
    ExpectedTable{"ttwRemarkType", "RemarkTypeKey, RemarkTypeID, Caption, RemarkEntityKey, Comments",
                  "Caption, Comments"},
    ExpectedTable{"ttwRemarkRight", "RemarkRightKey, RemarkTypeKey, GroupKey, CanCreate, CanRead, CanUpdate, CanDelete",
                  "CanCreate, CanRead, CanUpdate, CanDelete"},
    ExpectedTable{"ttwContext",
                  "ContextKey, ContextID, Caption, RemarkEntityKey, Comments, GroupByType, RowHeight, AllowRowSizing, "
                  "EditBehavior",
                  "Caption, Comments, RowHeight, AllowRowSizing, GroupByType, EditBehavior"},
    ExpectedTable{"ttwRemarkContext", "ContextKey, RemarkTypeKey, DisplaySeq, Priority", "DisplaySeq, Priority"},
    ExpectedTable{"ttwBranch", "BranchID, BranchName, WhseKey, ShipMethKey, SalesTerritoryKey, SalesAcctKey", ""},
};

constexpr std::string_view kRemark = "@MemoKey, @MemoType, @EntityType, @OwnerKey, @MemoText, @UserID";

constexpr std::array kProcedures = {
    ExpectedProcedure{"spTWCqvGetContext", "@ContextID"},
    ExpectedProcedure{"spTWCqvGetRemarkTypes", "@ContextID"},
    ExpectedProcedure{"spTWCqvGetUserRights", "@UserID"},
    ExpectedProcedure{"spTWCqvGetFilteredMemos", "@ContextID, @EntityType, @OwnerKey"},
    ExpectedProcedure{"spTWCqvAddRemark", kRemark},
    ExpectedProcedure{"spTWCqvUpdateRemark", kRemark},
    ExpectedProcedure{"spTWCqvDeleteRemark", "@MemoKey"},
    ExpectedProcedure{"spGetNextSurrogateKey", "@iTableName, @oNewKey OUTPUT"},
    ExpectedProcedure{"spTWCAddUser", "@UserID"},
    ExpectedProcedure{"spTWCDeleteUser", "@UserKey"},
    ExpectedProcedure{"spTWCAddGroup", "@GroupID"},
    ExpectedProcedure{"spTWCDeleteGroup", "@GroupKey"},
    ExpectedProcedure{"spTWCAddRight", "@RightID"},
    ExpectedProcedure{"spTWCDeleteRight", "@RightKey"},
    ExpectedProcedure{"spTWCAddRemarkEntity", "@RemarkEntityID"},
    ExpectedProcedure{"spTWCDeleteRemarkEntity", "@RemarkEntityKey"},
    ExpectedProcedure{"spTWCAddRemarkType", "@RemarkTypeID, @RemarkEntityKey"},
    ExpectedProcedure{"spTWCDeleteRemarkType", "@RemarkTypeKey"},
    ExpectedProcedure{"spTWCAddContext", "@ContextID, @RemarkEntityKey"},
    ExpectedProcedure{"spTWCDeleteContext", "@ContextKey"},
    ExpectedProcedure{"spTWCqvAddGroupMember", "@GroupKey, @UserKey"},
    ExpectedProcedure{"spTWCqvRemoveGroupMember", "@GroupKey, @UserKey"},
    ExpectedProcedure{"spTWCqvAddGroupRight", "@GroupKey, @RightKey"},
    ExpectedProcedure{"spTWCqvRemoveGroupRight", "@GroupKey, @RightKey"},
    ExpectedProcedure{"spTWCqvAddRemarkRight", "@GroupKey, @RemarkTypeKey"},
    ExpectedProcedure{"spTWCqvRemoveRemarkRight", "@GroupKey, @RemarkTypeKey"},
    ExpectedProcedure{"spTWCqvAddRemarkContext", "@ContextKey, @RemarkTypeKey"},
    ExpectedProcedure{"spTWCqvRemoveRemarkContext", "@ContextKey, @RemarkTypeKey"},
};

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

std::span<const ExpectedTable> ExpectedTables() { return kTables; }

std::span<const ExpectedProcedure> ExpectedProcedures() { return kProcedures; }

std::string BatchProblem(ado::Connection& connection, std::string_view batch) {
  try {
    connection.Execute(batch);
    return {};
  } catch (const Error& error) {
    return error.Description();
  }
}

std::string TableProblem(ado::Connection& connection, std::string_view table, std::string_view columns) {
  return BatchProblem(connection, fmt::format("SELECT {} FROM {} WHERE 1 = 0", columns, table));
}

std::string ProcedureProblem(ado::Connection& connection, std::string_view procedure, std::string_view parameters) {
  try {
    const std::string found = Describe(connection.DiscoverParameters(procedure));
    if (EqualIgnoringCase(found, parameters)) return {};
    return fmt::format("it takes ({}) and not ({})", found, parameters);
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
