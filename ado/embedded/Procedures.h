#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "ado/embedded/Catalog.h"
#include "ado/embedded/Program.h"
#include "ado/embedded/Sqlite.h"
#include "platform/Text.h"

namespace quorvel::ado::embedded {

/// The stored procedures of one database file: their text is a row of the file, their compiled form is kept here
/// until this or another connection changes a procedure.
class Procedures {
 public:
  explicit Procedures(sqlite3* database) : m_database(database), m_catalog(database) {}

  /// The procedure of that name, which may have brackets and an owner before it. DriverError "Could not find
  /// stored procedure" when there is none.
  [[nodiscard]] std::shared_ptr<Program> Find(std::string_view name);

  /// Whether the procedure, as of the last Find, only reads; false for one that has not been looked for.
  [[nodiscard]] bool IsKnownReader(std::string_view name) const;

  /// Creates, changes or drops a procedure, after its text has been checked. A column that one of its tables does not
  /// have is an error, as on a server.
  void Define(const DefineProcedureStep& step);

  [[nodiscard]] const Catalog& Tables() const noexcept { return m_catalog; }

 private:
  [[nodiscard]] std::int64_t FileVersion();
  [[nodiscard]] std::string ReadDefinition(std::string_view name);
  [[nodiscard]] bool Exists(std::string_view name);
  void CheckDefinition(const DefineProcedureStep& step);
  void StoreInTransaction(const DefineProcedureStep& step);
  void Store(const DefineProcedureStep& step);

  sqlite3* m_database;
  Catalog m_catalog;
  StatementHandle m_versionQuery;
  std::int64_t m_version = -1;
  std::map<std::string, std::shared_ptr<Program>, LessIgnoringCase> m_compiled;
};

}  // namespace quorvel::ado::embedded
