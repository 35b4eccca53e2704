// A memo never changes its owner here: the context may have loaded another record since the remark was read.

#include "runtime/Remark.h"

#include "data/modDatabase.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "runtime/MemoDigest.h"
#include "runtime/RemarkContext.h"

namespace quorvel {
namespace {

const std::string kNoText;
const ListOrigin kNoList{MemoOwner{}, EditBehavior::AutoSaveOnClose, {}};

Value Number(std::int32_t number) { return std::int64_t{number}; }

Value TrimmedText(const std::string& text) { return std::string(TrimBlanks(text)); }

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

const std::string& Remark::ContextID() const noexcept { return m_remarkType ? m_remarkType->ContextID() : kNoText; }

std::uint32_t Remark::Digest() const { return MemoDigest(TypeID(), UserID(), m_memoText); }

std::uint32_t Remark::KnownDigest() const { return m_memo.Digest() != 0 ? m_memo.Digest() : Digest(); }

void Remark::Commit() {
  if (!m_remarkType) return CommitFor(kNoList);
  const auto& context = m_remarkType->Context();
  if (!context) ThrowObjectNotSet();
  CommitFor(context->LoadedOrigin("Remark.Commit"));
}

void Remark::CommitFor(const ListOrigin& list) {
  // After Dispose the owner is unknown: writing the remark would take it from its owner.
  if (m_remarkType && !m_remarkType->Context()) ThrowObjectNotSet();
  if (!m_memo.MayBelongTo(*list.owner)) {
    throw Error(ErrorNumber::Component, "Remark.Commit",
                "This remark belongs to another record than the one that is loaded, and was not written");
  }
  m_dateStamp = Now();
  if (UserID().empty()) {
    if (!m_remarkType) ThrowObjectNotSet();
    SetUserID(list.userID);
  }
  Write(*list.owner);
  m_dirty = false;
}

void Remark::Write(const MemoOwner& owner) {
  const bool isInsert = m_memo.BeginWrite(ContextID(), owner, Digest());
  try {
    modDatabase::ExecSP(isInsert ? "spTWCqvAddRemark" : "spTWCqvUpdateRemark",
                        {{"@MemoKey", Number(MemoKey())},
                         {"@MemoType", TypeID()},
                         {"@EntityType", Number(owner.entityKey)},
                         {"@OwnerKey", Number(owner.ownerKey)},
                         {"@MemoText", TrimmedText(m_memoText)},
                         {"@UserID", TrimmedText(UserID())}});
  } catch (const Error& error) {
    m_memo.EndFailedWrite(ContextID(), error);
    throw;
  }
  m_memo.SetStored(owner);
}

void Remark::Delete() {
  RememberMemo();
  m_memo.Delete(ContextID());
}

bool Remark::IsSameMemo(const Remark& other) const {
  if (!m_memo.MayBeSame(other.m_memo)) return false;
  if (!m_memo.IsKnownByValues() && !other.m_memo.IsKnownByValues()) return true;
  return KnownDigest() == other.KnownDigest();
}

std::shared_ptr<Remark> Remark::Copy() const {
  auto copy = std::make_shared<Remark>();
  copy->m_remarkType = m_remarkType;
  copy->m_memo = m_memo;
  if (m_memo.NeedsDigest()) copy->m_memo.SetDigest(Digest());  // the copy has no user
  copy->m_dateStamp = m_dateStamp;
  copy->m_memoText = m_memoText;
  copy->m_dirty = m_dirty;
  return copy;
}

void Remark::FollowOriginal(const Remark& original) noexcept {
  if (m_memo.Follow(original.m_memo)) m_dirty = true;
}

}  // namespace quorvel
