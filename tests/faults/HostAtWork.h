#pragma once

#include <gmock/gmock.h>

#include <functional>

#include "tests/runtime/RuntimeTest.h"

/// A host that works in spite of faults: it tries a step again that failed, as a user does.
namespace quorvel::test {

/// Loads a list, changes, removes and adds a remark, and saves. Calls `endFaults` before a step is tried again.
inline void LoadChangeAndSave(const std::function<void()>& endFaults) {
  const auto insist = [&](const std::function<void()>& step) {
    try {
      step();
    } catch (const Error& error) {
      endFaults();
      EXPECT_NE(error.Description(), "");
      step();
    }
  };
  const ContextHolder context;
  insist([&] { context->Load("CustMaint", "C1044", "admin"); });
  RemarkAt(context, 1).SetMemoText("changed");
  RemarkAt(context, 1).SetDirty(true);
  context->RemarkList()->Remove(std::int64_t{2});
  context->AddRemark("Cust.General", "added", "admin");
  insist([&] { context->Save(true); });
  EXPECT_FALSE(context->RemarkList()->Dirty());
}

/// Afterwards everything is stored, and nothing twice.
inline void ExpectEverythingOnce(const TestDatabase& database) {
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo"), "2042") << "one is removed and one added";
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'added'"), "1");
  EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'changed'"), "1");
  EXPECT_EQ(IntegrityOf(database.DatabaseFile()), "ok");
}

}  // namespace quorvel::test
