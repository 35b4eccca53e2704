// The rights of a user, and the groups that give them. The groups are read together with the rows: a question to the
// database while the pointer rests on a row could end in a message box at every move.

#include "admin/EffectiveRights.h"

#include <fmt/format.h>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "admin/Query.h"
#include "data/modDatabase.h"
#include "platform/Text.h"
#include "platform/Value.h"

namespace quorvel::EffectiveRights {
namespace {

// The user's key stands between the first and the last part of a statement.
constexpr std::string_view kRights =
    "Select Distinct T1.RightKey, T1.RightID, T1.Caption, T2.UserKey "
    "From (select RightKey, RightID, Caption from ttwright) T1 left join "
    "(Select Distinct t.RightKey, t.RightID, t.Caption, t4.UserKey "
    "From  ttwUser t4 left join ttwGroupMember t3 on t3.UserKey = t4.UserKey "
    "inner join ttwgroup t2 on t3.GroupKey = t2.GroupKey "
    "inner join ttwRightAssignment t1 on t1.GroupKey = t2.GroupKey "
    "inner join ttwRight t on t.RightKey = t1.RightKey "
    "WHERE t4.UserKey =";
constexpr std::string_view kRightsEnd = ") T2 on T1.RightKey = T2.RightKey";

constexpr std::string_view kRemarkRights =
    "select RTRIM(LTRIM(T1.RemarkTypeID)) as RemarkTypeID, T1.EntityCaption, rtrim(T1.Caption) as Caption, "
    "T2.CanCreate, "
    "T2.CanRead, T2.CanUpdate, T2.CanDelete From (select te.RemarkTypeID, "
    "te.RemarkTypeKey, tr1.Caption as EntityCaption, te.Caption from ttwRemarkType "
    "te inner join ttwRemarkEntity tr1 on te.RemarkEntityKey = tr1.RemarkEntityKey)T1 "
    "left join (SELECT t.RemarkTypeID as TypeID, t.Caption as Caption, "
    "max(r.CanCreate) as CanCreate, max(r.CanRead) as CanRead, "
    "max(r.CanUpdate) as CanUpdate, max(r.CanDelete) As CanDelete "
    "FROM    ttwContext c INNER JOIN ttwRemarkContext rc ON "
    "c.ContextKey = rc.ContextKey RIGHT OUTER JOIN ttwUser u INNER JOIN "
    "ttwGroupMember gm ON u.UserKey = gm.UserKey INNER JOIN ttwGroup g ON "
    "gm.GroupKey = g.GroupKey INNER JOIN ttwRemarkRight r ON "
    "g.GroupKey = r.GroupKey INNER JOIN ttwRemarkType t ON "
    "t.RemarkTypeKey = r.RemarkTypeKey ON rc.RemarkTypeKey = t.RemarkTypeKey "
    "inner join ttwRemarkEntity tr on tr.RemarkEntityKey = t.RemarkEntityKey "
    "WHERE   u.UserKey = ";
constexpr std::string_view kRemarkRightsEnd =
    "GROUP BY t.RemarkTypeID, "
    "t.Caption)T2 on T2.TypeID = T1.RemarkTypeID";

constexpr std::string_view kGroupsOfRights =
    "SELECT a.RightKey, g.GroupID "
    "FROM ttwGroupMember m INNER JOIN ttwGroup g ON g.GroupKey = m.GroupKey "
    "INNER JOIN ttwRightAssignment a ON a.GroupKey = g.GroupKey "
    "WHERE m.UserKey = {} ORDER BY g.GroupID";

constexpr std::string_view kGroupsOfRemarkRights =
    "SELECT t.RemarkTypeID, g.GroupID, r.CanCreate, r.CanRead, r.CanUpdate, r.CanDelete "
    "FROM ttwGroupMember m INNER JOIN ttwGroup g ON g.GroupKey = m.GroupKey "
    "INNER JOIN ttwRemarkRight r ON r.GroupKey = g.GroupKey "
    "INNER JOIN ttwRemarkType t ON t.RemarkTypeKey = r.RemarkTypeKey "
    "WHERE m.UserKey = {} ORDER BY g.GroupID";

/// Explanations by the first column of the row that they explain, as text.
using Explanations = std::map<std::string, std::string>;

std::string TrimmedText(const ado::Recordset& row, std::string_view column) {
  return std::string(TrimBlanks(modDatabase::FieldText(row.Fields(column))));
}

Explanations GroupsOfRights(std::int32_t userKey) {
  Explanations explanations;
  const auto rows = Query(fmt::format(kGroupsOfRights, userKey));
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    std::string& text = explanations[TrimmedText(*rows, "RightKey")];
    text += (text.empty() ? "Through: " : ", ") + TrimmedText(*rows, "GroupID");
  }
  return explanations;
}

/// "create, read": the flags that are set.
std::string FlagNames(const ado::Recordset& row) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kFlags = {
      {{"CanCreate", "create"}, {"CanRead", "read"}, {"CanUpdate", "update"}, {"CanDelete", "delete"}}};
  std::vector<std::string_view> names;
  for (const auto& [column, name] : kFlags) {
    if (ToBoolean(row.Fields(column).Value())) names.push_back(name);
  }
  return fmt::format("{}", fmt::join(names, ", "));
}

Explanations GroupsOfRemarkRights(std::int32_t userKey) {
  Explanations explanations;
  const auto rows = Query(fmt::format(kGroupsOfRemarkRights, userKey));
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    const std::string flags = FlagNames(*rows);
    if (flags.empty()) continue;
    std::string& text = explanations[TrimmedText(*rows, "RemarkTypeID")];
    text += fmt::format("{}{}: {}", text.empty() ? "" : "\n", TrimmedText(*rows, "GroupID"), flags);
  }
  return explanations;
}

void Show(RowsView& grid, const std::string& sql, Explanations (*explain)(std::int32_t), std::int32_t userKey) {
  // After a failure the grid must not show the rights of another user.
  grid.Show(nullptr);
  const auto rows = QueryDetached(sql);
  Explanations explanations = explain(userKey);
  grid.Show(rows);
  grid.Explain([rows, explanations = std::move(explanations)](std::int32_t row) {
    const auto found = explanations.find(ToText(rows->At(row, 0)));
    return found == explanations.end() ? std::string("Through no group") : found->second;
  });
}

}  // namespace

void ShowRights(RowsView& grid, std::int32_t userKey) {
  Show(grid, fmt::format("{}{}{}", kRights, userKey, kRightsEnd), GroupsOfRights, userKey);
}

void ShowRemarkRights(RowsView& grid, std::int32_t userKey) {
  Show(grid, fmt::format("{}{}{}", kRemarkRights, userKey, kRemarkRightsEnd), GroupsOfRemarkRights, userKey);
}

}  // namespace quorvel::EffectiveRights
