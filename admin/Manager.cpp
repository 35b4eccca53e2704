#include "admin/Manager.h"

#include <fmt/format.h>

#include <utility>

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

bool Manager::IsTab(std::string_view caption) const noexcept { return EqualIgnoringCase(m_tab, caption); }

void Manager::SelectKey(std::int32_t key) {
  const auto row = Query(fmt::format("{}{}", m_kind.selectByKey, key));
  if (row->EndOfFile()) ThrowGone(CboID().CurrentText());
  const std::string id = ToText(row->Fields(m_kind.idField).Value());
  m_current = {key, std::string(TrimBlanks(id))};
  ShowGeneralPanel();
}

const modRecordsets::SharedRecordset& Manager::Rows() const {
  const modRecordsets::SharedRecordset& rows = m_kind.recordset();
  if (!rows) ThrowObjectNotSet();
  return rows;
}

void Manager::Fill() {
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

void Manager::ShowStoredFields() {
  if (m_current.key == 0) return ShowFields(nullptr);
  const Narrowed current(m_kind, m_current);
  ShowFields(current.Row());
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
    modDatabase::UpdateField(m_kind.table, column, value, m_kind.keyField, std::int64_t{m_current.key});
  } catch (...) {
    RestoreFields();
    throw;
  }
  modRecordsets::InitGlobalRecordset(m_kind.recordset());
  if (!IsStored()) ThrowGone(m_current.id);
  ShowStoredFields();
}

bool Manager::IsStored() const { return Narrowed(m_kind, m_current).Row() != nullptr; }

// The caller is about to report the first error. A second one, while the former values are read, would hide it.
void Manager::RestoreFields() noexcept {
  try {
    ShowStoredFields();
  } catch (...) {  // NOLINT(bugprone-empty-catch)
  }
}

// An update of a deleted row succeeds without touching anything, and the typed text would be lost in silence.
void Manager::ThrowGone(std::string_view id) {
  Requery();
  ShowGeneralPanel();
  throw Error(ErrorNumber::Component, "Manager",
              fmt::format("\"{}\" is no longer there: somebody else has deleted it. The list shows the records that "
                          "there are now.",
                          id));
}

}  // namespace quorvel
