#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Value.h"
#include "runtime/MemoOwner.h"
#include "runtime/Publishable.h"
#include "runtime/Remark.h"
#include "runtime/Successors.h"

namespace quorvel {

/// The remarks of one owner, the removed ones that the next Save deletes, and a snapshot of both for undo. The list
/// keeps its owner when its context loads another one.
class RemarkList : public Publishable {
 public:
  using Collection = std::vector<std::shared_ptr<Remark>>;

  explicit RemarkList(ListOrigin origin = {});
  ~RemarkList();
  RemarkList(const RemarkList&) = delete;
  RemarkList& operator=(const RemarkList&) = delete;

  [[nodiscard]] const ListOrigin& Origin() const noexcept { return m_origin; }
  void SetOrigin(ListOrigin origin) noexcept { m_origin = std::move(origin); }
  void SetEditBehavior(EditBehavior behavior) noexcept { m_origin.editBehavior = behavior; }
  /// Whether new remarks are taken. After a failed Load its context still has this list, and until the remarks of a new
  /// owner are read the host still shows the former ones: a remark that is added then is meant for another owner.
  void SetTakesNew(bool takesNew) noexcept { m_takesNew = takesNew; }
  [[nodiscard]] bool TakesNew() const noexcept { return m_takesNew; }
  /// Error -1 from `source` unless new remarks are taken.
  void RequireTakesNew(const char* source) const;
  /// The owner of the remarks; error -1 from `source` when none is known.
  [[nodiscard]] const MemoOwner& Owner(const char* source) const;

  /// The remark at a 1-based position; null when there is none. Items have no keys, so a text finds nothing.
  /// Never throws.
  [[nodiscard]] std::shared_ptr<Remark> Item(const Value& i_vIndexKey) const noexcept;
  [[nodiscard]] std::int32_t Count() const noexcept;
  [[nodiscard]] std::int32_t PopupCount() const noexcept;
  /// Whether a remark was removed or an item is dirty.
  [[nodiscard]] bool Dirty() const noexcept;
  /// 1-based position of that very object; 0 when absent.
  [[nodiscard]] std::int32_t Index(const std::shared_ptr<Remark>& i_oRemark) const noexcept;
  /// The item that is `remark` itself, its copy that Restore has brought back or, where the list was read again, the
  /// object for the same memo; null when there is none.
  [[nodiscard]] std::shared_ptr<Remark> ItemFor(const std::shared_ptr<Remark>& remark) const;
  /// 1-based position of the same in a collection that was taken earlier; 0 when there is none.
  [[nodiscard]] static std::int32_t PositionIn(const Collection& remarks, const std::shared_ptr<Remark>& remark);

  /// Copies the items and the removed remarks for Restore. After std::bad_alloc the former backup stays.
  void Backup();
  /// Makes the backup the live collections, without another copy: until the next Backup, changes change the backup too.
  /// A remark whose memo was deleted since the Backup is dirty, because the database no longer has its text. Without a
  /// Backup the list has no collections afterwards.
  void Restore() noexcept;

  /// Appends a new empty remark and returns it. Error 91 when the list has no collections, -1 when it takes no new
  /// ones.
  std::shared_ptr<Remark> Add();
  /// Appends a remark. Error 91 when it is null or the list has no collections, -1 when it takes no new ones.
  void AddRemark(std::shared_ptr<Remark> i_oRemark);
  /// For a window that stores what its user typed: makes sure that the next Save writes the memo of `remark`, once.
  /// Returns the item for it (ItemFor), else the removed remark for it, which becomes an item again, else `remark` or
  /// the copy that stands for it, appended. Makes collections for a list without them. Error -1 as AddRemark.
  std::shared_ptr<Remark> Keep(const std::shared_ptr<Remark>& remark);

  /// For the code that reads remarks: Add, whether or not the list takes new ones.
  std::shared_ptr<Remark> AddRead();
  /// Makes room for `count` more remarks, for the code that reads them: a collection that grows by itself leaves up to
  /// half of its memory unused. Does nothing without collections.
  void Reserve(std::int32_t count);

  /// Commits the dirty items in order, for the owner of the list, then deletes the removed ones and forgets them. An
  /// error ends the save: the items before it stay written, and no removed remark is forgotten. Error -1, before an
  /// item is written, when no owner is known.
  void Save();

  /// Removes the remark at a 1-based position; the next Save deletes it in the database. Error 9 for a position out of
  /// range, 5 for a text, 13 or 94 for another value that is no number, 91 without collections; then nothing changes.
  void Remove(const Value& i_vIndexKey);

  /// Forgets items and removed remarks without writing. With false the list has no collections afterwards, and nothing
  /// is thrown. With true it may throw std::bad_alloc, and then nothing is forgotten.
  void Clear(bool i_bRecreateCollection = true);

  /// For a list that is read again in the place of `former`: a window may still show remarks of that one.
  void Follow(const RemarkList& former) { m_successors = former.m_successors; }

  /// The items in order; null when the list has no collections. The collection is live; Clear and Restore may replace
  /// it.
  [[nodiscard]] std::shared_ptr<const Collection> Items() const noexcept { return m_items; }

 private:
  void Append(std::shared_ptr<Remark> remark);

  ListOrigin m_origin;
  bool m_takesNew = true;
  std::shared_ptr<Collection> m_items;
  std::shared_ptr<Collection> m_deleted;
  std::shared_ptr<Collection> m_backupItems;
  std::shared_ptr<Collection> m_backupDeleted;
  Collection m_originals;  ///< of the backup, its items first; empty when the backup is live
  Successors m_successors;
};

}  // namespace quorvel
