// The driver's description of a column decides how its cells are fetched: as an integer, a double, a flag, a timestamp
// or, for every other type, as UTF-16 text.

#include "ado/odbc/ColumnReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "ado/odbc/SqlTypes.h"
#include "ado/odbc/Timestamp.h"
#include "ado/odbc/WideText.h"
#include "platform/Utf.h"

namespace quorvel::ado::odbc {
namespace {

/// UTF-16 units of one piece of a long text; most memos fit one piece.
constexpr std::size_t kPiece = std::size_t{16} * 1024;
/// The most digits of an exact number that surely fits 64 bits.
constexpr SQLULEN kDigitsOfInteger = 18;

// SQL Server's own types, numbered as its drivers document them.
constexpr SQLSMALLINT kXml = -152;
constexpr SQLSMALLINT kVariant = -150;
constexpr SQLSMALLINT kTime = -154;
constexpr SQLSMALLINT kTimestampOffset = -155;
/// Enough characters for a time, an offset or a GUID as text.
constexpr SQLULEN kShortForm = 64;

/// How many UTF-16 units a value takes as text; 0 when that is unknown.
SQLULEN UnitsAsText(SQLSMALLINT sqlType, SQLULEN size) {
  switch (sqlType) {
    case kXml:
    case kVariant:
      return 0;
    case SQL_TIME:
    case SQL_TYPE_TIME:
    case SQL_GUID:
    case kTime:
    case kTimestampOffset:
      return kShortForm;
    case SQL_BINARY:
    case SQL_VARBINARY:
      // Each byte becomes two digits.
      return 2 * size;
    default:
      return size;
  }
}

}  // namespace

ColumnReader::ColumnReader(Statement& statement, SQLUSMALLINT number) : m_statement(statement), m_number(number) {
  std::array<SQLWCHAR, 256> name{};
  SQLSMALLINT nameLength = 0;
  SQLSMALLINT sqlType = 0;
  SQLULEN size = 0;
  SQLSMALLINT digits = 0;
  SQLSMALLINT nullable = 0;
  statement.Call(api::DescribeCol, number, name.data(), static_cast<SQLSMALLINT>(name.size()), &nameLength, &sqlType,
                 &size, &digits, &nullable);
  m_column.name = FromWide(name.data(), std::min(static_cast<std::size_t>(nameLength), name.size() - 1));
  Plan(sqlType, size, digits);
}

void ColumnReader::Plan(SQLSMALLINT sqlType, SQLULEN size, SQLSMALLINT digits) {
  const bool isExact = sqlType == SQL_DECIMAL || sqlType == SQL_NUMERIC;
  const SQLULEN units = UnitsAsText(sqlType, size);
  m_column.type = DataTypeOf(sqlType, units);
  if (isExact && digits == 0 && size <= kDigitsOfInteger) m_column.type = DataType::BigInt;
  switch (m_column.type) {
    case DataType::SmallInt:
    case DataType::Integer:
    case DataType::BigInt:
      return SetForm(Form::Integer, sizeof(SQLBIGINT));
    case DataType::Double:
      return SetForm(Form::Real, sizeof(SQLDOUBLE));
    case DataType::Boolean:
      return SetForm(Form::Boolean, sizeof(SQLCHAR));
    case DataType::DBTimeStamp:
      return SetForm(Form::DateTime, sizeof(SQL_TIMESTAMP_STRUCT));
    case DataType::LongVarChar:
    case DataType::LongVarWChar:
      return SetForm(Form::Text, 0);
    default:
      return SetForm(Form::Text, (units + 1) * sizeof(SQLWCHAR));
  }
}

void ColumnReader::SetForm(Form form, std::size_t width) {
  m_form = form;
  m_width = width;
}

SQLSMALLINT ColumnReader::ClientType() const noexcept {
  switch (m_form) {
    case Form::Integer:
      return SQL_C_SBIGINT;
    case Form::Real:
      return SQL_C_DOUBLE;
    case Form::Boolean:
      return SQL_C_BIT;
    case Form::DateTime:
      return SQL_C_TYPE_TIMESTAMP;
    case Form::Text:
      break;
  }
  return SQL_C_WCHAR;
}

void ColumnReader::Bind(std::size_t rows) {
  m_cells.resize(rows * m_width);
  m_lengths.resize(rows);
  m_statement.Call(api::BindCol, m_number, ClientType(), static_cast<SQLPOINTER>(m_cells.data()),
                   static_cast<SQLLEN>(m_width), m_lengths.data());
  m_isBound = true;
}

void ColumnReader::AppendTo(RowSet& rows, std::size_t row) {
  if (m_isBound) return AppendCell(rows, m_cells.data() + row * m_width, m_lengths[row]);
  if (m_width == 0) return AppendPieces(rows);
  m_cells.resize(m_width);
  SQLLEN length = SQL_NULL_DATA;
  (void)GetData(m_cells.data(), m_width, length);
  AppendCell(rows, m_cells.data(), length);
}

SQLRETURN ColumnReader::GetData(SQLPOINTER buffer, std::size_t bytes, SQLLEN& length) {
  // Not through Call, which would keep "more of the text follows" as a message.
  const SQLRETURN code =
      api::GetData(m_statement.Get(), m_number, ClientType(), buffer, static_cast<SQLLEN>(bytes), &length);
  if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) m_statement.Fail(api::GetData.Name());
  return code;
}

