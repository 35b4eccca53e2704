#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "admin/IMgr.h"
#include "data/modRecordsets.h"
#include "platform/Value.h"

namespace quorvel {

/// A record of a view: a user, a group and so on. Key 0 and an empty ID mean none.
struct Record {
  std::int32_t key = 0;
  std::string id;
};

/// The table behind a view, its global recordset, and the words for its records.
struct RecordKind {
  std::string_view table;
  std::string_view keyField;
  std::string_view idField;
  std::string_view selectByKey;   ///< the statement that reads a record by its key, which follows the text
  std::string_view definedText;   ///< after the ID, when a new one is refused
  std::string_view definedTitle;  ///< the title of that message
  const modRecordsets::SharedRecordset& (*recordset)();
  void (*filter)(const Record& record);
  void (*clearFilter)();
};

/// The common part of the six managers: the combo box of records, the current record and the current tab.
///
/// A record that another administrator has deleted meanwhile is error -1 of the operation that finds it missing; the
/// combo box then shows the records that there are.
class Manager : public IMgr {
 public:
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;

  void Init(Choice& cboID) override;
  void Refresh() override;
  void selectTab(std::string_view caption) override;
  void SelectKey(std::int32_t key) override;

 protected:
  /// Starts on the record with that ID; the empty text means the first one.
  explicit Manager(const RecordKind& kind, std::string_view firstID = {});
  ~Manager() = default;

  /// Fills the fields of the General panel from the current row of `row`; null, when there is no record, empties them.
  virtual void ShowFields(const ado::Recordset* row) = 0;
  /// Shows the current tab, which is not General.
  virtual void ShowChildren() = 0;
  /// Shows the current record. Managers whose panel has more than the fields show that as well.
  virtual void ShowGeneralPanel();

  [[nodiscard]] const Record& Current() const noexcept { return m_current; }
  /// Makes a record current without showing it.
  void SetCurrent(Record record) { m_current = std::move(record); }
  /// The recordset of the view; error 91 when its load has failed.
  [[nodiscard]] const modRecordsets::SharedRecordset& Rows() const;
  [[nodiscard]] Choice& CboID() const noexcept { return *m_cboID; }
  /// A column of `row` as text; the empty text for NULL and for no row.
  [[nodiscard]] static std::string TextOf(const ado::Recordset* row, std::string_view column);
  [[nodiscard]] bool IsTab(std::string_view caption) const noexcept;
  /// Fills the lists or the grid of a tab without making it the current one, to count what is linked.
  void FillTab(std::string_view caption);

  /// Whether the recordset has a record with that ID; if so, the user has read that it is defined already.
  [[nodiscard]] bool IsRefused(const std::string& id) const;
  [[nodiscard]] virtual bool IsDefined(const std::string& id) const;

  /// Asks for the ID of a new `kind` ("User"), adds the record with the procedure, whose parameter has the name of the
  /// ID's column, and shows it. `added` runs before it is shown. Does nothing when the user cancels or the ID is
  /// refused.
  void CreateRecord(const std::string& kind, std::string_view procedure,
                    const std::function<void(const std::string& id)>& added = {});
  /// Loads the recordset again and fills cboID from it. The current record stays current, or the first one becomes it.
  void Requery();
  /// Makes the record with that ID current and shows it; the first one when there is none with that ID.
  void MakeCurrent(const std::string& id);

  /// Writes one column of the current record, loads the recordset again and shows the stored fields. When the database
  /// refuses the value, the fields show what they held before, and the error goes to the caller.
  void WriteField(std::string_view column, const Value& value);
  /// The same for a text that the user typed: without the characters that the administration does not accept.
  void WriteText(std::string_view column, const TextField& box);

 private:
  void Fill();
  void Adopt();
  void ShowStoredFields();
  void RestoreFields() noexcept;
  [[nodiscard]] bool IsStored() const;
  [[nodiscard]] std::string StoredID(std::int32_t key);
  [[noreturn]] void ThrowGone(const std::string& id);

  const RecordKind& m_kind;
  Choice* m_cboID = nullptr;
  Record m_current;
  std::string m_tab;
};

}  // namespace quorvel
