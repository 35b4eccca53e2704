// Reads what an ODBC driver sends: the login, batches and remote procedure calls with their typed parameters.

#include "tests/support/tds/TdsReader.h"

#include <array>
#include <bit>
#include <stdexcept>

#include "platform/Utf.h"
#include "tests/support/tds/TdsTypes.h"

namespace quorvel::test::tds {
namespace {

using namespace std::chrono;

constexpr std::uint64_t kNullLong = ~std::uint64_t{0};
constexpr std::uint16_t kNullText = 0xFFFF;
constexpr std::uint8_t kByReference = 1;
constexpr std::uint8_t kDefault = 2;

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

/// One byte is unsigned, more are signed.
Value TakeInteger(Reader& reader, std::size_t size) {
  if (size == 0) return Null{};
  const auto unusedBits = size == 1 ? 0U : 64U - 8U * static_cast<unsigned>(size);
  return static_cast<std::int64_t>(reader.Unsigned(size) << unusedBits) >> unusedBits;
}

Value TakeReal(Reader& reader, std::size_t size) {
  if (size == 0) return Null{};
  if (size == 4) return double{std::bit_cast<float>(reader.Take<std::uint32_t>())};
  return std::bit_cast<double>(reader.Take<std::uint64_t>());
}

/// A time in units of 10 to the power of -scale seconds, then a day counted from the year 1.
Value TakeDateTime2(Reader& reader) {
  const auto scale = reader.Take<std::uint8_t>();
  const auto size = reader.Take<std::uint8_t>();
  if (size == 0) return Null{};
  Reader value(reader.Bytes(size));
  std::uint64_t units = value.Unsigned(size - 3U);
  const auto day = static_cast<std::int32_t>(value.Unsigned(3));
  for (unsigned i = scale; i < 3; ++i) units *= 10;
  for (unsigned i = 3; i < scale; ++i) units /= 10;
  return DateTime{local_days{year{1} / 1 / 1} + days{day} + milliseconds{units}};
}

/// The value after the description of its type.
Value TakeTyped(Reader& reader) {
  const auto type = static_cast<Type>(reader.Take<std::uint8_t>());
  const auto size = [&reader] {
    (void)reader.Take<std::uint8_t>();
    return std::size_t{reader.Take<std::uint8_t>()};
  };
  switch (type) {
    case Type::IntN:
      return TakeInteger(reader, size());
    case Type::BitN: {
      const Value value = TakeInteger(reader, size());
      return IsNull(value) ? value : Value{ToInt32(value) != 0};
    }
    case Type::FloatN:
      return TakeReal(reader, size());
    case Type::DateTime2:
      return TakeDateTime2(reader);
    case Type::NVarChar:
      return TakeText(reader, true);
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

void Reader::SkipHeaders() {
  const auto total = Take<std::uint32_t>();
  (void)Bytes(total - sizeof total);
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

Call ReadCall(std::string_view message) {
  constexpr std::uint16_t kNumbered = 0xFFFF;
  Reader reader(message);
  reader.SkipHeaders();
  Call call;
  const auto length = reader.Take<std::uint16_t>();
  call.procedure = length == kNumbered ? "#" + std::to_string(reader.Take<std::uint16_t>()) : reader.Text(length);
  (void)reader.Take<std::uint16_t>();
  while (!reader.AtEnd()) {
    Call::Parameter parameter;
    const auto units = reader.Take<std::uint8_t>();
    parameter.name = reader.Text(units);
    const auto status = reader.Take<std::uint8_t>();
    parameter.isOutput = (status & kByReference) != 0;
    Value value = TakeTyped(reader);
    if ((status & kDefault) == 0) parameter.value = std::move(value);
    call.parameters.push_back(std::move(parameter));
  }
  return call;
}

std::string ReadBatch(std::string_view message) {
  Reader reader(message);
  reader.SkipHeaders();
  return reader.RestAsText();
}

}  // namespace quorvel::test::tds
