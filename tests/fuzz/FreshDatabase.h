#pragma once

#include <filesystem>
#include <optional>
#include <system_error>

#include "tests/support/TestDatabase.h"

namespace quorvel::fuzz {

/// A database that is the same for every input. Making one takes longer than most inputs, so only an input that writes
/// costs a new one.
class FreshDatabase {
 public:
  explicit FreshDatabase(test::TestDatabase::Content content) : m_content(content) {}

  /// Makes a new one when there is none yet or an input has written to it, and tells whether it did.
  bool Renew() {
    if (m_database && !IsWritten()) return false;
    m_database.emplace(m_content);
    return true;
  }
  const test::TestDatabase* operator->() const { return &*m_database; }
  /// Whether anything was written: every write goes through the log.
  [[nodiscard]] bool IsWritten() const {
    std::error_code missing;
    const auto size = std::filesystem::file_size(m_database->DatabaseFile() + "-wal", missing);
    return !missing && size > 0;
  }

 private:
  test::TestDatabase::Content m_content;
  std::optional<test::TestDatabase> m_database;
};

}  // namespace quorvel::fuzz
