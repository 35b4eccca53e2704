// Opens and makes database files. Everything about an open one is in EmbeddedSession.
#include "ado/embedded/EmbeddedEngine.h"

#include <fmt/format.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "ado/embedded/EmbeddedSession.h"
#include "ado/embedded/Sqlite.h"
#include "ado/embedded/SqliteError.h"
#include "ado/embedded/SqliteExtensions.h"
#include "platform/Error.h"
#include "platform/OperatingSystem.h"

namespace quorvel::ado {
namespace {

using namespace embedded;

void CheckFile(const std::string& path) {
  std::error_code error;
  if (path.empty()) {
    throw DriverError("08001", 0,
                      "No database file is set: the setting Database must name the file of the embedded engine.");
  }
  const std::filesystem::path file = os::PathOf(path);
  if (!std::filesystem::exists(file, error)) {
    throw DriverError(
        "08001", 0,
        fmt::format("The database file {} does not exist{}.", path, error ? " (" + os::Explain(error) + ")" : ""));
  }
  if (std::filesystem::is_directory(file, error)) {
    throw DriverError("08001", 0, fmt::format("{} is a folder, not a database file.", path));
  }
}

bool UsesWriteAheadLog(sqlite3* database) {
  const StatementHandle query = Prepare(database, "PRAGMA journal_mode");
  return Advance(database, query.Get()) && ReadText(query.Get(), 0) == "wal";
}

/// The settings that every connection needs. Reading the journal mode is the first access to the file and fails when it
/// is not a database.
void Configure(sqlite3* database) {
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  RegisterExtensions(database);
  Execute(database, "PRAGMA foreign_keys = ON");
  if (!UsesWriteAheadLog(database) && sqlite3_db_readonly(database, "main") == 0) {
    // Fails while another program uses the file with its former journal; then this connection does the same.
    sqlite3_exec(database, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
  }
  Execute(database, "PRAGMA synchronous = FULL");
}

/// SQLite gives the log and its index the mode of the file, and the user's own group, which the file's other users may
/// not be in.
void ShareFilesBeside(sqlite3* database) {
  const std::string file = sqlite3_db_filename(database, "main");
  for (const char* suffix : {"-wal", "-shm"}) os::TakeGroup(os::PathOf(file + suffix), os::PathOf(file));
}

DatabaseHandle OpenFile(const std::string& path, int flags) {
  DatabaseHandle database;
  const int code =
      sqlite3_open_v2(path.c_str(), database.Put(), flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  if (code != SQLITE_OK) {
    throw DriverError("08001", code,
                      fmt::format("The database file {} cannot be opened: {}.", path,
                                  database ? sqlite3_errmsg(database.Get()) : sqlite3_errstr(code)));
  }
  return database;
}

std::unique_ptr<Session> OpenNow(const ConnectOptions& options) {
  DatabaseHandle database = OpenFile(options.initialCatalog, SQLITE_OPEN_READWRITE);
  sqlite3* handle = database.Get();
  auto session = std::make_unique<EmbeddedSession>(std::move(database), os::PathOf(options.initialCatalog),
                                                   options.commandTimeout);
  Configure(handle);
  ShareFilesBeside(handle);
  session->RequireOpenedFiles();
  return session;
}

// Another user who opens the file first makes the log and its index, and gives them the file's group a moment later.
constexpr int kMostTries = 10;
constexpr std::chrono::milliseconds kPauseBetweenTries{20};

bool CannotOpenAFile(const DriverError& failure) {
  return (failure.Records().front().nativeError & 0xFF) == SQLITE_CANTOPEN;
}

}  // namespace

std::unique_ptr<Session> OpenEmbedded(const ConnectOptions& options) {
  CheckFile(options.initialCatalog);
  for (int tries = 1;; ++tries) {
    try {
      return OpenNow(options);
    } catch (const DriverError& failure) {
      if (tries == kMostTries || !CannotOpenAFile(failure)) throw;
    }
    std::this_thread::sleep_for(kPauseBetweenTries);
  }
}

void CreateEmbeddedDatabase(const std::string& path) {
  const std::filesystem::path file = os::PathOf(path);
  std::error_code error;
  if (std::filesystem::exists(file, error)) return;
  if (file.has_parent_path()) error = os::CreateSharedFolders(file.parent_path());
  try {
    // SQLite lets every user read the files that it creates. The log and the index beside the file get its mode.
    if (!error) error = os::CreateSharedFile(file);
    if (error) throw DriverError("08001", error.value(), os::Explain(error));
    const DatabaseHandle database = OpenFile(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    sqlite3_busy_timeout(database.Get(), 60'000);
    const int code = sqlite3_exec(database.Get(), "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
    // Another program may be making the same file. Every connection that is opened sets the journal as well.
    if (code != SQLITE_OK && (code & 0xFF) != SQLITE_BUSY) ThrowDriverError(database.Get(), code);
  } catch (const DriverError& failure) {
    throw Error(ErrorNumber::DbUnspecified, "Quorvel.Embedded",
                fmt::format("The database file {} cannot be created: {}", path, failure.what()));
  }
}

}  // namespace quorvel::ado
