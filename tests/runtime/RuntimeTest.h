#pragma once

#include <memory>
#include <string>

#include "platform/Error.h"
#include "runtime/RemarkContext.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::test {

/// How many memos the sample database has, as text.
constexpr const char* kMemosOfSample = "2042";

/// A context that is disposed of at the end, so that its cycle of references does not outlive the test.
class ContextHolder {
 public:
  ContextHolder() = default;
  ContextHolder(const std::string& contextID, const std::string& ownerID, const std::string& userID) {
    m_context->Load(contextID, ownerID, userID);
  }
  ~ContextHolder() { m_context->Dispose(); }
  ContextHolder(const ContextHolder&) = delete;
  ContextHolder& operator=(const ContextHolder&) = delete;

  RemarkContext* operator->() const { return m_context.get(); }
  RemarkContext& operator*() const { return *m_context; }

 private:
  std::shared_ptr<RemarkContext> m_context = RemarkContext::Create();
};

/// A whole number as callers pass it where any type is accepted.
inline Value Number(std::int64_t number) { return number; }

/// The i-th remark, which must exist; 1-based.
inline Remark& RemarkAt(const ContextHolder& context, std::int64_t index) {
  const auto remark = context->RemarkList()->Item(index);
  if (!remark) throw Error(0, "test", "no remark " + std::to_string(index));
  return *remark;
}

/// Changes the text and marks it for the next save, as a host does.
inline void ChangeText(Remark& remark, const std::string& text) {
  remark.SetMemoText(text);
  remark.SetDirty(true);
}

}  // namespace quorvel::test
