// Users and their memberships. A user's rights are those of his groups, so this view only shows them.

#include "admin/UserMgr.h"

#include <fmt/format.h>

#include <string>

#include "admin/Deletion.h"
#include "admin/EffectiveRights.h"
#include "data/modControls.h"
#include "data/modDatabase.h"
#include "data/modUserName.h"
#include "data/modWaitCursor.h"
#include "platform/AtScopeEnd.h"
#include "platform/CurrentPrompts.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

constexpr std::string_view kSelectUser =
    "SELECT UserID "
    "FROM ttwUser "
    "WHERE UserKey = ";

// The user's key follows.
constexpr std::string_view kGroupsOfUser =
    "SELECT DISTINCT g.GroupKey, g.GroupID, g.Caption "
    "FROM ttwGroup g INNER JOIN ttwGroupMember m "
    "ON g.GroupKey = m.GroupKey "
    "WHERE m.UserKey = ";

/// Every new user joins this group. The schema creates it first.
constexpr std::int64_t kFirstGroup = 1;

constexpr std::int32_t kNoEntry = -1;
constexpr std::int32_t kNoBranch = 0;  // the item "<none>"

constexpr RecordKind kUsers = {.table = "ttwUser",
                               .keyField = "UserKey",
                               .idField = "UserID",
                               .selectByKey = kSelectUser,
                               .definedText = " is already defined as a user.",
                               .definedTitle = "User Already Defined",
                               .recordset = modRecordsets::Users,
                               .filter = [](const Record& user) { modRecordsets::FilterUser(user.id); },
                               .clearFilter = modRecordsets::ClearUserFilter};

/// The key of the user with that ID, who has just been added.
std::int64_t KeyOfNewUser(const std::string& id) {
  modRecordsets::FilterUser(id);
  const AtScopeEnd clear([] { modRecordsets::ClearUserFilter(); });
  return ToInt64(modRecordsets::Users()->Fields("UserKey").Value());
}

}  // namespace

UserMgr::UserMgr() : Manager(kUsers) {}

void UserMgr::FillBranches() {
  const auto& branches = modRecordsets::Branches();
  if (!branches) ThrowObjectNotSet();
  modControls::FillCombo(*m_controls.cboBranch, branches->RecordCount(), "BranchID", {}, branches);
}

void UserMgr::ShowFields(const ado::Recordset* row) {
  m_loading = true;
  const AtScopeEnd loaded([this] { m_loading = false; });
  m_controls.txtFirstName->SetText(TextOf(row, "FirstName"));
  m_controls.txtLastName->SetText(TextOf(row, "LastName"));
  modControls::SetCheck(*m_controls.chkUserActive, row != nullptr && ToBoolean(row->Fields("IsActive").Value()));
  ShowBranch(TrimBlanks(TextOf(row, "BranchID")));
}

// A branch that the host has removed shows no entry: the former user's would be taken for this one's.
void UserMgr::ShowBranch(std::string_view branch) {
  m_controls.cboBranch->SetListIndex(branch.empty() ? kNoBranch : kNoEntry);
  if (!branch.empty()) modControls::SelectByText(*m_controls.cboBranch, branch, false);
}

void UserMgr::ShowChildren() {
  if (IsTab("Groups")) {
    m_controls.groups.Fill(kAllGroups, fmt::format("{}{}", kGroupsOfUser, Current().key), "GroupID", "GroupKey");
  } else if (IsTab("Rights")) {
    EffectiveRights::ShowRights(*m_controls.grdRights, Current().key);
  } else if (IsTab("Remarks")) {
    EffectiveRights::ShowRemarkRights(*m_controls.grdRemarks, Current().key);
  }
}

void UserMgr::Create() {
  CreateRecord("User", "spTWCAddUser", [](const std::string& id) {
    modDatabase::ExecSP("spTWCqvAddGroupMember", {{"@GroupKey", kFirstGroup}, {"@UserKey", KeyOfNewUser(id)}});
  });
}

void UserMgr::Delete() {
  const std::string ownID = modUserName::GetUserName();
  if (EqualIgnoringCase(Current().id, ownID)) {
    CurrentPrompts().ShowMessage("You are not permitted to delete your own userid", "Cannot Delete User",
                                 PromptButtons::Ok, PromptIcon::CriticalStop);
    return;
  }
  FillTab("Groups");
  const std::int32_t groups = m_controls.groups.lstCurrent->Count();
  const std::string relation = fmt::format(" is a member of {} group(s).", groups);
  if (groups > 0 && !ConfirmDelete("Confirm Delete User", Current().id, relation, kSure)) return;
  const modWaitCursor::BusyPointer busy;
  modDatabase::ExecSP("spTWCDeleteUser", {{"@UserKey", std::int64_t{Current().key}}});
  Requery();
  MakeCurrent(ownID);
}

void UserMgr::AddChild(std::int32_t key) { Link("spTWCqvAddGroupMember", key); }
void UserMgr::RemoveChild(std::int32_t key) { Link("spTWCqvRemoveGroupMember", key); }

void UserMgr::Link(std::string_view procedure, std::int32_t groupKey) {
  modDatabase::ExecSP(procedure, {{"@GroupKey", std::int64_t{groupKey}}, {"@UserKey", std::int64_t{Current().key}}});
}

void UserMgr::Update(std::string_view field) {
  if (EqualIgnoringCase(field, "FirstName")) {
    WriteText("FirstName", *m_controls.txtFirstName);
  } else if (EqualIgnoringCase(field, "LastName")) {
    WriteText("LastName", *m_controls.txtLastName);
  } else if (m_loading) {
    return;
  } else if (EqualIgnoringCase(field, "Branch")) {
    WriteField("BranchID", SelectedBranch());
  } else if (EqualIgnoringCase(field, "Active")) {
    WriteField("IsActive", m_controls.chkUserActive->Value() == 1);
  }
}

std::string UserMgr::SelectedBranch() const {
  const Choice& branches = *m_controls.cboBranch;
  if (branches.ListIndex() == kNoBranch) return {};
  return std::string(TrimBlanks(branches.CurrentText()));
}

}  // namespace quorvel
