// The calls of SQLite's C interface that the engine needs, with exceptions for result codes and Value for cells.
#include "ado/embedded/Sqlite.h"

#include <algorithm>
#include <limits>
#include <new>

#include "ado/embedded/SqlType.h"
#include "ado/embedded/SqliteError.h"
#include "platform/Stack.h"

namespace quorvel::ado::embedded {
namespace {

/// SQLite calls itself for each level of an expression, and a sum of many numbers has as many levels.
int DeepestExpression() noexcept {
  constexpr std::size_t kLimitOfSqlite = 1000;
  constexpr std::size_t kStackOfLevel = 512;  // SQLite 3.40 takes about 400
  constexpr std::size_t kStackOfStatement = std::size_t{32} * 1024;
  const std::size_t left = os::StackLeft();
  const std::size_t levels = left > kStackOfStatement ? (left - kStackOfStatement) / kStackOfLevel : 0;
  return static_cast<int>(std::clamp<std::size_t>(levels, 1, kLimitOfSqlite));  // 0 would mean without a limit
}

}  // namespace

StatementHandle Prepare(sqlite3* database, std::string_view sql) {
  if (sql.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) ThrowDriverError(nullptr, SQLITE_TOOBIG);
  sqlite3_limit(database, SQLITE_LIMIT_EXPR_DEPTH, DeepestExpression());
  StatementHandle statement;
  const int code = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                                      statement.Put(), nullptr);
  if (code != SQLITE_OK) ThrowDriverError(database, code);
  return statement;
}

void Bind(sqlite3* database, sqlite3_stmt* statement, int index, const Value& value) {
  struct Binder {
    sqlite3_stmt* statement;
    int index;
    int operator()(Null) const { return sqlite3_bind_null(statement, index); }
    int operator()(bool flag) const { return sqlite3_bind_int(statement, index, flag ? 1 : 0); }
    int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, index, number); }
    int operator()(double number) const { return sqlite3_bind_double(statement, index, number); }
    int operator()(DateTime moment) const {
      const std::string text = FormatDateTime(moment);
      return sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
    int operator()(const std::string& text) const {
      return sqlite3_bind_text64(statement, index, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    }
  };
  const int code = std::visit(Binder{statement, index}, value);
  if (code != SQLITE_OK) ThrowDriverError(database, code);
}

bool Advance(sqlite3* database, sqlite3_stmt* statement) {
  const int code = sqlite3_step(statement);
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) ThrowDriverError(database, code);
  return false;
}

void Execute(sqlite3* database, const char* sql) {
  const int code = sqlite3_exec(database, sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) ThrowDriverError(database, code);
}

std::vector<Column> DescribeColumns(sqlite3_stmt* statement) {
  std::vector<Column> columns;
  for (int i = 0; i < sqlite3_column_count(statement); ++i) {
    const char* declared = sqlite3_column_decltype(statement, i);
    columns.push_back({sqlite3_column_name(statement, i), TypeOfDeclaration(declared != nullptr ? declared : "")});
  }
  return columns;
}

std::string_view ReadText(sqlite3_stmt* statement, int column) {
  return TextOf(sqlite3_column_value(statement, column));
}

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = sqlite3_value_text(value);
  if (text == nullptr) return {};
  return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

// A value is looked up once for its type and content, which takes half the time of the functions for columns. SQLite
// allows that where no other thread uses the connection, and a connection belongs to one thread.
void AppendRow(sqlite3_stmt* statement, RowSet& rows) {
  const auto& columns = rows.Columns();
  for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
    sqlite3_value* const value = sqlite3_column_value(statement, i);
    switch (sqlite3_value_type(value)) {
      case SQLITE_NULL:
        rows.AppendNull();
        break;
      case SQLITE_INTEGER:
        rows.AppendInteger(sqlite3_value_int64(value));
        break;
      case SQLITE_FLOAT:
        rows.AppendReal(sqlite3_value_double(value));
        break;
      default: {
        const std::string_view text = TextOf(value);
        // SQLite found no memory for a copy; an empty text in its place could be stored over the remark's own.
        if (text.data() == nullptr) throw std::bad_alloc();
        const bool isDate = columns[static_cast<std::size_t>(i)].type == DataType::DBTimeStamp;
        if (const auto moment = isDate ? ParseDateTime(text) : std::nullopt) {
          rows.AppendDateTime(*moment);
        } else {
          rows.AppendText(text);
        }
      }
    }
  }
}

Value ReadValue(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return Null{};
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_column_int64(statement, column)};
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    default:
      return std::string(ReadText(statement, column));
  }
}

}  // namespace quorvel::ado::embedded
