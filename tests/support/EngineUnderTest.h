#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ado/Connection.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/tds/StandInServer.h"

namespace quorvel::test {

enum class EngineKind {
  Embedded,
  SqliteDriver,  ///< ODBC with SQLite's driver: a real driver without procedures and T-SQL
  StandIn,       ///< ODBC with FreeTDS to the stand-in server
  SqlServer,     ///< ODBC to the server that QUORVEL_TEST_SQLSERVER names by a connection string
};
[[nodiscard]] std::string NameOf(EngineKind kind);
/// Why tests over that engine cannot run here; empty when they can.
[[nodiscard]] std::string WhyNot(EngineKind kind);

/// A database of one engine for one test. Tables and procedures with names from here are dropped at the end, so that a
/// real server's database stays as it was.
class EngineUnderTest {
 public:
  explicit EngineUnderTest(EngineKind kind);
  ~EngineUnderTest();
  EngineUnderTest(const EngineUnderTest&) = delete;
  EngineUnderTest& operator=(const EngineUnderTest&) = delete;

  [[nodiscard]] std::string ConnectionString() const;
  [[nodiscard]] std::shared_ptr<ado::Connection> Connect() const;
  /// T-SQL: procedures, batches of several statements, SQL Server's error numbers.
  [[nodiscard]] bool SpeaksTransactSql() const noexcept { return m_kind != EngineKind::SqliteDriver; }
  /// Characters of every kind; SQLite's driver passes only ASCII on.
  [[nodiscard]] std::string_view Strange() const noexcept {
    return SpeaksTransactSql() ? "\u00BD e\u0301 \u05E9\u05DC\u05D5\u05DD \U0001F600" : "~";
  }
  /// The engine's type for texts without a limit, and a literal that may hold any character.
  [[nodiscard]] std::string_view LongText() const noexcept;
  [[nodiscard]] std::string Literal(std::string_view text) const;

  /// A name that nothing else on the server has. The test drops what it gives that name.
  [[nodiscard]] static std::string UniqueName(std::string_view name);
  /// The same for a table or procedure that is dropped at the end.
  [[nodiscard]] std::string Table(std::string_view name) { return NameToDrop("TABLE", name); }
  [[nodiscard]] std::string Procedure(std::string_view name) { return NameToDrop("PROCEDURE", name); }

 private:
  [[nodiscard]] std::string NameToDrop(std::string_view kind, std::string_view name);

  EngineKind m_kind;
  TemporaryFolder m_folder;
  std::unique_ptr<StandInServer> m_standIn;
  std::vector<std::string> m_drops;
};

}  // namespace quorvel::test
