// Each call leaves a state that is true even if it was carried out without an answer.

#include "runtime/StoredMemo.h"

#include "data/modDatabase.h"
#include "runtime/ContextLoader.h"

namespace quorvel {
namespace {

using contextLoader::FoundMemo;

bool IsWithoutAnswer(const Error& error) {
  return !modDatabase::SharedConnection() || error.Number() == ErrorNumber::DbTimeout;
}

}  // namespace

void StoredMemo::SetKey(std::int32_t key) noexcept {
  if (key == m_key) return;
  *this = {};
  m_key = key;
}

void StoredMemo::SetStored(const MemoOwner& owner) {
  m_owner = owner;
  m_digest = 0;
  m_lostFiles = static_cast<std::uint16_t>(modDatabase::LostFiles());
  m_state = State::Stored;
}

void StoredMemo::SetListOwner(const std::optional<MemoOwner>& owner) noexcept {
  if (NeedsKey() && m_state != State::Stored) m_owner = owner;
}

bool StoredMemo::MayBeSame(const StoredMemo& other) const noexcept {
  if (m_key != other.m_key || NeedsKey() || other.NeedsKey()) return false;
  return !other.m_owner || MayBelongTo(*other.m_owner);
}

bool StoredMemo::BeginWrite(const std::string& contextID, const MemoOwner& owner, std::uint32_t digest) {
  LookAgain(contextID);
  // A memo that cannot be found may be there: an insert would fail, and the next one would store the remark twice.
  if (IsOpen() && contextID.empty()) m_state = State::Unknown;
  if (!NeedsKey() && !IsOpen()) return false;
  // An open insert is repeated under its key: an update would overwrite a memo that the context does not show.
  if (NeedsKey()) m_key = modDatabase::GetNextSurrogateKey("tciMemo");
  m_owner = owner;
  m_digest = digest;
  m_state = State::InsertOpen;
  return true;
}

// An update under this key would overwrite the memo that has it meanwhile. Where the insert may have succeeded, an
// insert under another key would store the remark twice.
void StoredMemo::EndFailedWrite(const std::string& contextID, const Error& error) {
  const bool isInsert = m_state == State::InsertOpen;
  if (isInsert ? !MayBeStored(contextID, error) : HasLostItsKey(contextID, error)) m_state = State::Gone;
}

void StoredMemo::LookAgain(const std::string& contextID) {
  if (!IsOpen() || contextID.empty()) return;
  const FoundMemo found = Find(contextID);
  if (found == FoundMemo::Same) m_state = State::Stored;
  if (found == FoundMemo::Other) m_state = State::Gone;
}

FoundMemo StoredMemo::Find(const std::string& contextID) const {
  return contextLoader::FindMemo(contextID, m_owner.value(), m_key, m_digest);
}

// A procedure or a trigger of the host may raise any error, also a violated constraint of its own table, and it may do
// so before or after the memo was stored.
bool StoredMemo::MayBeStored(const std::string& contextID, const Error& error) const {
  if (modDatabase::WasNotSent(error)) return false;
  if (IsWithoutAnswer(error)) return true;
  if (contextID.empty()) return !modDatabase::IsDuplicateKey(error);
  try {
    return Find(contextID) == FoundMemo::Same;
  } catch (const Error&) {
    return true;
  }
}

// The memo was deleted, or the database was replaced by an older copy, and another owner's memo has the key.
bool StoredMemo::HasLostItsKey(const std::string& contextID, const Error& error) const {
  if (!modDatabase::IsDuplicateKey(error)) return false;
  if (m_state != State::Stored || contextID.empty()) return true;
  try {
    return Find(contextID) == FoundMemo::None;
  } catch (const Error&) {
    return false;
  }
}

// The procedure asks for no owner: it deletes any memo with the key.
void StoredMemo::Delete(const std::string& contextID) {
  if (NeedsKey()) return;
  const bool mayBeOther = m_state == State::Stored && HasLostItsFile() && !contextID.empty();
  if (mayBeOther && Find(contextID) != FoundMemo::Same) m_state = State::Gone;
  const bool isUncertain = mayBeOther || m_state == State::DeleteOpen;
  LookAgain(contextID);
  if (isUncertain && m_state == State::Gone) {
    throw Error(ErrorNumber::Component, "Remark.Delete",
                "The memo was changed meanwhile and was not deleted; read the remarks again");
  }
  if (m_state == State::Unknown || m_state == State::Stored) SendDelete();
  m_state = State::Gone;
}

bool StoredMemo::HasLostItsFile() const { return m_lostFiles != static_cast<std::uint16_t>(modDatabase::LostFiles()); }

void StoredMemo::SendDelete() {
  try {
    modDatabase::ExecSP("spTWCqvDeleteRemark", {{"@MemoKey", std::int64_t{m_key}}});
  } catch (const Error& error) {
    // The values of a remark whose key the host has set need not be those of the memo, so it could not be found.
    if (m_state == State::Stored && IsWithoutAnswer(error)) m_state = State::DeleteOpen;
    throw;
  }
}

bool StoredMemo::Follow(const StoredMemo& original) noexcept {
  const bool hasSameKey = m_key == original.m_key;
  if (m_key == 0 || original.m_state == State::Unknown || (hasSameKey && m_state == original.m_state)) return false;
  const std::uint32_t digest = original.m_digest != 0 ? original.m_digest : m_digest;
  *this = original;
  m_digest = digest;
  return !hasSameKey || m_state != State::Stored;
}

}  // namespace quorvel
