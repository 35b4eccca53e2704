#include "ado/odbc/Statement.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "ado/odbc/WideText.h"

namespace quorvel::ado::odbc {
namespace {

/// FreeTDS says only "Unknown error" when the connection was lost between two calls. After a timeout that the server
/// did not answer it says nothing of the connection.
void NameLostConnection(std::vector<Diagnostic>& records) {
  constexpr const char* kLost = "The connection to the server is lost.";
  if (Diagnostic& first = records.front(); first.sqlState == "HY000") {
    first.sqlState = "08S01";
    first.message.append(" ").append(kLost);
  } else if (std::ranges::none_of(records, [](const auto& each) { return each.sqlState.starts_with("08"); })) {
    records.push_back({"08S01", 0, kLost});
  }
  records.front().message.append(" It is not known whether the statement was carried out.");
}

/// FreeTDS has sent only a part of the request when a character of an identifier is none of the server's, and every
/// later request would fail with 24000.
void NameStuckConnection(std::vector<Diagnostic>& records) {
  constexpr std::int32_t kNoCharacterOfServer = 2402;
  const auto isStuck = [](const Diagnostic& each) {
    return each.nativeError == kNoCharacterOfServer || each.sqlState == "24000";
  };
  if (std::ranges::none_of(records, isStuck)) return;
  records.push_back(
      {"08S01", 0, "The driver cannot use the connection after this error; the next call opens it again."});
}

}  // namespace

Statement::Statement(const DriverConnection& connection, std::chrono::seconds timeout)
    : m_connection(connection), m_handle(MakeStatement(connection.Get())) {
  SetOptionalAttribute(SQL_ATTR_QUERY_TIMEOUT, AsPointer(timeout));
}

void Statement::Fail(std::string_view function) {
  std::vector<Diagnostic> records = FailureOf(SQL_HANDLE_STMT, Get(), function).Records();
  m_connection.IsDead() ? NameLostConnection(records) : NameStuckConnection(records);
  std::vector<Diagnostic> messages = TakeMessages();
  std::move(messages.begin(), messages.end(), std::back_inserter(records));
  throw DriverError(std::move(records));
}

void Statement::ExecuteVerbatim(std::string_view text) {
  SetOptionalAttribute(SQL_ATTR_NOSCAN, AsPointer(SQLULEN{SQL_NOSCAN_ON}));
  Execute(text);
}

void Statement::Execute(std::string_view text) {
  // A driver would send only the part before it, which may be a quite different statement.
  if (text.find('\0') != std::string_view::npos) {
    throw DriverError("42000", 0, "The statement holds a NUL character; nothing was sent.");
  }
  std::u16string wide = ToWide(text);
  Call(api::ExecDirect, Wide(wide), static_cast<SQLINTEGER>(wide.size()));
}

void Statement::SetOptionalAttribute(SQLINTEGER attribute, SQLPOINTER value) {
  const SQLRETURN code = api::SetStmtAttr(Get(), attribute, value, SQLINTEGER{SQL_IS_UINTEGER});
  if (SQL_SUCCEEDED(code)) return;
  const DriverError failure = FailureOf(SQL_HANDLE_STMT, Get(), api::SetStmtAttr.Name());
  // Drivers refuse under various SQLSTATEs, but always with a record; a failure without one is a real failure.
  if (IsMadeUp(failure.Records().front())) throw DriverError(failure);
}

void Statement::KeepMessages() {
  auto messages = ReadDiagnostics(SQL_HANDLE_STMT, Get());
  std::move(messages.begin(), messages.end(), std::back_inserter(m_messages));
}

}  // namespace quorvel::ado::odbc
