#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Error.h"
#include "runtime/MemoOwner.h"

namespace quorvel {

namespace contextLoader {
enum class FoundMemo;
}

/// The memo of a remark: its key, its owner, and the answers of the database about it. A call without an answer may
/// have been carried out, and a host may give the key of a missing memo to another one. So the next call looks for the
/// memo first, and no other memo is overwritten or deleted.
///
/// `contextID` is that of the remark's type, in which the memo is looked for: another context of the owner may not show
/// it. It is empty for a remark without a type, whose memo no context shows.
class StoredMemo {
 public:
  /// 0 for a new remark.
  [[nodiscard]] std::int32_t Key() const noexcept { return m_key; }
  /// Makes this the memo with that key, whose owner is not known. Does nothing with the key that it has.
  void SetKey(std::int32_t key) noexcept;
  /// The memo belongs to `owner` and has the remark's values.
  void SetStored(const MemoOwner& owner);
  /// The next insert is for this owner. Does nothing where there is, or may be, a memo.
  void SetListOwner(const std::optional<MemoOwner>& owner) noexcept;
  [[nodiscard]] bool MayBelongTo(const MemoOwner& owner) const noexcept { return !m_owner || *m_owner == owner; }

  /// The MemoDigest by which the memo is found again; 0 while it is that of the remark's values.
  [[nodiscard]] std::uint32_t Digest() const noexcept { return m_digest; }
  void SetDigest(std::uint32_t digest) noexcept { m_digest = digest; }
  /// Whether the digest must be set before a value of the remark changes.
  [[nodiscard]] bool NeedsDigest() const noexcept { return m_state == State::Stored && m_digest == 0; }

  /// Whether key and owner do not tell the memos apart.
  [[nodiscard]] bool MayBeSame(const StoredMemo& other) const noexcept;
  /// Whether only the values can tell that the memo with the key is this one.
  [[nodiscard]] bool IsKnownByValues() const noexcept { return m_state == State::InsertOpen; }

  /// Before the remark is written, with the digest of the values: true for an insert under Key, which may be another
  /// one than before, false for an update.
  [[nodiscard]] bool BeginWrite(const std::string& contextID, const MemoOwner& owner, std::uint32_t digest);
  /// After the write failed with this error. SetStored follows one that succeeded.
  void EndFailedWrite(const std::string& contextID, const Error& error);
  /// Deletes the memo as Remark::Delete says. Its digest must be set.
  void Delete(const std::string& contextID);

  /// After the memo `written` was written under its key: no other memo has the key.
  void LoseKeyTo(const StoredMemo& written) noexcept {
    if (m_key == written.m_key && m_state == State::Stored) m_state = State::Gone;
  }

  /// For the memo of a copy that replaces its original again: takes the key and the state that the original has
  /// meanwhile. Returns whether the database may lack the copy's values, because its memo may have been deleted since.
  [[nodiscard]] bool Follow(const StoredMemo& original) noexcept;

 private:
  enum class State : std::uint8_t {
    Unknown,     ///< new (key 0), or the host has set the key
    Stored,      ///< read or written
    InsertOpen,  ///< the last insert may have stored it
    DeleteOpen,  ///< the last delete may have deleted it
    Gone         ///< its insert stored nothing, or it was deleted: the key may be another memo's
  };

  [[nodiscard]] bool NeedsKey() const noexcept { return m_key == 0 || m_state == State::Gone; }
  [[nodiscard]] bool IsOpen() const noexcept { return m_state == State::InsertOpen || m_state == State::DeleteOpen; }
  /// While it is open: looks whether the owner has the memo, or another one with its key.
  void LookAgain(const std::string& contextID);
  [[nodiscard]] contextLoader::FoundMemo Find(const std::string& contextID) const;
  /// Whether the insert that failed with this error may have stored the memo.
  [[nodiscard]] bool MayBeStored(const std::string& contextID, const Error& error) const;
  /// Whether the update that failed with this error found another memo under its key.
  [[nodiscard]] bool HasLostItsKey(const std::string& contextID, const Error& error) const;
  void SendDelete();

  /// Whether the database may be another one than that of the memo: an older copy in its place, for example.
  [[nodiscard]] bool HasLostItsFile() const;

  std::optional<MemoOwner> m_owner;  ///< or that of the list that a new remark is in; empty when not known
  std::int32_t m_key = 0;
  std::uint32_t m_digest = 0;
  std::uint16_t m_lostFiles = 0;  ///< LostFiles when the memo was read or written
  State m_state = State::Unknown;
};

}  // namespace quorvel
