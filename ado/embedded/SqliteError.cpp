// SQLite's result codes and messages as the SQLSTATE, number and text that a SQL Server gives for the same failure.
#include "ado/embedded/SqliteError.h"

#include <fmt/format.h>

#include <cerrno>
#include <optional>
#include <system_error>

#include "ado/embedded/NumberRules.h"
#include "ado/embedded/TypeRules.h"
#include "ado/engine/DriverError.h"
#include "platform/OperatingSystem.h"

namespace quorvel::ado::embedded {
namespace {

std::string After(std::string_view text, std::string_view prefix) {
  const auto at = text.find(prefix);
  return at == std::string_view::npos ? std::string(text) : std::string(text.substr(at + prefix.size()));
}

DriverError CheckFailed(const std::string& constraint) {
  if (auto violation = TypeRuleViolation(constraint)) return std::move(*violation);
  return {"23000", 547, fmt::format("The statement conflicted with the CHECK constraint \"{}\".", constraint)};
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
  constexpr std::string_view kNoInsertedColumn = " has no column named ";  // after "table " and its name
  if (message.starts_with(kNoTable)) {
    return {"42S02", 208, fmt::format("Invalid object name '{}'.", After(message, kNoTable))};
  }
  if (message == "parser stack overflow" || message.starts_with("Expression tree is too large")) {
    return {"42000", 191, "Some part of the statement is nested too deeply."};
  }
  if (numberRules::IsNotWhole(message)) return {"22018", 245, message};
  if (message.ends_with(" already exists")) return {"42S01", 2714, message};
  const std::string_view mark = message.starts_with("table ") ? kNoInsertedColumn : kNoColumn;
  if (message.find(mark) != std::string::npos) {
    return {"42S22", 207, fmt::format("Invalid column name '{}'.", After(message, mark))};
  }
  return {"42000", 170, message};
}

DriverError DiskFull(const std::string& file) {
  return {"HY000", 1105, fmt::format("The disk is full: {} did not take this change.", file)};
}

/// Whether SQLite did its last step on the way to the disk, so that the change may be there after a restart.
bool IsOutcomeUnknown(int resultCode) {
  return resultCode == SQLITE_IOERR_FSYNC || resultCode == SQLITE_IOERR_DIR_FSYNC ||
         resultCode == SQLITE_IOERR_COMMIT_ATOMIC;
}

/// A failed read or write of the file or of the two beside it, with the reason that the operating system gives.
DriverError FileFailed(sqlite3* database, int resultCode, const std::string& file) {
  const std::error_code cause(database != nullptr ? sqlite3_system_errno(database) : 0, std::system_category());
  if (os::IsOutOfSpace(cause) && !IsOutcomeUnknown(resultCode)) return DiskFull(file);
  if (cause == std::errc::read_only_file_system) {
    return {"HY000", 3906,
            fmt::format("The database {} stands on a read-only file system and cannot be used there.", file)};
  }
  const std::string reason = cause ? os::Explain(cause) : sqlite3_errstr(resultCode);
  return {(resultCode & 0xFF) == SQLITE_CANTOPEN ? "08001" : "HY000", resultCode,
          fmt::format("The database {} or a file beside it cannot be used: {}.{}", file, reason,
                      IsOutcomeUnknown(resultCode) ? " It is not known whether the last change was stored." : "")};
}

/// SQLite calls a file damaged when the disk cannot read it. The system's error is then that of the file or of the
/// write-ahead log.
std::optional<std::error_code> FailedRead(sqlite3* database) {
  if (database == nullptr) return std::nullopt;
  for (const int which : {SQLITE_FCNTL_FILE_POINTER, SQLITE_FCNTL_JOURNAL_POINTER}) {
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(database, "main", which, &file) != SQLITE_OK || file == nullptr) continue;
    int cause = 0;
    if (file->pMethods == nullptr || file->pMethods->xFileControl(file, SQLITE_FCNTL_LAST_ERRNO, &cause) != SQLITE_OK)
      continue;
    const std::error_code error(cause, std::system_category());
    if (error == std::errc::io_error || error == std::errc::no_such_device_or_address) return error;
  }
  return std::nullopt;
}

DriverError WriteRefused(int extendedCode, const std::string& file) {
  if (extendedCode == SQLITE_READONLY) {
    return {"HY000", 3906,
            fmt::format("The database {0}, {0}-wal or {0}-shm is read-only here and did not take this change.", file)};
  }
  return {"HY000", 3906,
          fmt::format("The database {} cannot be used: this user must be able to write to its folder, where two files "
                      "stand beside it.",
                      file)};
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
    case SQLITE_INTERRUPT:
      return {"HYT00", 0, "Timeout expired: the command took longer than the command timeout."};
    case SQLITE_AUTH:
      return {"42000", 229, "The embedded engine does not let a statement or a view of the file reach this."};
    case SQLITE_READONLY:
      return WriteRefused(extended, file);
    case SQLITE_FULL:
      return DiskFull(file);
    case SQLITE_NOTADB:
      return {"08001", 0, fmt::format("The file {} is not a database of the embedded engine.", file)};
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
      return FileFailed(database, extended, file);
    case SQLITE_CORRUPT:
      if (const auto cause = FailedRead(database)) {
        return {"HY000", SQLITE_IOERR_READ,
                fmt::format("The database {} cannot be read: {}.", file, os::Explain(*cause))};
      }
      return {"HY000", 824, fmt::format("The database {} is damaged ({}); restore it from a backup.", file, message)};
    case SQLITE_MISMATCH:
      return {"22018", 245, "Conversion failed: a key must be a whole number."};
    default:
      return {"HY000", extended, file.empty() ? message : fmt::format("{} ({})", message, file)};
  }
}

}  // namespace

void ThrowDriverError(sqlite3* database, int resultCode) { throw Translate(database, resultCode); }

}  // namespace quorvel::ado::embedded
