#include "runtime/Remark.h"

#include "data/modDatabase.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "runtime/RemarkContext.h"

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

void Remark::Commit() {
  // After Dispose the owner is unknown: writing the remark would take it from its owner.
  if (m_remarkType && !m_remarkType->Context()) ThrowObjectNotSet();
  m_dateStamp = Now();
  if (m_userID.empty()) {
    if (!m_remarkType) ThrowObjectNotSet();
    m_userID = m_remarkType->Context()->UserID();
  }
  const bool isNew = m_memoKey == 0;
  if (isNew) m_memoKey = modDatabase::GetNextSurrogateKey("tciMemo");
  modDatabase::ExecSP(isNew ? "spTWCqvAddRemark" : "spTWCqvUpdateRemark", {{"@MemoKey", Number(m_memoKey)},
                                                                           {"@MemoType", TypeID()},
                                                                           {"@EntityType", Number(EntityKey())},
                                                                           {"@OwnerKey", Number(OwnerKey())},
                                                                           {"@MemoText", TrimmedText(m_memoText)},
                                                                           {"@UserID", TrimmedText(m_userID)}});
  m_dirty = false;
}

void Remark::Delete() const {
  if (m_memoKey != 0) modDatabase::ExecSP("spTWCqvDeleteRemark", {{"@MemoKey", Number(m_memoKey)}});
}

std::shared_ptr<Remark> Remark::Copy() const {
  auto copy = std::make_shared<Remark>();
  copy->m_remarkType = m_remarkType;
  copy->m_memoKey = m_memoKey;
  copy->m_dateStamp = m_dateStamp;
  copy->m_memoText = m_memoText;
  copy->m_dirty = m_dirty;
  return copy;
}

}  // namespace quorvel
