#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/Value.h"
#include "runtime/Publishable.h"
#include "runtime/Remark.h"

namespace quorvel {

/// The remarks of one owner, those that wait to be deleted, and a snapshot of both for undo.
class RemarkList : public Publishable {
 public:
  using Collection = std::vector<std::shared_ptr<Remark>>;

  RemarkList();
  ~RemarkList();
  RemarkList(const RemarkList&) = delete;
  RemarkList& operator=(const RemarkList&) = delete;

  /// The remark at a 1-based position; null when there is none. Items carry no keys, so a text finds nothing.
  /// Never throws.
  [[nodiscard]] std::shared_ptr<Remark> Item(const Value& i_vIndexKey) const noexcept;
  [[nodiscard]] std::int32_t Count() const noexcept;
  /// Items that pop up.
  [[nodiscard]] std::int32_t PopupCount() const noexcept;
  /// Whether anything waits to be written: a removed remark, or an item that is dirty.
  [[nodiscard]] bool Dirty() const noexcept;
  /// 1-based position of that very object; 0 when absent.
  [[nodiscard]] std::int32_t Index(const std::shared_ptr<Remark>& i_oRemark) const noexcept;

  /// Copies items and deleted for Restore.
  void Backup();
  /// Makes the backup the live collections. They are not copied again: until the next Backup, later changes
  /// change the backup too. Without any Backup the list is left without collections.
  void Restore() noexcept;

  /// Appends a new empty remark and returns it. Error 91 when the list was left without collections.
  std::shared_ptr<Remark> Add();
  /// Appends a remark. Error 91 when it is null or the list was left without collections.
  void AddRemark(std::shared_ptr<Remark> i_oRemark);

  /// Commits the dirty items in order, then deletes the removed ones and forgets them. An error stops it there:
  /// what was written stays written, and nothing removed is forgotten.
  void Save();

  /// Takes the remark at a 1-based position out; it is deleted in the database at the next Save. Error 9 for a
  /// position out of range, 5 for a text, 13 or 94 for what is no number, 91 without collections; then nothing changes.
  void Remove(const Value& i_vIndexKey);

  /// Forgets items and removed remarks without writing; with false the list is left without collections, and nothing is
  /// thrown. Otherwise std::bad_alloc, and nothing is forgotten.
  void Clear(bool i_bRecreateCollection = true);

  /// The items, for walking over them in order; null when the list was left without collections. The collection
  /// is live and may be replaced by Clear and Restore.
  [[nodiscard]] std::shared_ptr<const Collection> Items() const noexcept { return m_items; }

 private:
  std::shared_ptr<Collection> m_items;
  std::shared_ptr<Collection> m_deleted;
  std::shared_ptr<Collection> m_backupItems;
  std::shared_ptr<Collection> m_backupDeleted;
};

}  // namespace quorvel
