#pragma once

#include <string>

#include "tests/runtime/RuntimeTest.h"

namespace quorvel::test {

/// A sample database and a user who answers by the script of the test.
class SaveTest : public testing::Test {
 protected:
  [[nodiscard]] std::string MemoCount() const { return m_database.Ask("SELECT COUNT(*) FROM tciMemo"); }
  /// Entity and owner of the memo with that text.
  [[nodiscard]] std::string OwnerOf(const std::string& text) const {
    return m_database.Ask(
        "SELECT CAST(EntityType AS varchar(6)) + '/' + CAST(OwnerKey AS varchar(9)) FROM tciMemo "
        "WHERE MemoText = '" +
        text + "'");
  }

  TestDatabase m_database;
  PromptsGuard m_prompts;
};

}  // namespace quorvel::test
