// Conversion between UTF-8 and UTF-16 with all the checks of the standard. Stray bytes of a malformed UTF-8 text
// survive as numbers beyond Unicode, so that Take and Append change no text.

#include "platform/Utf.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quorvel::utf {
namespace {

constexpr char32_t kStrayByte = 0x110000;
constexpr char32_t kFirstHigh = 0xD800;
constexpr char32_t kFirstLow = 0xDC00;
constexpr char32_t kPastSurrogates = 0xE000;
constexpr char32_t kFirstPair = 0x10000;
constexpr char32_t kReplacement = 0xFFFD;

constexpr bool IsSurrogate(char32_t character) { return character >= kFirstHigh && character < kPastSurrogates; }

/// The smallest character of each length in bytes: UTF-8 does not allow a longer form of a smaller one.
constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
constexpr std::array<unsigned, 5> kLead = {0, 0, 0xC0, 0xE0, 0xF0};

/// The number of bytes of a character that begins with `lead`; 0 when none can.
constexpr std::size_t LengthAfter(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  if (lead < 0xE0) return 2;
  return lead < 0xF0 ? 3 : 4;
}

/// The character in `bytes`, whose number fits the first one; kStrayByte when malformed.
char32_t Decode(std::string_view bytes) noexcept {
  char32_t character = static_cast<unsigned char>(bytes.front()) & (0x7FU >> bytes.size());
  for (const char c : bytes.substr(1)) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0U) != 0x80U) return kStrayByte;
    character = character << 6U | (byte & 0x3FU);
  }
  return character < kSmallest[bytes.size()] || IsSurrogate(character) ? kStrayByte : character;
}

/// Returns the character at `position` and moves `position` past it; half a pair is returned alone.
char32_t TakeWide(std::u16string_view text, std::size_t& position) noexcept {
  const char32_t first = text[position++];
  if (first < kFirstHigh || first >= kFirstLow || position == text.size()) return first;
  const char32_t low = text[position];
  if (low < kFirstLow || low >= kPastSurrogates) return first;
  ++position;
  return kFirstPair + ((first - kFirstHigh) << 10U) + (low - kFirstLow);
}

}  // namespace

char32_t Take(std::string_view text, std::size_t& position) noexcept {
  const auto lead = static_cast<unsigned char>(text[position]);
  const std::size_t length = LengthAfter(lead);
  if (length == 1) {
    ++position;
    return lead;
  }
  const bool whole = length != 0 && length <= text.size() - position;
  const char32_t character = whole ? Decode(std::string_view(text.data() + position, length)) : kStrayByte;
  position += IsCharacter(character) ? length : 1;
  return IsCharacter(character) ? character : kStrayByte + lead;
}

bool IsWellFormed(std::string_view text) noexcept {
  for (std::size_t position = 0; position < text.size();) {
    if (!IsCharacter(Take(text, position))) return false;
  }
  return true;
}

void Append(std::string& text, char32_t taken) {
  if (taken < kSmallest[2] || !IsCharacter(taken)) {
    text += static_cast<char>(taken < kSmallest[2] ? taken : taken - kStrayByte);
    return;
  }
  const std::size_t length = taken < kSmallest[3] ? 2 : taken < kSmallest[4] ? 3 : 4;
  text += static_cast<char>(kLead[length] | taken >> 6U * (length - 1));
  for (std::size_t left = length - 1; left > 0; --left) {
    text += static_cast<char>(0x80U | (taken >> 6U * (left - 1) & 0x3FU));
  }
}

std::optional<std::u16string> ToUtf16(std::string_view text) {
  std::u16string wide;
  wide.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = Take(text, position);
    if (!IsCharacter(character)) return std::nullopt;
    if (character < kFirstPair) {
      wide += static_cast<char16_t>(character);
    } else {
      wide += static_cast<char16_t>(kFirstHigh + ((character - kFirstPair) >> 10U));
      wide += static_cast<char16_t>(kFirstLow + (character & 0x3FFU));
    }
  }
  return wide;
}

std::optional<std::string> ToUtf8(std::u16string_view text) {
  std::string narrow;
  narrow.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = TakeWide(text, position);
    if (IsSurrogate(character)) return std::nullopt;
    Append(narrow, character);
  }
  return narrow;
}

std::optional<std::string> FromUtf16Bytes(std::string_view bytes) {
  if (bytes.size() % 2 != 0) return std::nullopt;
  std::u16string text;
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i]);
    const auto high = static_cast<unsigned char>(bytes[i + 1]);
    text += static_cast<char16_t>(low | high << 8U);
  }
  return ToUtf8(text);
}

void AppendUtf8(std::string& narrow, std::u16string_view text) {
  narrow.reserve(narrow.size() + text.size());
  const auto isBeyondAscii = [](char16_t unit) { return unit >= kSmallest[2]; };
  for (std::size_t position = 0; position < text.size();) {
    const std::u16string_view rest = text.substr(position);
    const auto end = std::find_if(rest.begin(), rest.end(), isBeyondAscii);
    // Most texts are ASCII only.
    std::transform(rest.begin(), end, std::back_inserter(narrow),
                   [](char16_t unit) { return static_cast<char>(unit); });
    position += static_cast<std::size_t>(end - rest.begin());
    if (position == text.size()) break;
    const char32_t character = TakeWide(text, position);
    Append(narrow, IsSurrogate(character) ? kReplacement : character);
  }
}

}  // namespace quorvel::utf
