// Writes what a server answers: messages, result sets, output values and the marks of their ends.

#include "tests/support/tds/TdsWriter.h"

#include <bit>

#include "platform/Utf.h"
#include "tests/support/tds/TdsTypes.h"

namespace quorvel::test::tds {
namespace {

using namespace std::chrono;
using ado::DataType;

constexpr std::uint8_t kEnvironmentChange = 0xE3;
constexpr std::uint8_t kError = 0xAA;
constexpr std::uint8_t kInformation = 0xAB;
constexpr std::uint8_t kLoginAnswer = 0xAD;
constexpr std::uint8_t kColumns = 0x81;
constexpr std::uint8_t kRow = 0xD1;
constexpr std::uint8_t kReturnStatus = 0x79;
constexpr std::uint8_t kReturnValue = 0xAC;
constexpr std::uint8_t kHighestOfMessages = 10;
/// The longest text, in UTF-16 units, of a column that is not (max).
constexpr std::size_t kLongestShort = 4000;

std::u16string ToWide(std::string_view text) { return utf::ToUtf16(text).value_or(u"?"); }

/// The column as the client sees it: one without a type gets the type of its values.
ado::Column Typed(const ado::RowSet& rows, std::size_t index) {
  ado::Column column = rows.Columns()[index];
  for (std::size_t row = 0; column.type == DataType::Empty && row < rows.RowCount(); ++row) {
    const Value value = rows.At(row, index);
    if (std::holds_alternative<std::int64_t>(value)) column.type = DataType::BigInt;
    if (IsText(value)) column.type = DataType::VarWChar;
  }
  if (column.type == DataType::Empty) column.type = DataType::Integer;
  return column;
}

bool IsLong(DataType type) { return type == DataType::LongVarChar || type == DataType::LongVarWChar; }

bool IsLong(std::string_view text) { return text.size() > kLongestShort && ToWide(text).size() > kLongestShort; }

/// Whether the type or any text of the column is a long one.
bool IsLong(const ado::RowSet& rows, std::size_t index, DataType type) {
  bool isLong = IsLong(type);
  for (std::size_t row = 0; !isLong && row < rows.RowCount(); ++row) {
    isLong = IsLong(rows.TextAt(row, index).value_or(""));
  }
  return isLong;
}

}  // namespace

template <typename Number>
void Writer::Put(Number number) {
  auto rest = static_cast<std::uint64_t>(number);
  for (std::size_t i = 0; i < sizeof number; ++i, rest >>= 8U) m_bytes += static_cast<char>(rest & 0xFFU);
}

void Writer::PutShortText(std::string_view text) {
  const std::u16string wide = ToWide(text);
  Put(static_cast<std::uint8_t>(wide.size()));
  for (const char16_t unit : wide) Put(unit);
}

/// A token that begins with the length of the rest, which `write` writes.
template <typename Write>
void Writer::Token(std::uint8_t token, const Write& write) {
  Put(token);
  const std::size_t place = m_bytes.size();
  Put(std::uint16_t{0});
  write();
  const std::size_t length = m_bytes.size() - place - 2;
  m_bytes[place] = static_cast<char>(length & 0xFFU);
  m_bytes[place + 1] = static_cast<char>(length >> 8U);
}

void Writer::Change(std::uint8_t what, std::string_view now) {
  Token(kEnvironmentChange, [&] {
    Put(what);
    PutShortText(now);
    PutShortText("");
  });
}

void Writer::DatabaseChanged(std::string_view database) {
  constexpr std::uint8_t kDatabase = 1;
  Change(kDatabase, database);
  Message({"", 5701, "Changed database context to '" + std::string(database) + "'.", 1}, kHighestOfMessages);
}

void Writer::LoggedIn() {
  constexpr std::uint8_t kPacketSize = 4;
  Token(kLoginAnswer, [this] {
    m_bytes += std::string_view("\x01\x74\x00\x00\x04", 5);
    PutShortText("Microsoft SQL Server");
    m_bytes += std::string_view("\x0F\x00\x07\xD0", 4);
  });
  Change(kPacketSize, "4096");
  // A driver converts texts for varchar to the code page of this collation.
  constexpr std::uint8_t kCollationChange = 7;
  Token(kEnvironmentChange, [this] {
    Put(kCollationChange);
    Put(static_cast<std::uint8_t>(kCollation.size()));
    m_bytes.append(kCollation.data(), kCollation.size());
    Put(std::uint8_t{0});
  });
}

void Writer::Message(const ado::Diagnostic& diagnostic, std::uint8_t severity) {
  Token(severity > kHighestOfMessages ? kError : kInformation, [&] {
    Put(diagnostic.nativeError);
    Put(std::uint8_t{1});
    Put(severity);
    const std::u16string text = ToWide(diagnostic.message).substr(0, 2000);
    Put(static_cast<std::uint16_t>(text.size()));
    for (const char16_t unit : text) Put(unit);
    PutShortText("STANDIN");
    PutShortText("");
    Put(static_cast<std::uint32_t>(diagnostic.line));
  });
}

void Writer::Rows(const ado::RowSet& rows) {
  std::vector<ado::Column> columns;
  std::vector<bool> isLong;
  Put(kColumns);
  Put(static_cast<std::uint16_t>(rows.Columns().size()));
  for (std::size_t i = 0; i < rows.Columns().size(); ++i) {
    columns.push_back(Typed(rows, i));
    isLong.push_back(ado::IsTextType(columns[i].type) && IsLong(rows, i, columns[i].type));
    PutColumn(columns[i], isLong[i]);
    PutShortText(columns[i].name);
  }
  m_rowsBegin = m_bytes.size();
  for (std::size_t row = 0; row < rows.RowCount(); ++row) {
    Put(kRow);
    for (std::size_t i = 0; i < columns.size(); ++i) PutValue(columns[i], isLong[i], rows.At(row, i));
  }
  m_rowsEnd = m_bytes.size();
}

void Writer::ReturnStatus() {
  Put(kReturnStatus);
  Put(std::int32_t{0});
}

void Writer::ReturnValue(std::uint16_t ordinal, std::string_view name, const ado::Column& type, const Value& value) {
  Put(kReturnValue);
  Put(ordinal);
  PutShortText(name);
  Put(std::uint8_t{1});
  const bool isLong = IsLong(type.type) || (IsText(value) && IsLong(ToText(value)));
  PutColumn(type, isLong);
  PutValue(type, isLong, value);
}

void Writer::PutColumn(const ado::Column& column, bool isLong) {
  constexpr std::uint16_t kNullable = 1;
  Put(std::uint32_t{0});
  Put(kNullable);
  if (!ado::IsTextType(column.type)) {
    const ServerType& type = ServerTypeOf(column.type);
    Put(static_cast<std::uint8_t>(type.code));
    return Put(type.size);
  }
  Put(static_cast<std::uint8_t>(Type::NVarChar));
  Put(static_cast<std::uint16_t>(isLong ? 0xFFFF : kLongestShort * 2));
  m_bytes.append(kCollation.data(), kCollation.size());
}

void Writer::PutValue(const ado::Column& column, bool isLong, const Value& value) {
  if (ado::IsTextType(column.type)) {
    if (!IsNull(value)) return PutText(ToText(value), isLong);
    return isLong ? Put(~std::uint64_t{0}) : Put(std::uint16_t{0xFFFF});
  }
  if (IsNull(value)) return Put(std::uint8_t{0});
  Put(ServerTypeOf(column.type).size);
  if (column.type == DataType::SmallInt) return Put(ToInt16(value));
  if (column.type == DataType::Integer) return Put(ToInt32(value));
  if (column.type == DataType::BigInt) return Put(ToInt64(value));
  if (column.type == DataType::Double) return Put(std::bit_cast<std::uint64_t>(ToDouble(value)));
  const DateTime time = ToDateTime(value);
  const auto day = floor<days>(time);
  Put(static_cast<std::int32_t>((day - kDayZero).count()));
  Put(static_cast<std::uint32_t>(((time - day).count() * 3 + 5) / 10));
}

void Writer::PutText(std::string_view text, bool isLong) {
  // An odd size, so that chunks end inside characters.
  constexpr std::size_t kChunk = 4999;
  Writer wide;
  for (const char16_t unit : ToWide(text)) wide.Put(unit);
  const std::string& bytes = wide.m_bytes;
  if (!isLong) {
    Put(static_cast<std::uint16_t>(bytes.size()));
    m_bytes += bytes;
    return;
  }
  Put(std::uint64_t{bytes.size()});
  for (std::size_t at = 0; at < bytes.size(); at += kChunk) {
    const std::string_view chunk = std::string_view(bytes).substr(at, kChunk);
    Put(static_cast<std::uint32_t>(chunk.size()));
    m_bytes += chunk;
  }
  Put(std::uint32_t{0});
}

void Writer::Done(Last kind, DoneFlags flags, std::optional<std::int64_t> count) {
  Put(static_cast<std::uint8_t>(kind));
  Put(static_cast<std::uint16_t>((flags.more ? 0x01U : 0U) | (flags.error ? 0x02U : 0U) | (count ? 0x10U : 0U) |
                                 (flags.attention ? 0x20U : 0U)));
  Put(std::uint16_t{0xC1});
  Put(count.value_or(0));
}

std::string PreLoginAnswer() {
  // Version and encryption (2: not supported), each with its offset and length in big-endian, then their values.
  return {"\x00\x00\x0B\x00\x06\x01\x00\x11\x00\x01\xFF\x0F\x00\x07\xD0\x00\x00\x02", 18};
}

}  // namespace quorvel::test::tds