void ColumnReader::AppendCell(RowSet& rows, const std::byte* cell, SQLLEN length) const {
  if (length == SQL_NULL_DATA) return rows.AppendNull();
  switch (m_form) {
    case Form::Integer:
      return rows.AppendInteger(ReadAs<SQLBIGINT>(cell));
    case Form::Real:
      return rows.AppendReal(ReadAs<SQLDOUBLE>(cell));
    case Form::Boolean:
      return rows.AppendBoolean(ReadAs<SQLCHAR>(cell) != 0);
    case Form::DateTime:
      return rows.AppendDateTime(FromTimestamp(ReadAs<SQL_TIMESTAMP_STRUCT>(cell)));
    case Form::Text:
      return AppendText(rows, cell, length);
  }
}

void ColumnReader::AppendText(RowSet& rows, const std::byte* cell, SQLLEN length) const {
  const std::size_t room = m_width - sizeof(SQLWCHAR);
  if (length < 0 || static_cast<std::size_t>(length) > room) {
    throw DriverError("22001", 0,
                      fmt::format("Column {} holds a longer text than the {} characters that the driver announced.",
                                  m_column.name, room / sizeof(SQLWCHAR)));
  }
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the buffer was bound as wide characters.
  const auto* text = reinterpret_cast<const SQLWCHAR*>(cell);
  rows.AppendText(FromWide(text, static_cast<std::size_t>(length) / sizeof(SQLWCHAR)));
}

void ColumnReader::AppendPieces(RowSet& rows) {
  m_cells.resize(kPiece * sizeof(SQLWCHAR));
  const auto* piece = reinterpret_cast<const SQLWCHAR*>(m_cells.data());
  constexpr std::size_t kRoom = (kPiece - 1) * sizeof(SQLWCHAR);
  std::u16string whole;
  SQLLEN length = SQL_NULL_DATA;
  SQLRETURN code = GetData(m_cells.data(), m_cells.size(), length);
  if (length == SQL_NULL_DATA) return rows.AppendNull();
  while (code != SQL_NO_DATA) {
    const bool isLast = length >= 0 && static_cast<std::size_t>(length) <= kRoom;
    const std::size_t units = (isLast ? static_cast<std::size_t>(length) : kRoom) / sizeof(SQLWCHAR);
    if (isLast && whole.empty()) return rows.AppendText(FromWide(piece, units));
    whole.append(reinterpret_cast<const char16_t*>(piece), units);
    if (isLast) break;
    code = GetData(m_cells.data(), m_cells.size(), length);
  }
  std::string text;
  utf::AppendUtf8(text, whole);
  rows.AppendText(text);
}

}  // namespace quorvel::ado::odbc
