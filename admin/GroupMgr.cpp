// Groups. A group's users, rights and remark types are linked in the same way, so a table describes the three tabs.

#include "admin/GroupMgr.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "admin/Deletion.h"
#include "data/modDatabase.h"
#include "data/modWaitCursor.h"
#include "platform/CurrentPrompts.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

constexpr std::string_view kDefaultGroup = "Default";

constexpr std::string_view kSelectGroup =
    "SELECT GroupID "
    "FROM ttwGroup "
    "WHERE GroupKey = ";

// The group's key follows.
constexpr std::string_view kUsersOfGroup =
    "SELECT DISTINCT g.UserKey, g.UserID "
    "FROM ttwUser g INNER JOIN ttwGroupMember m "
    "ON g.UserKey = m.UserKey "
    "WHERE m.GroupKey = ";
constexpr std::string_view kRightsOfGroup =
    "SELECT DISTINCT g.RightKey, g.RightID, g.Caption "
    "FROM ttwRight g INNER JOIN ttwRightAssignment m "
    "ON g.RightKey = m.RightKey "
    "WHERE m.GroupKey = ";
constexpr std::string_view kRemarkTypesOfGroup =
    "SELECT DISTINCT g.RemarkTypeKey, g.RemarkTypeID, g.Caption "
    "FROM ttwRemarkType g INNER JOIN ttwRemarkRight m "
    "ON g.RemarkTypeKey = m.RemarkTypeKey "
    "WHERE m.GroupKey = ";

// The keys stand in the braces.
constexpr std::string_view kRightOfType =
    "SELECT RemarkRightKey, CanCreate, CanRead, CanUpdate, CanDelete "
    "FROM ttwRemarkRight "
    "WHERE RemarkTypeKey = {}"
    "  AND GroupKey = {}";

constexpr RecordKind kGroups = {.table = "ttwGroup",
                                .keyField = "GroupKey",
                                .idField = "GroupID",
                                .selectByKey = kSelectGroup,
                                .definedText = " is already defined as a group",
                                .definedTitle = "Group Already Defined",
                                .recordset = modRecordsets::Groups,
                                .filter = [](const Record& group) { modRecordsets::FilterGroup(group.id); },
                                .clearFilter = modRecordsets::ClearGroupFilter};

}  // namespace

struct GroupMgr::Tab {
  std::string_view caption;
  ChildLists Controls::*lists;
  std::string_view allSql;
  std::string_view linkedSql;
  std::string_view displayField;
  std::string_view keyField;
  std::string_view addProcedure;
  std::string_view removeProcedure;
  std::string_view keyParameter;
};

const GroupMgr::Tab* GroupMgr::CurrentTab() const {
  static constexpr Tab kTabs[] = {
      {"Users", &Controls::users, "SELECT UserKey, UserID FROM ttwUser", kUsersOfGroup, "UserID", "UserKey",
       "spTWCqvAddGroupMember", "spTWCqvRemoveGroupMember", "@UserKey"},
      {"Rights", &Controls::rights, "SELECT RightKey, RightID, Caption FROM ttwRight", kRightsOfGroup, "RightID",
       "RightKey", "spTWCqvAddGroupRight", "spTWCqvRemoveGroupRight", "@RightKey"},
      {"Remarks", &Controls::remarkTypes, "SELECT RemarkTypeKey, RemarkTypeID, Caption FROM ttwRemarkType",
       kRemarkTypesOfGroup, "Caption", "RemarkTypeKey", "spTWCqvAddRemarkRight", "spTWCqvRemoveRemarkRight",
       "@RemarkTypeKey"}};
  const auto* const tab =
      std::find_if(std::begin(kTabs), std::end(kTabs), [this](const Tab& t) { return IsTab(t.caption); });
  return tab == std::end(kTabs) ? nullptr : tab;
}

GroupMgr::GroupMgr() : Manager(kGroups, kDefaultGroup) {}

