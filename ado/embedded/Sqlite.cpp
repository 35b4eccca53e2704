#include "ado/embedded/Sqlite.h"

#include <fmt/format.h>

#include <limits>
#include <system_error>

#include "ado/embedded/SqlType.h"
#include "platform/OperatingSystem.h"

namespace quorvel::ado::embedded {
namespace {

std::string After(std::string_view text, std::string_view prefix) {
  const auto at = text.find(prefix);
  return at == std::string_view::npos ? std::string(text) : std::string(text.substr(at + prefix.size()));
}

/// The engine names its own column checks "SQLSTATE text", see TableTranslator; any other name is a host's CHECK.
DriverError CheckFailed(const std::string& constraint) {
  const bool isOwn = constraint.size() > 6 && constraint.starts_with("22") && constraint[5] == ' ';
  if (!isOwn)
    return {"23000", 547, fmt::format("The statement conflicted with the CHECK constraint \"{}\".", constraint)};
  const std::string sqlState = constraint.substr(0, 5);
  const std::string rule = constraint.substr(6);
  if (sqlState == kTextTooLong)
    return {sqlState, 8152, fmt::format("String or binary data would be truncated: {}.", rule)};
  if (sqlState == kNumberOutOfRange)
    return {sqlState, 220, fmt::format("Arithmetic overflow or not a number: {}.", rule)};
  return {sqlState, 241, fmt::format("Conversion failed: {}.", rule)};
}

DriverError ConstraintFailed(int extendedCode, const std::string& message) {
  const std::string what = After(message, "failed: ");
  switch (extendedCode) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return {"23000", 2627,
              fmt::format("Violation of a unique constraint: there is already a row with the same {}.", what)};
    case SQLITE_CONSTRAINT_FOREIGNKEY:
      return {
          "23000", 547,
          "The statement conflicted with a FOREIGN KEY constraint: a row that it refers to does not exist, or other "
          "rows still refer to the row."};
    case SQLITE_CONSTRAINT_NOTNULL:
      return {"23000", 515,
              fmt::format("Cannot insert the value NULL into {}; the column does not allow nulls.", what)};
    case SQLITE_CONSTRAINT_CHECK:
      return CheckFailed(what);
    default:
      return {"23000", extendedCode, message};
  }
}

DriverError StatementFailed(const std::string& message) {
  constexpr std::string_view kNoTable = "no such table: ";
  constexpr std::string_view kNoColumn = "no such column: ";
  if (message.starts_with(kNoTable)) {
    return {"42S02", 208, fmt::format("Invalid object name '{}'.", After(message, kNoTable))};
  }
  if (message.ends_with(" already exists")) return {"42S01", 2714, message};
  if (message.starts_with(kNoColumn)) {
    return {"42S22", 207, fmt::format("Invalid column name '{}'.", After(message, kNoColumn))};
  }
  return {"42000", 170, message};
}

/// What the operating system said to a failed read or write of the file or of the two beside it.
DriverError FileFailed(sqlite3* database, int resultCode, const std::string& file) {
  const std::error_code cause(database != nullptr ? sqlite3_system_errno(database) : 0, std::system_category());
  if (os::IsOutOfSpace(cause)) {
    return {"HY000", 1105, fmt::format("The disk is full; nothing was written to {}.", file)};
  }
  if (cause == std::errc::read_only_file_system) {
    return {"HY000", 3906,
            fmt::format("The database {} stands on a read-only file system and cannot be used there.", file)};
  }
  const std::string reason = cause ? os::Explain(cause) : sqlite3_errstr(resultCode);
  return {(resultCode & 0xFF) == SQLITE_CANTOPEN ? "08001" : "HY000", resultCode,
          fmt::format("The database {} or a file beside it cannot be used: {}.", file, reason)};
}

DriverError Translate(sqlite3* database, int resultCode) {
  const std::string message = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(resultCode);
  const int extended = database != nullptr ? sqlite3_extended_errcode(database) : resultCode;
  const char* path = database != nullptr ? sqlite3_db_filename(database, "main") : nullptr;
  const std::string file = path != nullptr ? path : "";
  switch (resultCode & 0xFF) {
    case SQLITE_CONSTRAINT:
      return ConstraintFailed(extended, message);
    case SQLITE_ERROR:
      return StatementFailed(message);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {"HYT00", 0, fmt::format("Timeout expired: another program kept the database {} locked.", file)};
    case SQLITE_READONLY:
      if (extended != SQLITE_READONLY) {
        return {"HY000", 3906,
                fmt::format("The database {} cannot be used: this user must be able to write to its folder, "
                            "where two files stand beside it.",
                            file)};
      }
      return {"HY000", 3906, fmt::format("The database {} is read-only here; nothing was written.", file)};
    case SQLITE_FULL:
      return {"HY000", 1105, fmt::format("The disk is full; nothing was written to {}.", file)};
    case SQLITE_NOTADB:
      return {"08001", 0, fmt::format("The file {} is not a database of the embedded engine.", file)};
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
      return FileFailed(database, extended, file);
    case SQLITE_CORRUPT:
      return {"HY000", 824, fmt::format("The database {} is damaged ({}); restore it from a backup.", file, message)};
    case SQLITE_MISMATCH:
      return {"22018", 245, "Conversion failed: a key must be a whole number."};
    default:
      return {"HY000", extended, file.empty() ? message : fmt::format("{} ({})", message, file)};
  }
}

}  // namespace

void ThrowDriverError(sqlite3* database, int resultCode) { throw Translate(database, resultCode); }

StatementHandle Prepare(sqlite3* database, std::string_view sql) {
  if (sql.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) ThrowDriverError(nullptr, SQLITE_TOOBIG);
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
  const auto* text = sqlite3_column_text(statement, column);
  if (text == nullptr) return {};
  return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

void AppendRow(sqlite3_stmt* statement, RowSet& rows) {
  const auto& columns = rows.Columns();
  for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
    switch (sqlite3_column_type(statement, i)) {
      case SQLITE_NULL:
        rows.AppendNull();
        break;
      case SQLITE_INTEGER:
        rows.AppendInteger(sqlite3_column_int64(statement, i));
        break;
      case SQLITE_FLOAT:
        rows.AppendReal(sqlite3_column_double(statement, i));
        break;
      default: {
        const std::string_view text = ReadText(statement, i);
        const auto moment =
            columns[static_cast<std::size_t>(i)].type == DataType::DBTimeStamp ? ParseDateTime(text) : std::nullopt;
        moment ? rows.AppendDateTime(*moment) : rows.AppendText(text);
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
