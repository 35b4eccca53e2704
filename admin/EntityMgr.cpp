// Remark entities. Types and contexts belong to one entity for good, so the tabs only show them.

#include "admin/EntityMgr.h"

#include <fmt/format.h>

#include <string>

#include "admin/Deletion.h"
#include "admin/Query.h"
#include "data/modDatabase.h"
#include "data/modWaitCursor.h"
#include "platform/AtScopeEnd.h"
#include "platform/Text.h"
#include "platform/Value.h"

namespace quorvel {
namespace {

constexpr std::string_view kSelectEntity =
    "SELECT RemarkEntityID "
    "FROM ttwRemarkEntity "
    "WHERE RemarkEntityKey = ";

// The entity's key stands between the two parts of a statement.
constexpr std::string_view kOwnContexts =
    "SELECT DISTINCT t.ContextID, t.ContextKey, t.Caption "
    "FROM ttwContext t "
    "Where t.RemarkEntityKey = ";
constexpr std::string_view kOwnContextsEnd = "ORDER BY t.ContextKey, t.ContextID";

constexpr std::string_view kOwnRemarkTypes =
    "SELECT DISTINCT rtrim(t.RemarkTypeID) as RemarkTypeID, t.RemarkTypeKey, t.Caption "
    "FROM ttwRemarkType t "
    "Where t.RemarkEntityKey = ";
constexpr std::string_view kOwnRemarkTypesEnd = "ORDER BY t.RemarkTypeKey, t.RemarkTypeID";

constexpr RecordKind kEntities = {
    .table = "ttwRemarkEntity",
    .keyField = "RemarkEntityKey",
    .idField = "RemarkEntityID",
    .selectByKey = kSelectEntity,
    .definedText = " is already defined as a Entity",
    .definedTitle = "Entity Already Defined",
    .recordset = modRecordsets::RemarkEntities,
    .filter = [](const Record& entity) { modRecordsets::FilterEntity(ToInt16(std::int64_t{entity.key})); },
    .clearFilter = modRecordsets::ClearEntityFilter};

/// Shows the rows of a statement and returns their number.
std::int32_t ShowRows(RowsView& grid, const std::string& sql) {
  grid.Show(nullptr);
  const auto rows = QueryDetached(sql);
  grid.Show(rows);
  return rows->RecordCount();
}

std::string RelationsOf(std::int32_t remarkTypes, std::int32_t contexts) {
  const Relation withContexts = {contexts, " Context(s) "};
  // RelationText puts " and " before the second part even where it is the only one.
  if (remarkTypes == 0) return RelationText({withContexts});
  return RelationText({{remarkTypes, " Remark Type(s)"}, withContexts});
}

}  // namespace

EntityMgr::EntityMgr() : Manager(kEntities) {}

void EntityMgr::Init(Choice& cboID) {
  Manager::Init(cboID);
  modRecordsets::ClearEntityFilter();
  const ado::Recordset& first = *Rows();
  if (first.EndOfFile()) return;
  SetCurrent({ToInt32(first.Fields("RemarkEntityKey").Value()), TextOf(&first, "RemarkEntityID")});
}

void EntityMgr::ShowFields(const ado::Recordset* row) {
  m_controls.txtCaption->SetText(TextOf(row, "Caption"));
  m_controls.txtComment->SetText(TextOf(row, "Comments"));
  m_controls.txtProcedure->SetText(TextOf(row, "spGetOwnerName"));
  m_controls.txtEntity->SetText(TextOf(row, "AcuityEntityKey"));
}

void EntityMgr::ShowChildren() {
  if (IsTab("Contexts")) {
    ShowContexts();
  } else if (IsTab("Remarks")) {
    ShowRemarkTypes();
  }
}

std::int32_t EntityMgr::ShowContexts() {
  return ShowRows(*m_controls.grdContexts, fmt::format("{}{}{}", kOwnContexts, Current().key, kOwnContextsEnd));
}

std::int32_t EntityMgr::ShowRemarkTypes() {
  return ShowRows(*m_controls.grdRemarks, fmt::format("{}{}{}", kOwnRemarkTypes, Current().key, kOwnRemarkTypesEnd));
}

// The filter knows only keys, so the rows are compared one by one.
bool EntityMgr::IsDefined(const std::string& id) const {
  const auto& rows = Rows();
  const AtScopeEnd rewind(modRecordsets::ClearEntityFilter);
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    if (EqualIgnoringCase(TrimBlanks(TextOf(rows.get(), "RemarkEntityID")), id)) return true;
  }
  return false;
}

void EntityMgr::Create() { CreateRecord("Entity", "spTWCAddRemarkEntity"); }

void EntityMgr::Delete() {
  const std::int32_t contexts = ShowContexts();
  const std::int32_t remarkTypes = ShowRemarkTypes();
  const std::string relation = " is a entity related to " + RelationsOf(remarkTypes, contexts);
  if (contexts + remarkTypes > 0 && !ConfirmDelete("Confirm Delete Entity", Current().id, relation, kSureAfterPeriod)) {
    return;
  }
  const modWaitCursor::BusyPointer busy;
  modDatabase::ExecSP("spTWCDeleteRemarkEntity", {{"@RemarkEntityKey", std::int64_t{Current().key}}});
  Requery();
  ShowGeneralPanel();
}

void EntityMgr::Update(std::string_view field) {
  if (EqualIgnoringCase(field, "Caption")) {
    WriteText("Caption", *m_controls.txtCaption);
  } else if (EqualIgnoringCase(field, "Comment")) {
    WriteText("Comments", *m_controls.txtComment);
  } else if (EqualIgnoringCase(field, "Procedure")) {
    WriteText("spGetOwnerName", *m_controls.txtProcedure);
  } else if (EqualIgnoringCase(field, "EntityKey")) {
    WriteText("AcuityEntityKey", *m_controls.txtEntity);
  }
}

}  // namespace quorvel
