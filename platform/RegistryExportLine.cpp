// Reads and writes single lines: [key], "name"=data and @=data, where the data is a quoted text, dword: or hex:. The
// Take functions consume the front of a view when it has the form they expect.

#include "platform/RegistryExportLine.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <utility>

#include "platform/Text.h"
#include "platform/Utf.h"

namespace quorvel::registry {
namespace {

constexpr std::string_view kSpace = " \t\r\n";

std::string_view TrimSpace(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

bool HasControls(std::string_view text) {
  return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; });
}

std::string Quote(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

/// Takes a quoted text from the front of `rest`.
std::optional<std::string> TakeQuoted(std::string_view& rest) {
  if (!rest.starts_with('"')) return std::nullopt;
  std::string text;
  for (std::size_t i = 1; i < rest.size(); ++i) {
    const char next = i + 1 < rest.size() ? rest[i + 1] : '\0';
    if (rest[i] == '"') {
      rest.remove_prefix(i + 1);
      return text;
    }
    if (rest[i] == '\\' && (next == '"' || next == '\\')) ++i;
    text += rest[i];
  }
  return std::nullopt;
}

/// Takes `"name"=` or `@=` from the front of `rest`.
std::optional<std::string> TakeName(std::string_view& rest) {
  std::optional<std::string> name;
  if (rest.starts_with('@')) {
    rest.remove_prefix(1);
    name.emplace();
  } else {
    name = TakeQuoted(rest);
  }
  rest = TrimSpace(rest);
  if (!name || !rest.starts_with('=')) return std::nullopt;
  rest = TrimSpace(rest.substr(1));
  return name;
}

/// The name in a line for a value that TakeName refuses: quotes are missing.
std::optional<std::string> BareName(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (line.starts_with(';') || equals == std::string_view::npos) return std::nullopt;
  std::string name(TrimSpace(line.substr(0, equals)));
  std::erase(name, '"');
  return name.empty() ? std::nullopt : std::optional(std::move(name));
}

bool TakePrefix(std::string_view& rest, std::string_view prefix) {
  if (!EqualIgnoringCase(rest.substr(0, prefix.size()), prefix)) return false;
  rest.remove_prefix(prefix.size());
  return true;
}

std::optional<std::uint32_t> ReadHex(std::string_view digits) {
  std::uint32_t number = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, problem] = std::from_chars(digits.data(), end, number, 16);
  return problem == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

/// Takes `hex:` or `hex(type):` from the front of `rest`.
std::optional<ValueType> TakeHexType(std::string_view& rest) {
  if (TakePrefix(rest, "hex:")) return ValueType::Binary;
  if (!TakePrefix(rest, "hex(")) return std::nullopt;
  const std::size_t close = rest.find("):");
  if (close == std::string_view::npos) return std::nullopt;
  const auto type = ReadHex(rest.substr(0, close));
  rest.remove_prefix(close + 2);
  return type ? std::optional(static_cast<ValueType>(*type)) : std::nullopt;
}

/// Bytes in hexadecimal between commas, with a backslash before each line break.
std::optional<std::string> ReadBytes(std::string_view list) {
  std::string digits(list);
  std::erase_if(digits, [](char c) { return c == '\\' || kSpace.find(c) != std::string_view::npos; });
  std::string bytes;
  if (digits.empty()) return bytes;
  for (std::string_view rest = digits;;) {
    const std::size_t comma = rest.find(',');
    const auto byte = ReadHex(rest.substr(0, comma));
    if (!byte || *byte > 0xFF) return std::nullopt;
    bytes += static_cast<char>(*byte);
    if (comma == std::string_view::npos) return bytes;
    rest.remove_prefix(comma + 1);
  }
}

std::optional<StoredValue> ReadHexValue(std::string_view data) {
  const auto type = TakeHexType(data);
  const auto bytes = type ? ReadBytes(data) : std::nullopt;
  if (!bytes) return std::nullopt;
  if (*type != ValueType::String) return StoredValue{*type, {}};
  auto text = utf::FromUtf16Bytes(*bytes);
  // A string's bytes usually end with a zero.
  if (text && text->ends_with('\0')) text->pop_back();
  return text ? std::optional(StoredValue{*type, *std::move(text)}) : std::nullopt;
}

std::optional<StoredValue> ReadData(std::string_view data) {
  if (data.starts_with('"')) {
    auto text = TakeQuoted(data);
    data = TrimSpace(data);
    if (!text || !(data.empty() || data.starts_with(';'))) return std::nullopt;
    return StoredValue{ValueType::String, *std::move(text)};
  }
  data = TrimSpace(data.substr(0, data.find(';')));
  if (!TakePrefix(data, "dword:")) return ReadHexValue(data);
  return ReadHex(TrimSpace(data)) ? std::optional(StoredValue{ValueType::DWord, {}}) : std::nullopt;
}

}  // namespace

RegistryExportLine ParseLine(std::string raw) {
  RegistryExportLine line;
  std::string_view rest = TrimSpace(raw);
  if (rest.starts_with('[')) {
    // Even without its closing bracket the line ends the former key; without a name it matches no key.
    line.kind = RegistryExportLine::Kind::Key;
    if (rest.ends_with(']')) line.name = rest.substr(1, rest.size() - 2);
  } else if (auto name = TakeName(rest)) {
    line.value = ReadData(rest);
    line.kind = line.value || rest == "-" ? RegistryExportLine::Kind::Value : RegistryExportLine::Kind::Unreadable;
    line.name = *std::move(name);
  } else if (auto bareName = BareName(TrimSpace(raw))) {
    line.kind = RegistryExportLine::Kind::Unreadable;
    line.name = *std::move(bareName);
  }
  line.raw = std::move(raw);
  return line;
}

bool ContinuesOnNextLine(std::string_view raw, std::string_view next) {
  constexpr std::string_view kBytes = "0123456789abcdefABCDEF, \t\\";
  next = TrimSpace(next);
  if (next.empty() || next.find_first_not_of(kBytes) != std::string_view::npos) return false;
  std::string_view rest = TrimSpace(raw);
  return rest.ends_with('\\') && TakeName(rest) && TakeHexType(rest);
}

std::optional<std::string> FormatKey(std::string_view key) {
  return HasControls(key) ? std::nullopt : std::optional(fmt::format("[{}]", key));
}

std::optional<std::string> FormatString(std::string_view name, std::string_view text) {
  if (HasControls(name)) return std::nullopt;
  std::string line = (name.empty() ? "@" : Quote(name)) + '=';
  if (!HasControls(text)) return line + Quote(text);
  const auto wide = utf::ToUtf16(text);
  if (!wide) return std::nullopt;
  line += "hex(1):";
  for (const char16_t unit : *wide) {
    fmt::format_to(std::back_inserter(line), "{:02x},{:02x},", unit & 0xFFU, unit >> 8U);
  }
  return line + "00,00";
}

}  // namespace quorvel::registry
