#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "ado/engine/Parameter.h"
#include "ado/odbc/Statement.h"

namespace quorvel::ado::odbc {

/// The memory of one parameter of a call: bound before the call, read after it. It must not move while the statement
/// lives.
class ParameterBuffer {
 public:
  /// DriverError 22021 when a text is not well-formed UTF-8.
  explicit ParameterBuffer(const Parameter& parameter);

  /// Binds it as the `number`th marker (1-based) of the statement.
  void Bind(Statement& statement, SQLUSMALLINT number);

  /// The value of an output parameter after the call. DriverError 22001 when its text had no room.
  [[nodiscard]] Value Output() const;

 private:
  void Fill(const Value& value);
  void FillText(std::string_view text);
  template <typename Number>
  void FillNumber(Number number);
  void MakeRoom();
  [[nodiscard]] Value OutputText() const;
  [[nodiscard]] SQLSMALLINT IoType() const noexcept;

  ParameterInfo m_info;
  SQLSMALLINT m_clientType = SQL_C_WCHAR;
  SQLSMALLINT m_sqlType = SQL_WVARCHAR;
  bool m_hasLimit;     ///< only for texts
  SQLULEN m_size = 0;  ///< in characters; for a text without a limit the length of this value
  SQLSMALLINT m_digits = 0;
  std::vector<std::byte> m_bytes;
  SQLLEN m_length = SQL_NULL_DATA;
};

}  // namespace quorvel::ado::odbc
