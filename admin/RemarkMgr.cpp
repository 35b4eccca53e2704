// Remark types. The groups' rights on a type and the contexts that offer it are links of two kinds: rights have four
// flags; a context has a position for the type and one flag.

#include "admin/RemarkMgr.h"

#include <fmt/format.h>

#include <string>

#include "admin/Deletion.h"
#include "admin/DisplaySequence.h"
#include "admin/EntityID.h"
#include "data/modDatabase.h"
#include "data/modWaitCursor.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

constexpr std::string_view kSelectRemarkType =
    "SELECT RemarkTypeID, RemarkEntityKey "
    "FROM ttwRemarkType "
    "WHERE RemarkTypeKey = ";

// The type's key follows.
constexpr std::string_view kGroupsOfType =
    "SELECT DISTINCT g.GroupKey, g.GroupID, g.Caption "
    "FROM ttwGroup g INNER JOIN ttwRemarkRight m "
    "ON g.GroupKey = m.GroupKey "
    "WHERE m.RemarkTypeKey = ";
constexpr std::string_view kContextsOfType =
    "SELECT DISTINCT rt.ContextKey, rt.ContextID, rt.Caption, rc.DisplaySeq "
    "FROM ttwContext rt INNER JOIN ttwRemarkContext rc ON rc.ContextKey = rt.ContextKey "
    "WHERE rc.RemarkTypeKey = ";

// The entity's key follows.
constexpr std::string_view kContextsOfEntity =
    "SELECT ContextKey, ContextID, Caption FROM ttwContext "
    "WHERE  ttwContext.RemarkEntityKey = ";

// The keys stand in the braces.
constexpr std::string_view kRightOfGroup =
    "SELECT RemarkRightKey, CanCreate, CanRead, CanUpdate, CanDelete "
    "FROM ttwRemarkRight "
    "WHERE GroupKey = {}"
    "  AND RemarkTypeKey = {}";
constexpr std::string_view kRemarkContext =
    "SELECT RemarkTypeKey, Priority, DisplaySeq "
    "FROM ttwRemarkContext "
    "WHERE ContextKey = {}"
    "  AND RemarkTypeKey = {}";

constexpr RecordKind kRemarkTypes = {.table = "ttwRemarkType",
                                     .keyField = "RemarkTypeKey",
                                     .idField = "RemarkTypeID",
                                     .selectByKey = kSelectRemarkType,
                                     .definedText = " is already defined as a remark type.",
                                     .definedTitle = "Remark Type Already Defined",
                                     .recordset = modRecordsets::RemarkTypes,
                                     .filter = [](const Record& type) { modRecordsets::FilterRemarkType(type.id); },
                                     .clearFilter = modRecordsets::ClearRemarkTypeFilter};

}  // namespace

RemarkMgr::RemarkMgr() : Manager(kRemarkTypes) {}

void RemarkMgr::BindControls(const Controls& controls) {
  m_controls = controls;
  m_rights = {{{"chkRight4", "CanCreate", controls.chkRight[0]},
               {"chkRight5", "CanUpdate", controls.chkRight[1]},
               {"chkRight6", "CanRead", controls.chkRight[2]},
               {"chkRight7", "CanDelete", controls.chkRight[3]}}};
  m_priority = {{{"chkRight8", "Priority", controls.chkRight[4]}}};
}

void RemarkMgr::ShowFields(const ado::Recordset* row) {
  m_entityKey = row == nullptr ? 0 : ToInt32(row->Fields("RemarkEntityKey").Value());
  m_controls.txtCaption->SetText(TextOf(row, "Caption"));
  m_controls.txtComment->SetText(TextOf(row, "Comments"));
}

void RemarkMgr::ShowGeneralPanel() {
  m_controls.txtEntity->SetText({});
  Manager::ShowGeneralPanel();
  m_controls.txtEntity->SetText(ReadEntityID(m_entityKey));
}

