#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/DateTime.h"
#include "platform/SharedText.h"
#include "runtime/MemoOwner.h"
#include "runtime/Publishable.h"
#include "runtime/RemarkType.h"
#include "runtime/StoredMemo.h"

namespace quorvel {

/// One remark: a row of the host's memo table. Writing a property never sets Dirty: the editing code does.
class Remark : public Publishable {
 public:
  [[nodiscard]] const std::shared_ptr<quorvel::RemarkType>& RemarkType() const noexcept { return m_remarkType; }
  void SetRemarkType(std::shared_ptr<quorvel::RemarkType> type) {
    RememberMemo();
    m_remarkType = std::move(type);
  }
  /// 0 for a remark that was never stored.
  [[nodiscard]] std::int32_t MemoKey() const noexcept { return m_memo.Key(); }
  /// Makes this the remark of another memo, whose owner is not known. Does nothing with the key that it has.
  void SetMemoKey(std::int32_t key) noexcept { m_memo.SetKey(key); }
  /// For the code that reads memos, at the end: the memo belongs to `owner` and has the remark's values.
  void SetStored(const MemoOwner& owner) { m_memo.SetStored(owner); }
  /// For a list that takes the remark: a remark that was not stored yet belongs to the list's owner.
  void SetListOwner(const std::optional<MemoOwner>& owner) noexcept { m_memo.SetListOwner(owner); }
  [[nodiscard]] DateTime DateStamp() const noexcept { return m_dateStamp; }
  void SetDateStamp(DateTime dateStamp) noexcept { m_dateStamp = dateStamp; }
  [[nodiscard]] const std::string& UserID() const noexcept { return m_userID.Get(); }
  void SetUserID(std::string userID) { SetUserID(SharedText(std::move(userID))); }
  void SetUserID(SharedText userID) {
    RememberMemo();
    m_userID = std::move(userID);
  }
  [[nodiscard]] const std::string& MemoText() const noexcept { return m_memoText; }
  void SetMemoText(std::string text) {
    RememberMemo();
    m_memoText = std::move(text);
  }
  [[nodiscard]] bool Dirty() const noexcept { return m_dirty; }
  void SetDirty(bool dirty) noexcept { m_dirty = dirty; }

  /// Values of the type; empty, 0 or false without a type (the keys also without a context).
  [[nodiscard]] const std::string& TypeID() const noexcept;
  [[nodiscard]] const std::string& TypeCaption() const noexcept;
  [[nodiscard]] bool ShowPopup() const noexcept;
  [[nodiscard]] std::int32_t OwnerKey() const noexcept;
  [[nodiscard]] std::int32_t EntityKey() const noexcept;

  /// Writes the remark: an insert under a new key when MemoKey is 0, else an update. Text and user are sent trimmed;
  /// the fields keep their blanks. A failed insert keeps its new key. The next Commit inserts under another one when
  /// the insert was refused or another memo has the key, updates the memo that it finds as it was sent, and inserts
  /// under the same key when it finds none; without a type, which no context shows, it updates. Database errors pass
  /// through; Dirty is cleared only after success. Before anything is written: error 91 when the type's context was
  /// disposed of, or when the remark has neither user nor type; error -1 when it belongs to another owner.
  ///
  /// A new remark that was in no list becomes the owner's that its context has loaded; error -1 when the last Load
  /// failed.
  void Commit();
  /// The same for the remark of a list: a new remark becomes that of the list's owner, which must be known, and one
  /// without a user that of the list's user.
  void CommitFor(const ListOrigin& list);

  /// Deletes the row; does nothing with key 0, after a refused insert and after another Delete: another memo may have
  /// the key. After an insert or Delete that got no answer the row is deleted only when it is found among the owner's
  /// as it was sent. After such a Delete, a memo with other values is error -1, once: another user may have changed it.
  /// When the embedded engine has lost its file since the memo was read or written, the row is deleted only when the
  /// owner has it with the known values; else error -1, once. The fields stay as they are; the next Commit inserts the
  /// remark under another key.
  void Delete();

  /// After `written` was written: its memo has the key, so a memo of this remark with that key is gone.
  void LoseKeyTo(const Remark& written) noexcept { m_memo.LoseKeyTo(written.m_memo); }

  /// Whether both objects are remarks of one stored memo. The key alone does not say it: after a refused insert, for
  /// example, another memo may have it.
  [[nodiscard]] bool IsSameMemo(const Remark& other) const;

  /// A copy for RemarkList::Backup: everything but UserID, which stays empty.
  [[nodiscard]] std::shared_ptr<Remark> Copy() const;
  /// For RemarkList::Restore of such a copy: gives it the key and the state that the memo of `original` has meanwhile.
  /// The copy is dirty when the memo was deleted since, or may have been, also when `original` was stored again.
  void FollowOriginal(const Remark& original) noexcept;

 private:
  void Write(const MemoOwner& owner);
  /// Before a value changes: remembers the memo by its digest, so that it can be found again.
  void RememberMemo() {
    if (m_memo.NeedsDigest()) m_memo.SetDigest(Digest());
  }
  /// Of the remark's values.
  [[nodiscard]] std::uint32_t Digest() const;
  /// Of the memo's.
  [[nodiscard]] std::uint32_t KnownDigest() const;
  /// Of the type; empty without one.
  [[nodiscard]] const std::string& ContextID() const noexcept;

  std::shared_ptr<quorvel::RemarkType> m_remarkType;
  std::string m_memoText;
  SharedText m_userID;
  DateTime m_dateStamp = kZeroDate;
  [[no_unique_address]] StoredMemo m_memo;  ///< m_dirty is in its padding: a list may have thousands of remarks
  bool m_dirty = false;
};

}  // namespace quorvel
