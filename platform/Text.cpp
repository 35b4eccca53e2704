// Texts are compared by code point after folding each character to lower case. ASCII, by far the most common case, is
// compared byte by byte without decoding.

#include "platform/Text.h"

#include <algorithm>

#include "platform/LowerCase.h"
#include "platform/Utf.h"

namespace quorvel {
namespace {

constexpr bool IsAscii(unsigned byte) { return byte < 0x80; }

constexpr char32_t LowerAscii(unsigned char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char32_t>(byte) + ('a' - 'A') : static_cast<char32_t>(byte);
}

char32_t NextFolded(std::string_view text, std::size_t& position) noexcept {
  const auto lead = static_cast<unsigned char>(text[position]);
  if (IsAscii(lead)) {
    ++position;
    return LowerAscii(lead);
  }
  const char32_t character = utf::Take(text, position);
  return utf::IsCharacter(character) ? LowerCase(character) : character;
}

/// The number of leading bytes that are equal except for the letter case of ASCII; never ends inside a character.
std::size_t CommonBeginning(std::string_view left, std::string_view right) noexcept {
  const std::size_t end = std::min(left.size(), right.size());
  std::size_t i = 0;
  for (; i < end; ++i) {
    if (left[i] == right[i]) continue;
    const auto leftByte = static_cast<unsigned char>(left[i]);
    const auto rightByte = static_cast<unsigned char>(right[i]);
    if (!IsAscii(leftByte | rightByte) || LowerAscii(leftByte) != LowerAscii(rightByte)) break;
  }
  const auto isWithin = [&](std::string_view text) {
    return i < text.size() && (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80;
  };
  while (i > 0 && (isWithin(left) || isWithin(right))) --i;
  return i;
}

int CompareCharacters(std::string_view left, std::string_view right) noexcept {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < left.size() && j < right.size()) {
    const char32_t leftCharacter = NextFolded(left, i);
    const char32_t rightCharacter = NextFolded(right, j);
    if (leftCharacter != rightCharacter) return leftCharacter < rightCharacter ? -1 : 1;
  }
  return static_cast<int>(i < left.size()) - static_cast<int>(j < right.size());
}

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

}  // namespace

std::string_view TrimBlanks(std::string_view text) noexcept {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string FoldCase(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) utf::Append(folded, NextFolded(text, position));
  return folded;
}

int CompareIgnoringCase(std::string_view left, std::string_view right) noexcept {
  // Names and identifiers are nearly always ASCII and are compared for every row and field.
  const std::size_t i = CommonBeginning(left, right);
  if (i < left.size() && i < right.size()) {
    const auto leftByte = static_cast<unsigned char>(left[i]);
    const auto rightByte = static_cast<unsigned char>(right[i]);
    // Equal ones come before a byte that begins no character.
    const bool differ = LowerAscii(leftByte) != LowerAscii(rightByte);
    if (IsAscii(leftByte | rightByte) && differ) return LowerAscii(leftByte) < LowerAscii(rightByte) ? -1 : 1;
  }
  return CompareCharacters(left.substr(i), right.substr(i));
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) noexcept {
  return CompareIgnoringCase(left, right) == 0;
}

std::size_t CountCharacters(std::string_view text) noexcept {
  std::size_t count = 0;
  for (std::size_t position = 0; position < text.size(); ++count) (void)utf::Take(text, position);
  return count;
}

bool CanMisleadTerminal(char32_t character) noexcept {
  if (character < 0x20) return character != '\n' && character != '\t';
  // Terminals obey U+0080 to U+009F as well.
  if (character >= 0x7F && character <= 0x9F) return true;
  const bool isEmbedding = character >= 0x202A && character <= 0x202E;
  const bool isIsolate = character >= 0x2066 && character <= 0x2069;
  return isEmbedding || isIsolate || !utf::IsCharacter(character);
}

std::string Printable(std::string_view text) {
  std::string clean;
  clean.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t begin = position;
    const char32_t character = utf::Take(text, position);
    if (text.substr(begin, 2) == "\r\n") continue;
    clean += CanMisleadTerminal(character) ? kReplacement : text.substr(begin, position - begin);
  }
  return clean;
}

}  // namespace quorvel