void GroupMgr::BindControls(const Controls& controls) {
  m_controls = controls;
  m_flags = {{{"chkRight0", "CanCreate", controls.chkRight[0]},
              {"chkRight1", "CanUpdate", controls.chkRight[1]},
              {"chkRight2", "CanRead", controls.chkRight[2]},
              {"chkRight3", "CanDelete", controls.chkRight[3]}}};
}

void GroupMgr::ShowFields(const ado::Recordset* row) {
  m_controls.txtCaption->SetText(TextOf(row, "Caption"));
  m_controls.txtComment->SetText(TextOf(row, "Comments"));
}

void GroupMgr::ShowChildren() {
  const Tab* const tab = CurrentTab();
  if (tab == nullptr) return;
  InitControls();
  (m_controls.*tab->lists)
      .Fill(tab->allSql, fmt::format("{}{}", tab->linkedSql, Current().key), tab->displayField, tab->keyField);
}

void GroupMgr::Create() { CreateRecord("Group", "spTWCAddGroup"); }

void GroupMgr::Delete() {
  if (EqualIgnoringCase(Current().id, kDefaultGroup)) {
    CurrentPrompts().ShowMessage("The Default group may not be deleted", "Cannot Delete Group", PromptButtons::Ok,
                                 PromptIcon::CriticalStop);
    return;
  }
  for (const std::string_view tab : {"Remarks", "Rights", "Users"}) FillTab(tab);
  const std::string relation = RelationText({{m_controls.remarkTypes.lstCurrent->Count(), " Remark Type(s)"},
                                             {m_controls.users.lstCurrent->Count(), " User(s) "},
                                             {m_controls.rights.lstCurrent->Count(), " Right(s)"}});
  if (!relation.empty() &&
      !ConfirmDelete("Confirm Delete Entity", Current().id, " is a group related to " + relation, kSureAfterPeriod)) {
    return;
  }
  const modWaitCursor::BusyPointer busy;
  modDatabase::ExecSP("spTWCDeleteGroup", {{"@GroupKey", std::int64_t{Current().key}}});
  Requery();
  ShowGeneralPanel();
  InitControls();
}

void GroupMgr::AddChild(std::int32_t key) {
  if (const Tab* const tab = CurrentTab()) Link(tab->addProcedure, *tab, key);
  InitControls();
}

void GroupMgr::RemoveChild(std::int32_t key) {
  if (const Tab* const tab = CurrentTab()) Link(tab->removeProcedure, *tab, key);
  InitControls();
}

void GroupMgr::Link(std::string_view procedure, const Tab& tab, std::int32_t key) const {
  modDatabase::ExecSP(procedure, {{"@GroupKey", std::int64_t{Current().key}}, {tab.keyParameter, std::int64_t{key}}});
}

// The key may be that of a user or a right: only the list of remark types tells what the check boxes show.
void GroupMgr::ShowRight(std::int32_t /*key*/) {
  EnableFlags(m_flags, true);
  const ItemList& types = *m_controls.remarkTypes.lstCurrent;
  if (types.ListIndex() < 0) return;
  ShowFlags(m_flags, *QueryLink(fmt::format(kRightOfType, SelectedKey(types), Current().key)));
}

void GroupMgr::Update(std::string_view field) {
  if (EqualIgnoringCase(field, "Caption")) {
    WriteText("Caption", *m_controls.txtCaption);
  } else if (EqualIgnoringCase(field, "Comment")) {
    WriteText("Comments", *m_controls.txtComment);
  } else if (const LinkFlag* const flag = FindFlag(m_flags, field)) {
    const std::int32_t type = SelectedKey(*m_controls.remarkTypes.lstCurrent);
    WriteFlag(*flag, {"ttwRemarkRight", "GroupKey", Current().key, "RemarkTypeKey", type});
    ShowRight(type);
  }
}

void GroupMgr::InitControls() { EnableFlags(m_flags, false); }

}  // namespace quorvel
