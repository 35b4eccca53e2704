#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "ado/engine/DriverError.h"
#include "ado/engine/RowSet.h"
#include "platform/UniqueHandle.h"
#include "platform/Value.h"

namespace quorvel::ado::embedded {

struct DatabaseTraits {
  using Type = sqlite3*;
  static Type Invalid() noexcept { return nullptr; }
  static void Close(Type handle) noexcept { sqlite3_close_v2(handle); }
};
using DatabaseHandle = UniqueHandle<DatabaseTraits>;

struct StatementTraits {
  using Type = sqlite3_stmt*;
  static Type Invalid() noexcept { return nullptr; }
  static void Close(Type handle) noexcept { sqlite3_finalize(handle); }
};
using StatementHandle = UniqueHandle<StatementTraits>;

/// Compiles one SQLite statement. DriverError when it cannot be compiled.
[[nodiscard]] StatementHandle Prepare(sqlite3* database, std::string_view sql);

/// Binds a value to 1-based `index`. The value must live until the statement is reset.
void Bind(sqlite3* database, sqlite3_stmt* statement, int index, const Value& value);

/// Advances to the next row; false at the end. DriverError on failure.
[[nodiscard]] bool Advance(sqlite3* database, sqlite3_stmt* statement);

/// Runs one SQLite statement without results or parameters.
void Execute(sqlite3* database, const char* sql);

/// The columns of a statement's result.
[[nodiscard]] std::vector<Column> DescribeColumns(sqlite3_stmt* statement);

/// The text of a value of SQLite, valid as long as the value; empty for NULL.
[[nodiscard]] std::string_view TextOf(sqlite3_value* value);

/// Adds the statement's current row to `rows`.
void AppendRow(sqlite3_stmt* statement, RowSet& rows);

/// One cell of the current row.
[[nodiscard]] Value ReadValue(sqlite3_stmt* statement, int column);
[[nodiscard]] std::string_view ReadText(sqlite3_stmt* statement, int column);

/// Ends a statement's run when a scope is left, so that it holds no lock and can run again.
class ResetGuard {
 public:
  explicit ResetGuard(sqlite3_stmt* statement) noexcept : m_statement(statement) {}
  ~ResetGuard() { sqlite3_reset(m_statement); }
  ResetGuard(const ResetGuard&) = delete;
  ResetGuard& operator=(const ResetGuard&) = delete;

 private:
  sqlite3_stmt* m_statement;
};

}  // namespace quorvel::ado::embedded
