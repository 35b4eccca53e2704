// A memo never changes its owner here: the context may have loaded another record since the remark was read.

#include "runtime/Remark.h"

#include "data/modDatabase.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "runtime/ContextLoader.h"
#include "runtime/MemoDigest.h"
#include "runtime/RemarkContext.h"

namespace quorvel {
namespace {

const std::string kNoText;
const ListOrigin kNoList{MemoOwner{}, EditBehavior::AutoSaveOnClose, {}};

Value Number(std::int32_t number) { return std::int64_t{number}; }

Value TrimmedText(const std::string& text) { return std::string(TrimBlanks(text)); }

bool IsWithoutAnswer(const Error& error) {
  return !modDatabase::SharedConnection() || error.Number() == ErrorNumber::DbTimeout;
}

}  // namespace

const std::string& Remark::TypeID() const noexcept { return m_remarkType ? m_remarkType->TypeID() : kNoText; }

const std::string& Remark::TypeCaption() const noexcept { return m_remarkType ? m_remarkType->Caption() : kNoText; }

bool Remark::ShowPopup() const noexcept { return m_remarkType && m_remarkType->ShowPopup(); }

std::int32_t Remark::OwnerKey() const noexcept {
  return m_remarkType && m_remarkType->Context() ? m_remarkType->Context()->OwnerKey() : 0;
}

std::int32_t Remark::EntityKey() const noexcept {
  return m_remarkType && m_remarkType->Context() ? m_remarkType->Context()->EntityKey() : 0;
}

std::uint32_t Remark::KnownDigest() const {
  return m_memoDigest != 0 ? m_memoDigest : MemoDigest(TypeID(), UserID(), m_memoText);
}

void Remark::SetMemoKey(std::int32_t key) noexcept {
  if (key == m_memoKey) return;
  m_memoKey = key;
  m_memoDigest = 0;
  m_owner.reset();
  m_isStored = false;
  m_isOpen = false;
  m_hasNoMemo = false;
}

void Remark::SetStored(const MemoOwner& owner) noexcept {
  m_memoDigest = 0;
  m_owner = owner;
  m_isStored = true;
  m_isOpen = false;
  m_hasNoMemo = false;
}

void Remark::SetListOwner(const std::optional<MemoOwner>& owner) noexcept {
  if (!m_isStored && (m_memoKey == 0 || m_hasNoMemo)) m_owner = owner;
}

void Remark::Commit() {
  if (!m_remarkType) return CommitFor(kNoList);
  const auto& context = m_remarkType->Context();
  if (!context) ThrowObjectNotSet();
  CommitFor(context->LoadedOrigin("Remark.Commit"));
}

void Remark::CommitFor(const ListOrigin& list) {
  // After Dispose the owner is unknown: writing the remark would take it from its owner.
  if (m_remarkType && !m_remarkType->Context()) ThrowObjectNotSet();
  if (m_owner && m_owner != list.owner) {
    throw Error(ErrorNumber::Component, "Remark.Commit",
                "This remark belongs to another record than the one that is loaded, and was not written");
  }
  m_dateStamp = Now();
  if (UserID().empty()) {
    if (!m_remarkType) ThrowObjectNotSet();
    SetUserID(list.userID);
  }
  Write(list);
  m_owner = list.owner;
  m_memoDigest = 0;
  m_isStored = true;
  m_isOpen = false;
  m_dirty = false;
}

void Remark::Write(const ListOrigin& list) {
  LookAgain(*list.owner);
  const bool needsKey = m_memoKey == 0 || m_hasNoMemo;
  if (needsKey) m_memoKey = modDatabase::GetNextSurrogateKey("tciMemo");
  // An update would overwrite a memo that the context does not show; an insert cannot. No context shows a memo without
  // a type, so it may be stored, and another insert would store the remark twice.
  const bool isInsert = needsKey || (m_isOpen && m_remarkType);
  if (isInsert) {
    m_memoDigest = 0;
    m_isStored = false;
  }
  m_hasNoMemo = false;
  try {
    modDatabase::ExecSP(isInsert ? "spTWCqvAddRemark" : "spTWCqvUpdateRemark",
                        {{"@MemoKey", Number(m_memoKey)},
                         {"@MemoType", TypeID()},
                         {"@EntityType", Number(list.owner->entityKey)},
                         {"@OwnerKey", Number(list.owner->ownerKey)},
                         {"@MemoText", TrimmedText(m_memoText)},
                         {"@UserID", TrimmedText(UserID())}});
  } catch (const Error& error) {
    // An update under this key would overwrite the memo that has it meanwhile. Where the insert may have succeeded, an
    // insert under another key would store the remark twice.
    m_hasNoMemo = isInsert ? !MayBeStored(*list.owner, error) : HasLostItsKey(*list.owner, error);
    m_isOpen = (isInsert || m_isOpen) && !m_hasNoMemo;
    if (m_hasNoMemo) m_isStored = false;
    if (m_isOpen) m_owner = list.owner;
    throw;
  }
}

const std::string& Remark::ContextID() const noexcept { return m_remarkType ? m_remarkType->ContextID() : kNoText; }

void Remark::LookAgain(const MemoOwner& owner) {
  if (!m_isOpen || !m_remarkType) return;
  const auto found = contextLoader::FindMemo(ContextID(), owner, m_memoKey, KnownDigest());
  if (found == contextLoader::FoundMemo::None) return;
  m_isStored = found == contextLoader::FoundMemo::Same;
  m_hasNoMemo = !m_isStored;
  m_isOpen = false;
}

// A procedure or a trigger of the host may raise any error, also a violated constraint of its own table, and it may do
// so before or after the memo was stored.
bool Remark::MayBeStored(const MemoOwner& owner, const Error& error) const {
  if (modDatabase::WasNotSent(error)) return false;
  if (IsWithoutAnswer(error)) return true;
  // No context shows a memo without a type, so it would not be found.
  if (!m_remarkType) return !modDatabase::IsDuplicateKey(error);
  try {
    return contextLoader::FindMemo(ContextID(), owner, m_memoKey, KnownDigest()) == contextLoader::FoundMemo::Same;
  } catch (const Error&) {
    return true;
  }
}

// The memo was deleted, or the database was replaced by an older copy, and another owner's memo has the key.
bool Remark::HasLostItsKey(const MemoOwner& owner, const Error& error) const {
  if (!modDatabase::IsDuplicateKey(error)) return false;
  if (!m_isStored || !m_remarkType) return true;
  try {
    return contextLoader::FindMemo(ContextID(), owner, m_memoKey, KnownDigest()) == contextLoader::FoundMemo::None;
  } catch (const Error&) {
    return false;
  }
}

// The procedure asks for no owner: it deletes any memo with the key.
void Remark::Delete() {
  if (m_memoKey == 0 || m_hasNoMemo) return;
  const bool mayBeDeleted = m_isOpen && m_isStored;
  if (m_owner) LookAgain(*m_owner);
  if (mayBeDeleted && m_hasNoMemo) {
    throw Error(ErrorNumber::Component, "Remark.Delete",
                "The memo was changed meanwhile and was not deleted; read the remarks again");
  }
  const bool isGone = m_hasNoMemo || (m_isOpen && m_owner);
  try {
    if (!isGone) modDatabase::ExecSP("spTWCqvDeleteRemark", {{"@MemoKey", Number(m_memoKey)}});
  } catch (const Error& error) {
    m_isOpen = IsWithoutAnswer(error);
    throw;
  }
  m_hasNoMemo = true;
  m_isOpen = false;
  m_isStored = false;
}

bool Remark::IsSameMemo(const Remark& other) const {
  if (m_memoKey == 0 || m_memoKey != other.m_memoKey || m_hasNoMemo || other.m_hasNoMemo) return false;
  if (m_owner && other.m_owner && m_owner != other.m_owner) return false;
  return (!IsUnanswered() && !other.IsUnanswered()) || KnownDigest() == other.KnownDigest();
}

std::shared_ptr<Remark> Remark::Copy() const {
  auto copy = std::make_shared<Remark>();
  copy->m_remarkType = m_remarkType;
  copy->m_owner = m_owner;
  copy->m_memoKey = m_memoKey;
  copy->m_memoDigest = m_isStored || m_isOpen ? KnownDigest() : 0;  // the copy has no user
  copy->m_isStored = m_isStored;
  copy->m_isOpen = m_isOpen;
  copy->m_hasNoMemo = m_hasNoMemo;
  copy->m_dateStamp = m_dateStamp;
  copy->m_memoText = m_memoText;
  copy->m_dirty = m_dirty;
  return copy;
}

void Remark::FollowOriginal(const Remark& original) noexcept {
  const bool isSameKey = m_memoKey == original.m_memoKey;
  const bool isKept = original.m_isStored && !original.m_isOpen;
  const bool isKnown = original.m_isStored || original.m_isOpen || original.m_hasNoMemo;
  if (!m_isStored || !isKnown || (isKept && isSameKey)) return;
  m_memoKey = original.m_memoKey;
  m_owner = original.m_owner;
  if (original.m_memoDigest != 0) m_memoDigest = original.m_memoDigest;
  m_isStored = original.m_isStored;
  m_isOpen = original.m_isOpen;
  m_hasNoMemo = original.m_hasNoMemo;
  m_dirty = true;
}

}  // namespace quorvel
