// Scripts of T-SQL, run on a small database. Whatever they say, they change nothing but that database, they leave it
// whole, and they end.

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "ado/Connection.h"
#include "ado/Script.h"
#include "platform/Error.h"
#include "tests/fuzz/FreshDatabase.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/support/Rows.h"

/// A clock that goes on by 20 ms with each look at it. The engine's limit of one second is then 50 looks, which take
/// some milliseconds, and an input without an end always ends at the same place.
std::chrono::steady_clock::time_point std::chrono::steady_clock::now() noexcept {
  static time_point moment;
  return moment += std::chrono::milliseconds(20);
}

namespace quorvel::fuzz {
namespace {

void RunBatch(ado::Connection& connection, std::string_view batch) {
  connection.ClearErrors();
  try {
    const auto rows = connection.Execute(batch);
    if (!rows->IsOpen()) return;
    for (; !rows->EndOfFile(); rows->MoveNext()) {
      for (std::size_t i = 0; i < rows->FieldCount(); ++i) (void)test::Shown(rows->Fields(i).Value());
    }
  } catch (const Error& error) {
    constexpr int kRaised = 50000;  // by a RAISERROR, which has any text
    Require(!connection.Errors().empty(), "an error is in Errors");
    Require(!error.Description().empty() || connection.Errors().front().nativeError == kRaised, "an error has a text");
  }
}

void CheckFiles(const std::filesystem::path& database) {
  for (const auto& entry : std::filesystem::directory_iterator(database.parent_path())) {
    const std::string name = entry.path().filename().string();
    Require(name.starts_with(database.filename().string()) || name == "settings.reg", "no other file is written");
  }
}

}  // namespace

void Try(std::string_view input) {
  static FreshDatabase database(test::TestDatabase::Content::Schema);
  static std::shared_ptr<ado::Connection> connection;
  if (database.Renew()) {
    connection = database->Connect();
    connection->SetCommandTimeout(std::chrono::seconds(1));
    std::filesystem::current_path(std::filesystem::path(database->DatabaseFile()).parent_path());
  }
  for (const ado::Batch& batch : ado::SplitBatches(input)) RunBatch(*connection, batch.text);
  RunBatch(*connection, "ROLLBACK");
  CheckFiles(database->DatabaseFile());
  if (database.IsWritten()) {
    const std::string found = test::IntegrityOf(database->DatabaseFile());
    Require(found == "ok", found.c_str());
  }
}

}  // namespace quorvel::fuzz