void RemarkMgr::ShowChildren() {
  InitControls();
  if (IsTab("Groups")) {
    m_controls.groups.Fill(kAllGroups, fmt::format("{}{}", kGroupsOfType, Current().key), "GroupID", "GroupKey");
  } else if (IsTab("Contexts")) {
    m_controls.contexts.Fill(fmt::format("{}{}", kContextsOfEntity, m_entityKey),
                             fmt::format("{}{}", kContextsOfType, Current().key), "ContextID", "ContextKey");
  }
}

void RemarkMgr::Create() {
  const NewItem item = m_controls.frmNewContext->AskForRemarkType();
  if (item.id.empty() || IsRefused(item.id)) return;
  const modWaitCursor::BusyPointer busy;
  modDatabase::ExecSP("spTWCAddRemarkType",
                      {{"@RemarkEntityKey", std::int64_t{item.entityKey}}, {"@RemarkTypeID", item.id}});
  Requery();
  MakeCurrent(item.id);
  InitControls();
}

void RemarkMgr::Delete() {
  for (const std::string_view tab : {"Contexts", "Groups"}) FillTab(tab);
  const std::string relation = RelationText({{m_controls.contexts.lstCurrent->Count(), " Context(s)"},
                                             {m_controls.groups.lstCurrent->Count(), " Group(s) "}});
  if (!relation.empty() && !ConfirmDelete("Confirm Delete Entity", Current().id,
                                          " is a remark type related to " + relation, kSureAfterPeriod)) {
    return;
  }
  const modWaitCursor::BusyPointer busy;
  modDatabase::ExecSP("spTWCDeleteRemarkType", {{"@RemarkTypeKey", std::int64_t{Current().key}}});
  Requery();
  ShowGeneralPanel();
  InitControls();
}

void RemarkMgr::AddChild(std::int32_t key) {
  if (IsTab("Groups")) LinkGroup("spTWCqvAddRemarkRight", key);
  if (IsTab("Contexts")) AppendLink({key, Current().key});
  InitControls();
}

void RemarkMgr::RemoveChild(std::int32_t key) {
  if (IsTab("Groups")) LinkGroup("spTWCqvRemoveRemarkRight", key);
  if (IsTab("Contexts")) RemoveLink({key, Current().key});
  InitControls();
}

void RemarkMgr::LinkGroup(std::string_view procedure, std::int32_t groupKey) const {
  modDatabase::ExecSP(procedure,
                      {{"@RemarkTypeKey", std::int64_t{Current().key}}, {"@GroupKey", std::int64_t{groupKey}}});
}

void RemarkMgr::ShowRight(std::int32_t key) {
  if (IsTab("Groups")) Show(m_rights, fmt::format(kRightOfGroup, key, Current().key));
  if (IsTab("Contexts")) Show(m_priority, fmt::format(kRemarkContext, key, Current().key));
}

void RemarkMgr::Show(LinkFlags flags, std::string_view linkSql) {
  ShowFlags(flags, *QueryLink(linkSql));
  EnableFlags(flags, true);
}

void RemarkMgr::Update(std::string_view field) {
  if (EqualIgnoringCase(field, "Caption")) {
    WriteText("Caption", *m_controls.txtCaption);
  } else if (EqualIgnoringCase(field, "Comment")) {
    WriteText("Comments", *m_controls.txtComment);
  } else if (const LinkFlag* const right = FindFlag(m_rights, field)) {
    Write(*right, "ttwRemarkRight", "GroupKey", *m_controls.groups.lstCurrent);
  } else if (const LinkFlag* const priority = FindFlag(m_priority, field)) {
    Write(*priority, "ttwRemarkContext", "ContextKey", *m_controls.contexts.lstCurrent);
  }
}

void RemarkMgr::Write(const LinkFlag& flag, std::string_view table, std::string_view keyField, const ItemList& list) {
  const std::int32_t key = SelectedKey(list);
  WriteFlag(flag, {table, keyField, key, "RemarkTypeKey", Current().key});
  ShowRight(key);
}

void RemarkMgr::InitControls() {
  EnableFlags(m_rights, false);
  EnableFlags(m_priority, false);
}

}  // namespace quorvel
