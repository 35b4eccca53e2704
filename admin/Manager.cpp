// The current record is shown from the global recordset, narrowed to it by a filter. A write goes to the database
// first; then the recordset is loaded again, so that the fields show what is stored and not what was typed.

#include "admin/Manager.h"

#include <fmt/format.h>

#include "admin/Query.h"
#include "data/modControls.h"
#include "data/modDatabase.h"
#include "data/modWaitCursor.h"
#include "platform/AtScopeEnd.h"
#include "platform/CurrentPrompts.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

/// Narrows the kind's recordset to one record, for the life of the object.
class Narrowed {
 public:
  Narrowed(const RecordKind& kind, const Record& record) : m_kind(kind) { kind.filter(record); }
  ~Narrowed() { m_kind.clearFilter(); }
  Narrowed(const Narrowed&) = delete;
  Narrowed& operator=(const Narrowed&) = delete;

  /// Null when there is no such record.
  [[nodiscard]] const ado::Recordset* Row() const {
    const ado::Recordset& rows = *m_kind.recordset();
    return rows.EndOfFile() ? nullptr : &rows;
  }

 private:
  const RecordKind& m_kind;
};

}  // namespace

Manager::Manager(const RecordKind& kind, std::string_view firstID) : m_kind(kind), m_current{0, std::string(firstID)} {}

void Manager::Init(Choice& cboID) { m_cboID = &cboID; }

void Manager::Refresh() {
  Fill();
  ShowGeneralPanel();
}

void Manager::selectTab(std::string_view caption) {
  m_tab = caption;
  if (IsTab("General")) {
    ShowGeneralPanel();
  } else {
    ShowChildren();
  }
}

void Manager::FillTab(std::string_view caption) {
  const AtScopeEnd restore([this, tab = m_tab] { m_tab = tab; });
  m_tab = caption;
  ShowChildren();
}

std::string Manager::TextOf(const ado::Recordset* row, std::string_view column) {
  return row == nullptr ? std::string() : modDatabase::FieldText(row->Fields(column));
}

bool Manager::IsTab(std::string_view caption) const noexcept { return EqualIgnoringCase(m_tab, caption); }

void Manager::SelectKey(std::int32_t key) {
  m_current = {key, StoredID(key)};
  ShowGeneralPanel();
}

// After a failure the former record stays current. The combo box must not name another one beside its fields.
std::string Manager::StoredID(std::int32_t key) {
  try {
    const auto row = Query(fmt::format("{}{}", m_kind.selectByKey, key));
    if (row->EndOfFile()) ThrowGone(CboID().CurrentText());
    return std::string(TrimBlanks(ToText(row->Fields(m_kind.idField).Value())));
  } catch (...) {
    modControls::SelectByKey(CboID(), m_current.key, false);
    throw;
  }
}

const modRecordsets::SharedRecordset& Manager::Rows() const {
  const modRecordsets::SharedRecordset& rows = m_kind.recordset();
  if (!rows) ThrowObjectNotSet();
  return rows;
}

void Manager::Fill() {
  CboID().Clear();  // a failed load must not leave the records of another view
  modDatabase::FillList(CboID(), Rows()->RecordCount(), m_kind.idField, m_kind.keyField, Rows());
  modControls::SelectByText(CboID(), m_current.id, true);
  Adopt();
}

// The record that the combo box shows is the current one: the former one may be deleted.
void Manager::Adopt() {
  Choice& list = CboID();
  if (list.ListIndex() < 0 && list.Count() > 0) list.SetListIndex(0);
  const std::int32_t index = list.ListIndex();
  m_current = index < 0 ? Record() : Record{list.Datum(index), list.Text(index)};
}

void Manager::CreateRecord(const std::string& kind, std::string_view procedure,
                           const std::function<void(const std::string& id)>& added) {
  std::string id;
  modDatabase::GetNewID(kind, id);
  if (id.empty() || IsRefused(id)) return;
  const modWaitCursor::BusyPointer busy;
  modDatabase::ExecSP(procedure, {{fmt::format("@{}", m_kind.idField), id}});
  Requery();
  if (added) added(id);
  MakeCurrent(id);
}

void Manager::Requery() {
  modRecordsets::InitGlobalRecordset(m_kind.recordset());
  Fill();
}

void Manager::MakeCurrent(const std::string& id) {
  modControls::SelectByText(CboID(), id, true);
  Adopt();
  ShowGeneralPanel();
}

void Manager::ShowGeneralPanel() {
  const modWaitCursor::BusyPointer busy;
  ShowStoredFields();
}

// A record that cannot be shown gets empty fields: values of another one would be taken for its own.
void Manager::ShowStoredFields() {
  if (m_current.key == 0) return ShowFields(nullptr);
  try {
    const Narrowed current(m_kind, m_current);
    ShowFields(current.Row());
  } catch (...) {
    ShowFields(nullptr);
    throw;
  }
}

bool Manager::IsDefined(const std::string& id) const { return Narrowed(m_kind, {0, id}).Row() != nullptr; }

bool Manager::IsRefused(const std::string& id) const {
  if (!IsDefined(id)) return false;
  CurrentPrompts().ShowMessage(id + std::string(m_kind.definedText), m_kind.definedTitle, PromptButtons::Ok,
                               PromptIcon::None);
  return true;
}

void Manager::WriteField(std::string_view column, const Value& value) {
  try {
    // The fields of a record that cannot be shown are empty, and a write would replace a value that the user cannot
    // see.
    static_cast<void>(IsStored());
    modDatabase::UpdateField(m_kind.table, column, value, m_kind.keyField, std::int64_t{m_current.key});
  } catch (...) {
    RestoreFields();
    throw;
  }
  modRecordsets::InitGlobalRecordset(m_kind.recordset());
  if (!IsStored()) ThrowGone(m_current.id);
  ShowStoredFields();
}

void Manager::WriteText(std::string_view column, const TextField& box) {
  WriteField(column, modDatabase::StripChars(box.Text()));
}

// A record with the same ID and another key is a new one, which another administrator has added in place of this one.
bool Manager::IsStored() const {
  const Narrowed current(m_kind, m_current);
  const ado::Recordset* const row = current.Row();
  return row != nullptr && ToInt32(row->Fields(m_kind.keyField).Value()) == m_current.key;
}

// The caller is about to report the first error. A second one, while the former values are read, would hide it.
void Manager::RestoreFields() noexcept {
  try {
    ShowStoredFields();
  } catch (...) {  // NOLINT(bugprone-empty-catch)
  }
}

// An update of a deleted row succeeds without touching anything, and the typed text would be lost in silence.
void Manager::ThrowGone(const std::string& id) {
  // Composed before Requery, which replaces the current record, because the ID may be its.
  const std::string message = fmt::format(
      "\"{}\" is no longer there: somebody else has deleted it. The list shows the records that there are "
      "now.",
      id);
  Requery();
  ShowGeneralPanel();
  throw Error(ErrorNumber::Component, "Manager", message);
}

}  // namespace quorvel
