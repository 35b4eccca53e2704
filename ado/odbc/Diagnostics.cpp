// Makes the drivers' reports uniform: every record, without the names before the message, with the line if SQL Server
// gives one, and with a lost connection under its own SQLSTATE.

#include "ado/odbc/Diagnostics.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "ado/odbc/WideText.h"

namespace quorvel::ado::odbc {
namespace {

constexpr SQLSMALLINT kUsualMessage = 1024;
/// SQL Server's own field of a record: the line in the batch, or in the procedure that raised the error.
constexpr SQLSMALLINT kLineField = -1154;

/// FreeTDS reports a lost connection as 01000: read or write failed, connection dead, unexpected end.
bool IsLostConnection(std::int32_t number) {
  constexpr std::array<std::int32_t, 4> kNumbers = {20004, 20006, 20017, 20047};
  return std::find(kNumbers.begin(), kNumbers.end(), number) != kNumbers.end();
}

constexpr std::string_view kNoReason = "failed and the driver gave no reason.";

bool IsWarning(const Diagnostic& record) { return record.sqlState.starts_with("01"); }

/// 0 from drivers that have no such field: they refuse the call.
int LineOf(SQLSMALLINT handleType, SQLHANDLE handle, SQLSMALLINT number) {
  SQLINTEGER line = 0;
  SQLSMALLINT length = 0;
  // The standard's code for the size of an integer field, and the one that FreeTDS needs instead.
  for (const SQLSMALLINT size : {SQLSMALLINT{SQL_IS_INTEGER}, SQLSMALLINT{sizeof line}}) {
    const SQLRETURN code =
        api::GetDiagField(handleType, handle, number, kLineField, static_cast<SQLPOINTER>(&line), size, &length);
    if (!SQL_SUCCEEDED(code)) continue;
    return std::max(static_cast<int>(line), 0);
  }
  return 0;
}

/// False after the last record.
bool ReadRecord(SQLSMALLINT handleType, SQLHANDLE handle, SQLSMALLINT number, Diagnostic& record) {
  std::array<SQLWCHAR, SQL_SQLSTATE_SIZE + 1> state{};
  std::u16string text(kUsualMessage, u'\0');
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  const auto read = [&] {
    return api::GetDiagRec(handleType, handle, number, state.data(), &native, Wide(text),
                           static_cast<SQLSMALLINT>(text.size()), &length);
  };
  SQLRETURN code = read();
  if (SQL_SUCCEEDED(code) && static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)) >= text.size()) {
    text.resize(static_cast<std::size_t>(length) + 1);
    code = read();
  }
  if (!SQL_SUCCEEDED(code)) return false;
  text.resize(std::min(text.size(), static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0))));
  record.sqlState = FromWide(state.data(), SQL_SQLSTATE_SIZE);
  record.nativeError = native;
  record.message = WithoutPrefixes(FromWide(Wide(text), text.size()));
  record.line = LineOf(handleType, handle, number);
  return true;
}

}  // namespace

std::vector<Diagnostic> ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle) {
  std::vector<Diagnostic> records;
  Diagnostic record;
  for (SQLSMALLINT number = 1; ReadRecord(handleType, handle, number, record); ++number) {
    records.push_back(std::move(record));
  }
  return records;
}

DriverError FailureOf(SQLSMALLINT handleType, SQLHANDLE handle, std::string_view function) {
  std::vector<Diagnostic> records = ReadDiagnostics(handleType, handle);
  std::stable_partition(records.begin(), records.end(), [](const Diagnostic& record) { return !IsWarning(record); });
  if (records.empty()) {
    records.push_back({"HY000", 0, fmt::format("The ODBC call {} {}", function, kNoReason), 0});
  } else if (Diagnostic& first = records.front(); IsWarning(first)) {
    first.sqlState = IsLostConnection(first.nativeError) ? "08S01" : "HY000";
    first.message += fmt::format(" (ODBC call {})", function);
  }
  return DriverError(std::move(records));
}

bool IsMadeUp(const Diagnostic& record) noexcept {
  return record.nativeError == 0 && record.message.ends_with(kNoReason);
}

std::string_view WithoutPrefixes(std::string_view message) noexcept {
  // After the server's name comes the server's own message, which may begin with a bracket too.
  constexpr std::string_view kServer = "[SQL Server]";
  bool isServers = false;
  while (message.starts_with('[') && !isServers) {
    const auto end = message.find(']');
    if (end == std::string_view::npos) break;
    isServers = message.starts_with(kServer);
    message.remove_prefix(end + 1);
  }
  return message;
}

}  // namespace quorvel::ado::odbc
