// A memo never changes its owner here: the context may have loaded another record since the remark was read.

#include "runtime/Remark.h"

#include <algorithm>

#include "data/modDatabase.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "runtime/ContextLoader.h"
#include "runtime/RemarkContext.h"
#include "runtime/RemarkList.h"

namespace quorvel {
namespace {

const std::string kNoText;

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

void Remark::SetMemoKey(std::int32_t key) noexcept {
  m_memoKey = key;
  m_owner.reset();
  m_isStored = false;
  m_isRefused = false;
}

void Remark::SetStored(std::int32_t key, const MemoOwner& owner) noexcept {
  SetMemoKey(key);
  m_owner = owner;
  m_isStored = true;
}

void Remark::SetListOwner(const std::optional<MemoOwner>& owner) noexcept {
  if (!m_isStored && (m_memoKey == 0 || m_isRefused)) m_owner = owner;
}

void Remark::Commit() {
  if (!m_remarkType) return CommitFor(MemoOwner{}, kNoText);
  const auto& context = m_remarkType->Context();
  if (!context) ThrowObjectNotSet();
  CommitFor(context->LoadedOwner("Remark.Commit"), context->UserID());
}

void Remark::CommitFor(const MemoOwner& owner, const std::string& userID) {
  // After Dispose the owner is unknown: writing the remark would take it from its owner.
  if (m_remarkType && !m_remarkType->Context()) ThrowObjectNotSet();
  if (m_owner && *m_owner != owner) {
    throw Error(ErrorNumber::Component, "Remark.Commit",
                "This remark belongs to another record than the one that is loaded, and was not written");
  }
  m_dateStamp = Now();
  if (m_userID.empty()) {
    if (!m_remarkType) ThrowObjectNotSet();
    m_userID = userID;
  }
  Write(owner);
  m_owner = owner;
  m_isStored = true;
  m_dirty = false;
}

void Remark::Write(const MemoOwner& owner) {
  const bool isNew = m_memoKey == 0 || m_isRefused;
  if (isNew) m_memoKey = modDatabase::GetNextSurrogateKey("tciMemo");
  m_isRefused = false;
  try {
    modDatabase::ExecSP(isNew ? "spTWCqvAddRemark" : "spTWCqvUpdateRemark", {{"@MemoKey", Number(m_memoKey)},
                                                                             {"@MemoType", TypeID()},
                                                                             {"@EntityType", Number(owner.entityKey)},
                                                                             {"@OwnerKey", Number(owner.ownerKey)},
                                                                             {"@MemoText", TrimmedText(m_memoText)},
                                                                             {"@UserID", TrimmedText(m_userID)}});
  } catch (const Error& error) {
    // An update under this key would overwrite the memo that has it meanwhile. Where the insert may have succeeded, an
    // insert under another key would store the remark twice. A memo that was stored before has its own key.
    m_isRefused = isNew ? !MayBeStored(owner, error) : !m_isStored && modDatabase::IsDuplicateKey(error);
    throw;
  }
}

// A procedure or a trigger of the host may raise any error, before or after the memo was stored.
bool Remark::MayBeStored(const MemoOwner& owner, const Error& error) const {
  if (modDatabase::IsRefusal(error)) return false;
  const auto context = m_remarkType ? m_remarkType->Context() : nullptr;
  if (!context || !modDatabase::SharedConnection() || error.Number() == ErrorNumber::DbTimeout) return true;
  try {
    RemarkList stored;
    contextLoader::LoadRemarks(context->ContextID(), owner, context->Types().get(), stored);
    return std::ranges::any_of(*stored.Items(), [&](const auto& memo) {
      return memo->m_memoKey == m_memoKey && memo->m_memoText == TrimBlanks(m_memoText) &&
             memo->m_userID == TrimBlanks(m_userID) && EqualIgnoringCase(memo->TypeID(), TypeID());
    });
  } catch (const Error&) {
    return true;
  }
}

void Remark::Delete() const {
  if (m_memoKey == 0 || m_isRefused) return;
  modDatabase::ExecSP("spTWCqvDeleteRemark", {{"@MemoKey", Number(m_memoKey)}});
}

std::shared_ptr<Remark> Remark::Copy() const {
  auto copy = std::make_shared<Remark>();
  copy->m_remarkType = m_remarkType;
  copy->m_owner = m_owner;
  copy->m_memoKey = m_memoKey;
  copy->m_isStored = m_isStored;
  copy->m_isRefused = m_isRefused;
  copy->m_dateStamp = m_dateStamp;
  copy->m_memoText = m_memoText;
  copy->m_dirty = m_dirty;
  return copy;
}

}  // namespace quorvel
