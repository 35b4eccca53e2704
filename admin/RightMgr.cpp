// Rights and the groups that hold them. Users have a right only through a group, so the Users tab is read-only.

#include "admin/RightMgr.h"

#include <fmt/format.h>

#include <string>

#include "admin/Deletion.h"
#include "admin/Query.h"
#include "data/modDatabase.h"
#include "data/modWaitCursor.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

constexpr std::string_view kSelectRight =
    "SELECT RightID "
    "FROM ttwRight "
    "WHERE RightKey = ";

// The right's key follows.
constexpr std::string_view kGroupsOfRight =
    "SELECT DISTINCT g.GroupKey, g.GroupID, g.Caption "
    "FROM ttwGroup g INNER JOIN ttwRightAssignment m "
    "ON g.GroupKey = m.GroupKey "
    "WHERE m.RightKey = ";

// The right's key stands between the two parts.
constexpr std::string_view kUsersOfRight =
    "SELECT DISTINCT t.UserID, t.LastName, t.FirstName, t.BranchID "
    "FROM ttwUser t, ttwRightAssignment t1, ttwgroup t2, "
    "ttwGroupMember t3 "
    "WHERE t.UserKey = t3.UserKey and t3.GroupKey = t2.GroupKey "
    "and t2.GroupKey = t1.GroupKey "
    "and t1.RightKey = ";
constexpr std::string_view kUsersOfRightEnd = "ORDER BY t.UserID, t.LastName";

constexpr RecordKind kRights = {.table = "ttwRight",
                                .keyField = "RightKey",
                                .idField = "RightID",
                                .selectByKey = kSelectRight,
                                .definedText = " is already defined as a Right",
                                .definedTitle = "Right Already Defined",
                                .recordset = modRecordsets::Rights,
                                .filter = [](const Record& right) { modRecordsets::FilterRight(right.id); },
                                .clearFilter = modRecordsets::ClearRightFilter};

}  // namespace

RightMgr::RightMgr() : Manager(kRights) {}

void RightMgr::ShowFields(const ado::Recordset* row) {
  m_controls.txtCaption->SetText(TextOf(row, "Caption"));
  m_controls.txtComment->SetText(TextOf(row, "Comments"));
}

void RightMgr::ShowChildren() {
  if (IsTab("Groups")) {
    m_controls.groups.Fill(kAllGroups, fmt::format("{}{}", kGroupsOfRight, Current().key), "GroupID", "GroupKey");
  } else if (IsTab("Users")) {
    m_controls.grdUsers->Show(nullptr);
    m_controls.grdUsers->Show(QueryDetached(fmt::format("{}{}{}", kUsersOfRight, Current().key, kUsersOfRightEnd)));
  }
}

void RightMgr::Create() { CreateRecord("Right", "spTWCAddRight"); }

void RightMgr::Delete() {
  FillTab("Groups");
  const std::int32_t groups = m_controls.groups.lstCurrent->Count();
  const std::string relation = fmt::format(" is a right assigned to {} group(s).", groups);
  // Rights share the title of users.
  if (groups > 0 && !ConfirmDelete("Confirm Delete User", Current().id, relation, kSure)) return;
  const modWaitCursor::BusyPointer busy;
  modDatabase::ExecSP("spTWCDeleteRight", {{"@RightKey", std::int64_t{Current().key}}});
  Requery();
  ShowGeneralPanel();
}

void RightMgr::AddChild(std::int32_t key) { Link("spTWCqvAddGroupRight", key); }
void RightMgr::RemoveChild(std::int32_t key) { Link("spTWCqvRemoveGroupRight", key); }

void RightMgr::Link(std::string_view procedure, std::int32_t groupKey) {
  modDatabase::ExecSP(procedure, {{"@RightKey", std::int64_t{Current().key}}, {"@GroupKey", std::int64_t{groupKey}}});
}

void RightMgr::Update(std::string_view field) {
  if (EqualIgnoringCase(field, "Caption")) WriteText("Caption", *m_controls.txtCaption);
  if (EqualIgnoringCase(field, "Comment")) WriteText("Comments", *m_controls.txtComment);
}

}  // namespace quorvel
