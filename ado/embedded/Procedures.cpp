// A procedure is compiled when it is first called. A counter in the file shows that a procedure has changed, and then
// all compiled programs are dropped.
#include "ado/embedded/Procedures.h"

#include <fmt/format.h>

#include "ado/embedded/ColumnCheck.h"
#include "ado/embedded/ProcedureParser.h"

namespace quorvel::ado::embedded {
namespace {

[[noreturn]] void ThrowNotFound(std::string_view name) {
  throw DriverError("42000", 2812, fmt::format("Could not find stored procedure '{}'.", name));
}

/// `dbo.name` and `[name]` as `name`.
std::string BareName(std::string_view procedure) {
  if (procedure.empty()) ThrowNotFound(procedure);
  TokenCursor cursor(procedure);
  std::string name = cursor.ExpectObjectName();
  if (!cursor.AtEnd()) cursor.Fail();
  return name;
}

}  // namespace

bool Procedures::IsKnownReader(std::string_view name) const {
  const auto found = m_compiled.find(name);
  return found != m_compiled.end() && found->second->onlyReads;
}

/// SQLite's user_version is free for programs. The engine counts the changes of procedures in it, so that every
/// connection to the file notices them.
std::int64_t Procedures::FileVersion() {
  if (!m_versionQuery) m_versionQuery = Prepare(m_database, "PRAGMA user_version");
  const ResetGuard guard(m_versionQuery.Get());
  return Advance(m_database, m_versionQuery.Get()) ? sqlite3_column_int64(m_versionQuery.Get(), 0) : 0;
}

std::shared_ptr<Program> Procedures::Find(std::string_view name) {
  if (const std::int64_t version = FileVersion(); version != m_version) {
    m_compiled.clear();
    m_version = version;
  }
  const auto found = m_compiled.find(name);
  if (found != m_compiled.end()) return found->second;
  const std::string definition = ReadDefinition(BareName(name));
  auto program = std::make_shared<Program>(ProcedureParser(definition, m_catalog).Parse());
  m_compiled.emplace(name, program);
  return program;
}

std::string Procedures::ReadDefinition(std::string_view name) {
  if (!Exists(name)) ThrowNotFound(name);
  const StatementHandle query =
      Prepare(m_database, fmt::format("SELECT Definition FROM {} WHERE Name = ?1", kProcedureTable));
  const Value key = std::string(name);
  Bind(m_database, query.Get(), 1, key);
  if (!Advance(m_database, query.Get())) ThrowNotFound(name);
  return std::string(ReadText(query.Get(), 0));
}

bool Procedures::Exists(std::string_view name) {
  const StatementHandle query = Prepare(m_database, "SELECT tsql_object_id(?1, 'P')");
  const Value key = std::string(name);
  Bind(m_database, query.Get(), 1, key);
  return Advance(m_database, query.Get()) && sqlite3_column_type(query.Get(), 0) != SQLITE_NULL;
}

void Procedures::Define(const DefineProcedureStep& step) {
  CheckDefinition(step);
  // A script that is run again must not make every connection compile its procedures again.
  if (step.mode == DefineProcedureStep::Mode::Alter && ReadDefinition(step.name) == step.definition) return;
  StoreInTransaction(step);
}

void Procedures::CheckDefinition(const DefineProcedureStep& step) {
  using Mode = DefineProcedureStep::Mode;
  if (step.mode != Mode::Drop) {
    Program program = ProcedureParser(step.definition, m_catalog).Parse();
    RequireColumns(program, m_database);
  }
  const bool exists = Exists(step.name);
  if (step.mode == Mode::Create && exists) {
    throw DriverError("42S01", 2714, fmt::format("There is already an object named '{}' in the database.", step.name));
  }
  if (step.mode != Mode::Create && !exists) {
    throw DriverError("42S02", 208, fmt::format("Invalid object name '{}'.", step.name));
  }
}

/// In a transaction that writes from the beginning, as NestedTransaction explains. When the batch has a transaction
/// open, a savepoint nests in it.
void Procedures::StoreInTransaction(const DefineProcedureStep& step) {
  const bool isOwn = sqlite3_get_autocommit(m_database) != 0;
  Execute(m_database, isOwn ? "BEGIN IMMEDIATE" : "SAVEPOINT define_procedure");
  try {
    Store(step);
    Execute(m_database, isOwn ? "COMMIT" : "RELEASE define_procedure");
  } catch (...) {
    sqlite3_exec(m_database, isOwn ? "ROLLBACK" : "ROLLBACK TO define_procedure; RELEASE define_procedure", nullptr,
                 nullptr, nullptr);
    throw;
  }
}

void Procedures::Store(const DefineProcedureStep& step) {
  Execute(m_database, fmt::format("CREATE TABLE IF NOT EXISTS {} (Name TEXT NOT NULL PRIMARY KEY COLLATE NOCASE, "
                                  "Definition TEXT NOT NULL)",
                                  kProcedureTable)
                          .c_str());
  const bool drops = step.mode == DefineProcedureStep::Mode::Drop;
  const StatementHandle change =
      Prepare(m_database, drops ? fmt::format("DELETE FROM {} WHERE Name = ?1 AND ?2 IS NOT NULL", kProcedureTable)
                                : fmt::format("INSERT INTO {} (Name, Definition) VALUES (?1, ?2) ON CONFLICT (Name) DO "
                                              "UPDATE SET Definition = excluded.Definition",
                                              kProcedureTable));
  const Value name = step.name;
  const Value definition = step.definition;
  Bind(m_database, change.Get(), 1, name);
  Bind(m_database, change.Get(), 2, definition);
  (void)Advance(m_database, change.Get());
  Execute(m_database, fmt::format("PRAGMA user_version = {}", FileVersion() + 1).c_str());
}

}  // namespace quorvel::ado::embedded
