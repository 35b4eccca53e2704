// The parameter's type decides the C type and the SQL type that are bound. An input value is converted to that C type
// in the buffer; the driver writes an output value to the same buffer.

#include "ado/odbc/ParameterBuffer.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <span>

#include "ado/odbc/Timestamp.h"
#include "ado/odbc/WideText.h"

namespace quorvel::ado::odbc {
namespace {

/// The most characters of nvarchar(n). A longer varchar is sent as a long text, which loses nothing.
constexpr std::int32_t kLongestShort = 4000;
/// UTF-16 units reserved for an output text without a limit.
constexpr std::size_t kLongOutput = std::size_t{64} * 1024;
/// A `datetime`: "yyyy-mm-dd hh:mm:ss.fff".
constexpr SQLULEN kDateTimeSize = 23;
constexpr SQLSMALLINT kDateTimeDigits = 3;

struct Binding {
  SQLSMALLINT clientType;
  SQLSMALLINT sqlType;
  std::size_t width;  ///< bytes; 0 for texts
};

/// A text without a limit is sent as one of the long types: FreeTDS truncates a short one without a size.
Binding BindingOf(DataType type, bool hasLimit) {
  switch (type) {
    case DataType::SmallInt:
      return {SQL_C_SLONG, SQL_SMALLINT, sizeof(SQLINTEGER)};
    case DataType::Integer:
      return {SQL_C_SLONG, SQL_INTEGER, sizeof(SQLINTEGER)};
    case DataType::BigInt:
      return {SQL_C_SBIGINT, SQL_BIGINT, sizeof(SQLBIGINT)};
    case DataType::Double:
      return {SQL_C_DOUBLE, SQL_DOUBLE, sizeof(SQLDOUBLE)};
    case DataType::Boolean:
      return {SQL_C_BIT, SQL_BIT, sizeof(SQLCHAR)};
    case DataType::DBTimeStamp:
      return {SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)};
    case DataType::VarChar:
    case DataType::LongVarChar:
      return {SQL_C_WCHAR, hasLimit ? SQLSMALLINT{SQL_VARCHAR} : SQLSMALLINT{SQL_LONGVARCHAR}, 0};
    default:
      return {SQL_C_WCHAR, hasLimit ? SQLSMALLINT{SQL_WVARCHAR} : SQLSMALLINT{SQL_WLONGVARCHAR}, 0};
  }
}

}  // namespace

ParameterBuffer::ParameterBuffer(const Parameter& parameter)
    : m_info(parameter.Info()), m_hasLimit(m_info.size > 0 && m_info.size <= kLongestShort) {
  const Binding binding = BindingOf(m_info.type, m_hasLimit);
  m_clientType = binding.clientType;
  m_sqlType = binding.sqlType;
  if (binding.width != 0) m_bytes.resize(binding.width);
  if (binding.width == 0) m_size = m_hasLimit ? static_cast<SQLULEN>(m_info.size) : 1;
  if (m_info.type == DataType::DBTimeStamp) {
    m_size = kDateTimeSize;
    m_digits = kDateTimeDigits;
  }
  const std::optional<Value>& value = parameter.Given();
  if (value && !IsNull(*value)) Fill(*value);
  if (!value && !parameter.IsOutput()) m_length = SQL_DEFAULT_PARAM;
  if (parameter.IsOutput()) MakeRoom();
}

void ParameterBuffer::Fill(const Value& value) {
  switch (m_clientType) {
    case SQL_C_SLONG:
      return FillNumber(SQLINTEGER{ToInt32(value)});
    case SQL_C_SBIGINT:
      return FillNumber(static_cast<SQLBIGINT>(ToInt64(value)));
    case SQL_C_DOUBLE:
      return FillNumber(SQLDOUBLE{ToDouble(value)});
    case SQL_C_BIT:
      return FillNumber(static_cast<SQLCHAR>(ToBoolean(value) ? 1 : 0));
    case SQL_C_TYPE_TIMESTAMP:
      return FillNumber(ToTimestamp(ToDateTime(value)));
    default:
      if (const auto* text = std::get_if<std::string>(&value)) return FillText(*text);
      return FillText(ToText(value));
  }
}

template <typename Number>
void ParameterBuffer::FillNumber(Number number) {
  std::memcpy(m_bytes.data(), &number, sizeof number);
  m_length = sizeof number;
}

void ParameterBuffer::FillText(std::string_view text) {
  const std::u16string wide = ToWide(text);
  const auto bytes = std::as_bytes(std::span(wide));
  m_bytes.assign(bytes.begin(), bytes.end());
  m_length = static_cast<SQLLEN>(m_bytes.size());
  if (!m_hasLimit) m_size = std::max<SQLULEN>(wide.size(), 1);
}

void ParameterBuffer::MakeRoom() {
  if (m_clientType != SQL_C_WCHAR) return;
  if (!m_hasLimit) m_size = std::max<SQLULEN>(m_size, kLongOutput);
  m_bytes.resize(std::max<std::size_t>(m_bytes.size(), (m_size + 1) * sizeof(SQLWCHAR)));
}

void ParameterBuffer::Bind(Statement& statement, SQLUSMALLINT number) {
  // Some drivers refuse a null pointer even when there is nothing to read.
  if (m_bytes.empty()) m_bytes.resize(sizeof(SQLWCHAR));
  statement.Call(api::BindParameter, number, IoType(), m_clientType, m_sqlType, m_size, m_digits,
                 static_cast<SQLPOINTER>(m_bytes.data()), static_cast<SQLLEN>(m_bytes.size()), &m_length);
}

SQLSMALLINT ParameterBuffer::IoType() const noexcept {
  switch (m_info.direction) {
    case ParameterDirection::Input:
      return SQL_PARAM_INPUT;
    case ParameterDirection::InputOutput:
      return SQL_PARAM_INPUT_OUTPUT;
    default:
      return SQL_PARAM_OUTPUT;
  }
}

Value ParameterBuffer::Output() const {
  if (m_length == SQL_NULL_DATA) return Null{};
  switch (m_clientType) {
    case SQL_C_SLONG:
      return std::int64_t{ReadAs<SQLINTEGER>(m_bytes.data())};
    case SQL_C_SBIGINT:
      return std::int64_t{ReadAs<SQLBIGINT>(m_bytes.data())};
    case SQL_C_DOUBLE:
      return ReadAs<SQLDOUBLE>(m_bytes.data());
    case SQL_C_BIT:
      return ReadAs<SQLCHAR>(m_bytes.data()) != 0;
    case SQL_C_TYPE_TIMESTAMP:
      return FromTimestamp(ReadAs<SQL_TIMESTAMP_STRUCT>(m_bytes.data()));
    default:
      return OutputText();
  }
}

Value ParameterBuffer::OutputText() const {
  const std::size_t room = m_bytes.size() - sizeof(SQLWCHAR);
  if (m_length < 0 || static_cast<std::size_t>(m_length) > room) {
    throw DriverError("22001", 0,
                      fmt::format("The output parameter {} holds a longer text than the {} characters it has room for.",
                                  m_info.name, room / sizeof(SQLWCHAR)));
  }
  return FromWide(reinterpret_cast<const SQLWCHAR*>(m_bytes.data()),
                  static_cast<std::size_t>(m_length) / sizeof(SQLWCHAR));
}

}  // namespace quorvel::ado::odbc
