// Reads what an ODBC driver sends: the login, batches and remote procedure calls with their typed parameters.

#include "tests/support/tds/TdsReader.h"

#include <stdexcept>

#include "platform/Utf.h"
#include "tests/support/tds/TdsTypes.h"

namespace quorvel::test::tds {
namespace {

using namespace std::chrono;

constexpr std::uint64_t kNullLong = ~std::uint64_t{0};
constexpr std::uint16_t kNullText = 0xFFFF;
constexpr std::uint16_t kNumberInsteadOfName = 0xFFFF;
constexpr std::uint16_t kExecuteSql = 10;
constexpr std::uint8_t kByReference = 1;
constexpr std::uint8_t kBatch = 0x01;
constexpr std::uint8_t kCall = 0x03;

std::string FromUcs2(std::string_view bytes) { return Reader(bytes).Text(bytes.size() / 2); }

/// The stand-in's collation has one byte per character.
std::string FromLatin(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) utf::Append(text, static_cast<unsigned char>(c));
  return text;
}

Value TakeText(Reader& reader, bool isWide) {
  const auto limit = reader.Take<std::uint16_t>();
  (void)reader.Bytes(kCollation.size());
  std::string bytes;
  if (limit == kNullText) {
    if (reader.Take<std::uint64_t>() == kNullLong) return Null{};
    while (const auto size = reader.Take<std::uint32_t>()) bytes += reader.Bytes(size);
  } else {
    const auto length = reader.Take<std::uint16_t>();
    if (length == kNullText) return Null{};
    bytes = reader.Bytes(length);
  }
  return isWide ? FromUcs2(bytes) : FromLatin(bytes);
}

/// A signed number of 2 to 8 bytes.
Value TakeInteger(Reader& reader) {
  (void)reader.Take<std::uint8_t>();
  const std::size_t size = reader.Take<std::uint8_t>();
  if (size == 0) return Null{};
  const auto unusedBits = 64U - 8U * static_cast<unsigned>(size);
  return static_cast<std::int64_t>(reader.Unsigned(size) << unusedBits) >> unusedBits;
}

/// A time in units of 100 ns, the finest scale, then a day counted from the year 1.
Value TakeDateTime2(Reader& reader) {
  constexpr std::uint8_t kFinest = 7;
  if (reader.Take<std::uint8_t>() != kFinest) throw std::out_of_range("a time of another scale");
  if (reader.Take<std::uint8_t>() == 0) return Null{};
  const std::uint64_t units = reader.Unsigned(5);
  const auto day = static_cast<std::int32_t>(reader.Unsigned(3));
  return DateTime{local_days{year{1} / 1 / 1} + days{day} + milliseconds{units / 10'000}};
}

/// A text of the older kind, in one piece.
Value TakeLongText(Reader& reader) {
  (void)reader.Take<std::uint32_t>();
  (void)reader.Bytes(kCollation.size());
  return FromUcs2(reader.Bytes(reader.Take<std::uint32_t>()));
}

/// The first two parameters of sp_executesql are the statement and the declaration of the others.
void TakeStatement(Request& request) {
  request.text = ToText(request.parameters.at(0).value);
  request.parameters.erase(request.parameters.begin(), request.parameters.begin() + 2);
}

/// The value after the description of its type.
Value TakeTyped(Reader& reader) {
  switch (static_cast<Type>(reader.Take<std::uint8_t>())) {
    case Type::IntN:
      return TakeInteger(reader);
    case Type::DateTime2:
      return TakeDateTime2(reader);
    case Type::NVarChar:
      return TakeText(reader, true);
    case Type::NText:
      return TakeLongText(reader);
    case Type::VarChar:
      return TakeText(reader, false);
    default:
      throw std::out_of_range("an unknown type of a parameter");
  }
}

}  // namespace

std::string_view Reader::Bytes(std::size_t count) {
  if (count > m_rest.size()) throw std::out_of_range("a message is too short");
  const std::string_view bytes = m_rest.substr(0, count);
  m_rest.remove_prefix(count);
  return bytes;
}

std::string Reader::Text(std::size_t units) {
  std::u16string wide(units, u'\0');
  for (char16_t& unit : wide) unit = Take<char16_t>();
  std::string text;
  utf::AppendUtf8(text, wide);
  return text;
}

std::uint64_t Reader::Unsigned(std::size_t size) {
  const std::string_view bytes = Bytes(size);
  std::uint64_t number = 0;
  for (std::size_t i = size; i-- > 0;) number = number << 8U | static_cast<unsigned char>(bytes[i]);
  return number;
}

Login ReadLogin(std::string_view message) {
  constexpr std::size_t kUser = 40;
  constexpr std::size_t kPassword = 44;
  constexpr std::size_t kDatabase = 68;
  const auto field = [message](std::size_t at) {
    Reader place(message.substr(at));
    const std::size_t offset = place.Take<std::uint16_t>();
    const std::size_t bytes = std::size_t{place.Take<std::uint16_t>()} * 2;
    return std::string(message.substr(offset, bytes));
  };
  std::string password = field(kPassword);
  for (char& c : password) {
    const auto plain = static_cast<unsigned char>(static_cast<unsigned char>(c) ^ 0xA5U);
    c = static_cast<char>(plain >> 4U | plain << 4U);
  }
  return {FromUcs2(field(kUser)), FromUcs2(password), FromUcs2(field(kDatabase))};
}

Request ReadRequest(const Message& message) {
  Reader reader(message.bytes);
  const auto headers = reader.Take<std::uint32_t>();
  (void)reader.Bytes(headers - sizeof headers);
  if (message.type == kBatch) return {.text = reader.RestAsText()};
  if (message.type != kCall) throw std::out_of_range("an unknown kind of request");
  const auto length = reader.Take<std::uint16_t>();
  const bool isByNumber = length == kNumberInsteadOfName;
  if (isByNumber && reader.Take<std::uint16_t>() != kExecuteSql)
    throw std::out_of_range("an unknown procedure's number");
  Request call{.text = isByNumber ? "" : reader.Text(length), .isCall = !isByNumber};
  (void)reader.Take<std::uint16_t>();
  while (!reader.AtEnd()) {
    Request::Parameter& parameter = call.parameters.emplace_back();
    const auto units = reader.Take<std::uint8_t>();
    parameter.name = reader.Text(units);
    parameter.isOutput = (reader.Take<std::uint8_t>() & kByReference) != 0;
    parameter.value = TakeTyped(reader);
  }
  if (isByNumber) TakeStatement(call);
  return call;
}

}  // namespace quorvel::test::tds
