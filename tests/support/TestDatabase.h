#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "ado/Connection.h"
#include "tests/support/TemporaryFolder.h"

namespace quorvel::test {

/// Runs every batch of a script.
void RunScript(ado::Connection& connection, std::string_view script);

/// "ok", or the first fault that SQLite finds in a database file, rules of columns included.
[[nodiscard]] std::string IntegrityOf(const std::string& file);

/// An embedded database for one test, with settings that point to it: after construction modDatabase of this
/// thread opens this database and no other.
class TestDatabase {
 public:
  enum class Content { Empty, Schema, Sample };

  explicit TestDatabase(Content content = Content::Sample);

  [[nodiscard]] std::string DatabaseFile() const { return m_folder.File("test.db"); }
  [[nodiscard]] std::string SettingsFile() const { return m_folder.File("settings.reg"); }
  [[nodiscard]] std::string ConnectionString() const;

  /// Another connection to the same file, with a short command timeout.
  [[nodiscard]] std::shared_ptr<ado::Connection> Connect() const;

  /// Runs a batch on another connection.
  void Run(std::string_view batch) const;
  /// The first column of the first row of a query, as text; "NULL" for null and "" without a row.
  [[nodiscard]] std::string Ask(std::string_view query) const;

  /// Stores a memo as a program of the host does; owner 45 is the sample's customer C1044.
  void StoreMemo(std::int32_t key, const std::string& text, const std::string& type = "Cust.General",
                 std::int32_t ownerKey = 45) const;
  /// The text of a memo; "" when it does not exist.
  [[nodiscard]] std::string TextOf(std::int32_t key) const;

 private:
  TemporaryFolder m_folder;
  ScopedVariable m_registry;
};

}  // namespace quorvel::test
