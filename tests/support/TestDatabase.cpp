#include "tests/support/TestDatabase.h"

#include <fmt/format.h>

#include <filesystem>
#include <map>

#include "ado/Script.h"
#include "ado/embedded/EmbeddedEngine.h"
#include "ado/embedded/Sqlite.h"
#include "ado/embedded/SqliteExtensions.h"
#include "data/Schema.h"
#include "tests/support/Rows.h"
#include "tests/support/TestSettings.h"

namespace quorvel::test {
namespace {

std::string ConnectionStringOf(const std::string& file) { return "Data Source=(embedded); Initial Catalog=" + file; }

/// A database file with that content, made once per test program and copied from then on.
const std::string& Template(TestDatabase::Content content) {
  static TemporaryFolder folder;
  static std::map<TestDatabase::Content, std::string> made;
  auto [entry, isNew] = made.try_emplace(content, folder.File(std::to_string(static_cast<int>(content)) + ".db"));
  if (isNew) {
    ado::CreateEmbeddedDatabase(entry->second);
    const auto connection = ConnectBy(ConnectionStringOf(entry->second));
    if (content != TestDatabase::Content::Empty) RunScript(*connection, SchemaScript());
    if (content == TestDatabase::Content::Sample) RunScript(*connection, SampleScript());
  }
  return entry->second;
}

}  // namespace

void RunScript(ado::Connection& connection, std::string_view script) {
  for (const ado::Batch& batch : ado::SplitBatches(script)) connection.Execute(batch.text);
}

std::string IntegrityOf(const std::string& file) {
  using namespace ado::embedded;
  DatabaseHandle database;
  if (sqlite3_open(file.c_str(), database.Put()) != SQLITE_OK) return "It cannot be opened";
  // The rules of columns call functions of the engine.
  RegisterExtensions(database.Get());
  const StatementHandle check = Prepare(database.Get(), "PRAGMA integrity_check");
  return Advance(database.Get(), check.Get()) ? std::string(ReadText(check.Get(), 0)) : "";
}

TestDatabase::TestDatabase(Content content) : m_registry("QUORVEL_REGISTRY", m_folder.File("settings.reg")) {
  std::filesystem::copy_file(Template(content), DatabaseFile());
  UseSettings(ado::kEmbeddedDataSource, DatabaseFile());
}

std::string TestDatabase::ConnectionString() const { return ConnectionStringOf(DatabaseFile()); }

std::shared_ptr<ado::Connection> TestDatabase::Connect() const {
  auto connection = ConnectBy(ConnectionString());
  connection->SetCommandTimeout(std::chrono::seconds(5));
  return connection;
}

void TestDatabase::Run(std::string_view batch) const { Connect()->Execute(batch); }

std::string TestDatabase::Ask(std::string_view query) const {
  const auto rows = Connect()->Execute(query);
  if (!rows->IsOpen() || rows->EndOfFile()) return "";
  return Shown(rows->Fields(std::size_t{0}).Value());
}

void TestDatabase::StoreMemo(std::int32_t key, const std::string& text, const std::string& type,
                             std::int32_t ownerKey) const {
  Run(
      fmt::format("INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText) "
                  "VALUES ({}, '{}', 501, {}, GETDATE(), 'host', '{}')",
                  key, type, ownerKey, text));
}

std::string TestDatabase::TextOf(std::int32_t key) const {
  return Ask(fmt::format("SELECT MemoText FROM tciMemo WHERE MemoKey = {}", key));
}

}  // namespace quorvel::test
