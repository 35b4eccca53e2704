// Contexts. The list of a context's remark types is in the order of their positions, and the positions are numbered
// from it, so the list is read again after each exchange.

#include "admin/ContextMgr.h"

#include <fmt/format.h>

#include <string>

#include "admin/Deletion.h"
#include "admin/EntityID.h"
#include "admin/Query.h"
#include "data/modControls.h"
#include "data/modDatabase.h"
#include "data/modWaitCursor.h"

namespace quorvel {
namespace {

constexpr std::string_view kSelectContext =
    "SELECT ContextID, RemarkEntityKey "
    "FROM ttwContext "
    "WHERE ContextKey = ";

// The entity's key follows.
constexpr std::string_view kTypesOfEntity =
    "SELECT RemarKTypeKey, RemarKTypeID, Caption FROM ttwRemarkType "
    "WHERE  ttwRemarkType.RemarkEntityKey = ";

// The context's key stands in the braces.
constexpr std::string_view kTypesOfContext =
    "SELECT DISTINCT rt.RemarKTypeKey, rt.RemarKTypeID, rt.Caption, rc.DisplaySeq "
    "FROM ttwRemarKType rt INNER JOIN ttwRemarkContext rc ON rc.RemarkTypeKey = rt.RemarkTypeKey "
    "WHERE rc.ContextKey = {}"
    "ORDER BY rc.DisplaySeq";

constexpr RecordKind kContexts = {.table = "ttwContext",
                                  .keyField = "ContextKey",
                                  .idField = "ContextID",
                                  .selectByKey = kSelectContext,
                                  .definedText = " is already defined as a context.",
                                  .definedTitle = "Context Already Defined",
                                  .recordset = modRecordsets::Contexts,
                                  .filter = [](const Record& context) { modRecordsets::FilterContext(context.id); },
                                  .clearFilter = modRecordsets::ClearContextFilter};

std::int32_t NumberOf(const ado::Recordset* row, std::string_view column) {
  return row == nullptr ? 0 : ToInt32(row->Fields(column).Value());
}

}  // namespace

ContextMgr::ContextMgr() : Manager(kContexts) {}

void ContextMgr::BindControls(const Controls& controls) {
  m_controls = controls;
  m_priority = {{{"chkRight9", "Priority", controls.chkRight}}};
}

void ContextMgr::ShowFields(const ado::Recordset* row) {
  m_entityKey = NumberOf(row, "RemarkEntityKey");
  m_controls.txtCaption->SetText(TextOf(row, "Caption"));
  m_controls.txtComment->SetText(TextOf(row, "Comments"));
  modControls::SetCheck(*m_controls.chkGroupByType, NumberOf(row, "GroupByType") != 0);
  modControls::SetCheck(*m_controls.chkAllowRowSizing, NumberOf(row, "AllowRowSizing") != 0);
  const std::int32_t rowHeight = NumberOf(row, "RowHeight");
  m_controls.udRowHeight->SetValue(rowHeight);
  m_controls.txtRowHeight->SetText(std::to_string(rowHeight));
  ShowEditBehavior(row);
}

// A number without an entry shows none: the former context's would be taken for this one's.
void ContextMgr::ShowEditBehavior(const ado::Recordset* row) {
  m_controls.cboEditBehavior->SetListIndex(kNoItem);
  if (row != nullptr) modControls::SelectByKey(*m_controls.cboEditBehavior, NumberOf(row, "EditBehavior"), false);
}

void ContextMgr::ShowGeneralPanel() {
  m_controls.txtEntity->SetText({});
  Manager::ShowGeneralPanel();
  m_controls.txtEntity->SetText(ReadEntityID(m_entityKey));
}

void ContextMgr::ShowChildren() {
  if (!IsTab("Remarks")) return;
  InitControls();
  m_controls.remarkTypes.Fill(fmt::format("{}{}", kTypesOfEntity, m_entityKey),
                              fmt::format(kTypesOfContext, Current().key), "Caption", "RemarkTypeKey");
}

void ContextMgr::Create() {
  const NewItem item = m_controls.frmNewContext->AskForContext();
  if (item.id.empty() || IsRefused(item.id)) return;
  const modWaitCursor::BusyPointer busy;
  modDatabase::ExecSP("spTWCAddContext", {{"@RemarkEntityKey", std::int64_t{item.entityKey}}, {"@ContextID", item.id}});
  Requery();
  MakeCurrent(item.id);
  InitControls();
}

void ContextMgr::Delete() {
  FillTab("Remarks");
  const std::int32_t types = m_controls.remarkTypes.lstCurrent->Count();
  const std::string relation = fmt::format(" is associated with {} remark type(s).", types);
  if (types > 0 && !ConfirmDelete("Confirm Delete Context", Current().id, relation, kSure)) return;
  const modWaitCursor::BusyPointer busy;
  modDatabase::ExecSP("spTWCDeleteContext", {{"@ContextKey", std::int64_t{Current().key}}});
  Requery();
  ShowGeneralPanel();
  InitControls();
}

ListedTypes ContextMgr::Types() const { return {Current().key, *m_controls.remarkTypes.lstCurrent}; }

void ContextMgr::AddChild(std::int32_t key) {
  Types().Append(key);
  InitControls();
}

void ContextMgr::RemoveChild(std::int32_t /*key*/) {
  Types().RemoveCurrent();
  InitControls();
}

void ContextMgr::ShowRight(std::int32_t key) {
  ShowFlags(m_priority, *Types().Link(key));
  EnableFlags(m_priority, true);
  EnableMoves();
}

void ContextMgr::EnableMoves() {
  const ItemList& types = *m_controls.remarkTypes.lstCurrent;
  const std::int32_t index = types.ListIndex();
  m_controls.cmdUp->SetEnabled(index > 0);
  m_controls.cmdDown->SetEnabled(index >= 0 && index + 1 < types.Count());
}

void ContextMgr::Update(std::string_view field) {
  if (field == "Caption") {
    WriteText("Caption", *m_controls.txtCaption);
  } else if (field == "Comment") {
    WriteText("Comments", *m_controls.txtComment);
  } else if (field == "RowHeight") {
    WriteNumber("RowHeight", m_controls.udRowHeight->Value());
  } else if (field == "chkAllowRowSizing") {
    WriteNumber("AllowRowSizing", m_controls.chkAllowRowSizing->Value());
  } else if (field == "chkGroupByType") {
    WriteNumber("GroupByType", m_controls.chkGroupByType->Value());
  } else if (field == "EditBehavior") {
    WriteNumber("EditBehavior", SelectedKey(*m_controls.cboEditBehavior));
  } else if (field == "chkRight9") {
    WritePriority();
  } else if (field == "Up") {
    MoveSelected(-1);
  } else if (field == "Down") {
    MoveSelected(1);
  }
}

void ContextMgr::WriteNumber(std::string_view column, std::int32_t number) { WriteField(column, std::int64_t{number}); }

void ContextMgr::WritePriority() {
  const std::int32_t type = SelectedKey(*m_controls.remarkTypes.lstCurrent);
  WriteFlag(m_priority.front(), {"ttwRemarkContext", "RemarkTypeKey", type, "ContextKey", Current().key});
  ShowRight(type);
}

void ContextMgr::MoveSelected(std::int32_t offset) {
  const ItemList& types = *m_controls.remarkTypes.lstCurrent;
  const std::int32_t index = types.ListIndex();
  const std::int32_t other = index + offset;
  if (index < 0 || other < 0 || other >= types.Count()) return;
  const std::int32_t moved = types.Datum(index);
  try {
    Types().Exchange(index, other);
  } catch (...) {
    ListTypesAfterFailure(moved);
    throw;
  }
  ListTypes(moved);
}

void ContextMgr::ListTypes(std::int32_t selectedKey) {
  ItemList& list = *m_controls.remarkTypes.lstCurrent;
  const auto types = Query(fmt::format(kTypesOfContext, Current().key));
  modDatabase::FillList(list, types->RecordCount(), "Caption", "RemarkTypeKey", types);
  modControls::SelectByKey(list, selectedKey, false);
  EnableMoves();
}

// One of the two writes may have succeeded. An error of the reading would hide the one that the caller is about to
// report.
void ContextMgr::ListTypesAfterFailure(std::int32_t selectedKey) noexcept {
  try {
    ListTypes(selectedKey);
  } catch (...) {  // NOLINT(bugprone-empty-catch)
  }
}

void ContextMgr::InitControls() {
  EnableFlags(m_priority, false);
  m_controls.cmdUp->SetEnabled(false);
  m_controls.cmdDown->SetEnabled(false);
}

}  // namespace quorvel
