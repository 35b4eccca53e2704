#include "bench/BenchDatabase.h"

#include <fmt/format.h>
#include <stdlib.h>  // NOLINT(modernize-deprecated-headers): setenv and mkdtemp are POSIX

#include <filesystem>
#include <stdexcept>

#include "ado/Connection.h"
#include "ado/Script.h"
#include "ado/embedded/EmbeddedEngine.h"
#include "data/Schema.h"
#include "data/modRegistry.h"

namespace quorvel::bench {
namespace {

/// Removes the database when the program ends.
class Folder {
 public:
  Folder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "quorvel-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot make a temporary folder");
    m_path = pattern;
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  [[nodiscard]] std::string File(const char* name) const { return (m_path / name).string(); }

 private:
  std::filesystem::path m_path;
};

/// Remarks of about 100 characters, spread over the four types of customers.
constexpr const char* kAddOwner = R"(
INSERT INTO Customer (CustID, CustName) VALUES ('{0}', N'Owner of {1} remarks');
INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText)
SELECT (SELECT MAX(MemoKey) FROM tciMemo) + d.n,
  CASE d.n % 4 WHEN 0 THEN 'Cust.AR.Coll' WHEN 1 THEN 'Cust.Credit' WHEN 2 THEN 'Cust.General' ELSE 'Cust.Internal' END,
  501, (SELECT CustKey FROM Customer WHERE CustID = '{0}'), DATEADD(minute, d.n, '2020-01-01'), 'jsmith',
  N'Remark ' + CAST(d.n AS nvarchar(10)) + N': spoke to accounts payable, payment promised by the end of the week, call again on Monday.'
FROM (SELECT TOP ({1}) ROW_NUMBER() OVER (ORDER BY a.MemoKey) AS n
      FROM tciMemo a CROSS JOIN tciMemo b WHERE a.MemoKey <= 1000 AND b.MemoKey <= 1000) d)";

std::string Create(const Folder& folder) {
  std::string file = folder.File("bench.db");
  setenv("QUORVEL_REGISTRY", folder.File("settings.reg").c_str(), 1);
  const auto key = registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey);
  if (!key || !key->SetString(modRegistry::kServer, ado::kEmbeddedDataSource) ||
      !key->SetString(modRegistry::kDatabase, file)) {
    throw std::runtime_error("cannot write the settings");
  }
  ado::CreateEmbeddedDatabase(file);
  const auto connection = std::make_shared<ado::Connection>();
  connection->SetConnectionString("Data Source=(embedded); Initial Catalog=" + file);
  connection->Open();
  for (const std::string_view script : {SchemaScript(), SampleScript()}) {
    for (const ado::Batch& batch : ado::SplitBatches(script)) connection->Execute(batch.text);
  }
  for (const int remarks : {10, 1'000, 10'000, 100'000, 1'000'000}) {
    connection->Execute(fmt::format(fmt::runtime(kAddOwner), OwnerOf(remarks), remarks));
  }
  return file;
}

}  // namespace

const std::string& DatabaseFile() {
  static const Folder folder;
  static const std::string file = Create(folder);
  return file;
}

}  // namespace quorvel::bench
