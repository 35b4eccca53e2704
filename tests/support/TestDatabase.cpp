#include "tests/support/TestDatabase.h"

#include <filesystem>
#include <map>

#include "ado/Script.h"
#include "ado/embedded/EmbeddedEngine.h"
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

}  // namespace quorvel::test
