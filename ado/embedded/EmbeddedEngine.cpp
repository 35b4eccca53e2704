#include "ado/embedded/EmbeddedEngine.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <utility>

#include "ado/embedded/BatchParser.h"
#include "ado/embedded/Interpreter.h"
#include "ado/embedded/Procedures.h"
#include "ado/embedded/SqlFunctions.h"
#include "ado/embedded/Sqlite.h"
#include "platform/Error.h"
#include "platform/OperatingSystem.h"

namespace quorvel::ado {
namespace {

using namespace embedded;

/// One read transaction for finding out whether a procedure has changed and for running it: to begin one costs about as
/// much as a small query.
class ReadTransaction {
 public:
  explicit ReadTransaction(sqlite3* database) : m_database(database) {}

  void Begin() {
    if (sqlite3_get_autocommit(m_database) == 0) return;
    Run(m_begin, "BEGIN");
    m_isOpen = true;
  }
  void End() {
    // SQLite ends a transaction by itself after some errors.
    if (std::exchange(m_isOpen, false) && sqlite3_get_autocommit(m_database) == 0) Run(m_end, "COMMIT");
  }

 private:
  void Run(StatementHandle& statement, const char* sql) {
    if (!statement) statement = Prepare(m_database, sql);
    const ResetGuard guard(statement.Get());
    (void)Advance(m_database, statement.Get());
  }

  sqlite3* m_database;
  StatementHandle m_begin;
  StatementHandle m_end;
  bool m_isOpen = false;
};

class EmbeddedSession final : public Session {
 public:
  explicit EmbeddedSession(DatabaseHandle database)
      : m_database(std::move(database)),
        m_procedures(m_database.Get()),
        m_interpreter(m_database.Get(), m_procedures),
        m_reading(m_database.Get()) {}

  void SetCommandTimeout(std::chrono::seconds timeout) override {
    // ADO's 0 means without end, SQLite's means not at all.
    constexpr std::chrono::seconds kLongest{std::numeric_limits<int>::max() / 1000};
    const auto wait = timeout.count() <= 0 ? kLongest : std::min(timeout, kLongest);
    sqlite3_busy_timeout(m_database.Get(), static_cast<int>(wait.count()) * 1000);
  }

  Result Execute(std::string_view batch) override {
    const Program program = BatchParser(batch, m_procedures.Tables()).ParseBatch();
    Frame frame;
    return {m_interpreter.Run(program, frame), {}};
  }

  std::vector<ParameterInfo> DiscoverParameters(std::string_view procedure) override {
    const auto program = m_procedures.Find(procedure);
    std::vector<ParameterInfo> parameters;
    for (std::size_t i = 0; i < program->parameterCount; ++i) parameters.push_back(program->variables[i].info);
    return parameters;
  }

  Result Call(std::string_view procedure, std::span<Parameter> parameters) override {
    if (!m_procedures.IsKnownReader(procedure)) return CallNow(procedure, parameters);
    m_reading.Begin();
    try {
      Result result = CallNow(procedure, parameters);
      m_reading.End();
      return result;
    } catch (...) {
      m_reading.End();
      throw;
    }
  }

  [[nodiscard]] std::string Describe() const override {
    return fmt::format("embedded engine (SQLite {}), file {}", sqlite3_libversion(),
                       sqlite3_db_filename(m_database.Get(), "main"));
  }

 private:
  Result CallNow(std::string_view procedure, std::span<Parameter> parameters) {
    const auto program = m_procedures.Find(procedure);
    // It was changed to one that writes, and a reader must not turn writer.
    if (!program->onlyReads) m_reading.End();
    std::vector<std::optional<Value>> given;
    given.reserve(parameters.size());
    for (const Parameter& parameter : parameters) given.push_back(parameter.Given());
    Frame frame = MakeFrame(*program, std::move(given), procedure);
    Result result{m_interpreter.Run(*program, frame), {}};
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      if (parameters[i].IsOutput()) parameters[i].SetOutput(std::move(frame[i]));
    }
    return result;
  }

  DatabaseHandle m_database;
  Procedures m_procedures;
  Interpreter m_interpreter;
  ReadTransaction m_reading;
};

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

/// The settings that every connection needs. Reading the journal mode is the first look into the file and finds out
/// whether it is a database at all.
void Configure(sqlite3* database) {
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  RegisterFunctions(database);
  Execute(database, "PRAGMA foreign_keys = ON");
  if (!UsesWriteAheadLog(database) && sqlite3_db_readonly(database, "main") == 0) {
    // Fails while another program uses the file in the old way; then this connection does the same.
    sqlite3_exec(database, "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
  }
  Execute(database, "PRAGMA synchronous = FULL");
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

}  // namespace

std::unique_ptr<Session> OpenEmbedded(const ConnectOptions& options) {
  CheckFile(options.initialCatalog);
  DatabaseHandle database = OpenFile(options.initialCatalog, SQLITE_OPEN_READWRITE);
  sqlite3* handle = database.Get();
  auto session = std::make_unique<EmbeddedSession>(std::move(database));
  session->SetCommandTimeout(options.commandTimeout);
  Configure(handle);
  return session;
}

void CreateEmbeddedDatabase(const std::string& path) {
  const std::filesystem::path file = os::PathOf(path);
  std::error_code error;
  if (std::filesystem::exists(file, error)) return;
  if (file.has_parent_path()) std::filesystem::create_directories(file.parent_path(), error);
  try {
    if (error) throw DriverError("08001", error.value(), os::Explain(error));
    const DatabaseHandle database = OpenFile(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    sqlite3_busy_timeout(database.Get(), 60'000);
    Execute(database.Get(), "PRAGMA journal_mode = WAL");
  } catch (const DriverError& failure) {
    throw Error(ErrorNumber::DbUnspecified, "Quorvel.Embedded",
                fmt::format("The database file {} cannot be created: {}", path, failure.what()));
  }
}

}  // namespace quorvel::ado
