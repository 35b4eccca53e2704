#pragma once

#include <chrono>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "ado/odbc/DriverConnection.h"

namespace quorvel::ado::odbc {

/// One statement: executed once, its results read to the end, then destroyed. It collects the messages of successful
/// calls.
class Statement {
 public:
  /// `timeout` limits each execution; 0 means no limit, and a driver without query timeouts has none.
  Statement(const DriverConnection& connection, std::chrono::seconds timeout);

  [[nodiscard]] const DriverConnection& Connection() const noexcept { return m_connection; }
  [[nodiscard]] SQLHSTMT Get() const noexcept { return m_handle.Get(); }

  /// Calls `function` on the statement. DriverError when it fails: the records of the failure, then the earlier
  /// messages.
  template <auto Function, typename... Arguments>
  SQLRETURN Call(const Api<Function>& function, Arguments... arguments) {
    const SQLRETURN code = function(Get(), arguments...);
    if (code == SQL_SUCCESS_WITH_INFO || code == SQL_NO_DATA) KeepMessages();
    if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) Fail(function.Name());
    return code;
  }

  /// Throws the failure of the last call, which was `function`.
  [[noreturn]] void Fail(std::string_view function);

  void SetAttribute(SQLINTEGER attribute, SQLPOINTER value, SQLINTEGER length = SQL_IS_POINTER) {
    Call(api::SetStmtAttr, attribute, value, length);
  }
  /// DriverError 42000 when the text holds a NUL character.
  void Execute(std::string_view text);
  /// The same for a text that the driver must not search for ODBC's own braces and parameter marks.
  void ExecuteVerbatim(std::string_view text);

  /// Keeps memory that the driver has pointers to: it may write there until the statement is destroyed.
  void Keep(std::shared_ptr<void> buffers) { m_kept.push_back(std::move(buffers)); }

  [[nodiscard]] std::vector<Diagnostic> TakeMessages() { return std::exchange(m_messages, {}); }

 private:
  void KeepMessages();

  /// For an attribute that a driver may not have; its refusal is ignored.
  void SetOptionalAttribute(SQLINTEGER attribute, SQLPOINTER value);

  const DriverConnection& m_connection;
  std::vector<std::shared_ptr<void>> m_kept;  ///< outlives the handle
  StatementHandle m_handle;
  std::vector<Diagnostic> m_messages;
};

}  // namespace quorvel::ado::odbc
