#pragma once

#include <string>
#include <vector>

#include "ado/embedded/Sqlite.h"
#include "ado/engine/RowSet.h"

namespace quorvel::ado::embedded {

/// The values of a program's variables, by number.
using Frame = std::vector<Value>;

/// One SQLite statement of a program: variable n of the batch is bound to ?(n+1). Compiled for one database on first
/// use and kept, so it must be destroyed before the database is closed.
class Query {
 public:
  Query() = default;
  /// `variables` are the numbers of those that the statement reads.
  Query(std::string sql, std::vector<std::size_t> variables)
      : m_sql(std::move(sql)), m_variables(std::move(variables)) {}

  /// Compiles the statement unless that is done. DriverError when it cannot be compiled.
  void Compile(sqlite3* database);

  /// Drops the compiled statement if it writes: it is compiled again under the restrictions of the next run.
  void ForgetWriter() noexcept;

  /// The compiled statement, ready to run with its variables bound to their values in `frame`, which must not change
  /// until the statement is reset.
  [[nodiscard]] sqlite3_stmt* Begin(sqlite3* database, const Frame& frame);

  /// The columns of the result, once the statement has been advanced: that compiles it again when a table was changed.
  [[nodiscard]] const std::vector<Column>& Columns();

 private:
  std::string m_sql;
  std::vector<std::size_t> m_variables;
  StatementHandle m_statement;
  std::vector<Column> m_columns;
  int m_describedCompilation = -1;  ///< the compilation that m_columns describes
};

}  // namespace quorvel::ado::embedded
