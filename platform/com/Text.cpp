#include "platform/com/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <new>

#include "platform/Utf.h"

namespace quorvel::com {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstOfTwo = 0x10000;

BSTR Allocate(std::size_t length) {
  if (length > static_cast<std::size_t>(std::numeric_limits<INT>::max())) throw std::bad_alloc();
  BSTR text = SysAllocStringLen(nullptr, static_cast<UINT>(length));
  if (text == nullptr) throw std::bad_alloc();
  return text;
}

char32_t TakeCharacter(std::string_view text, std::size_t& position) noexcept {
  const char32_t taken = utf::Take(text, position);
  return utf::IsCharacter(taken) ? taken : kReplacement;
}

std::size_t CountUnits(std::string_view text) noexcept {
  std::size_t units = 0;
  for (std::size_t position = 0; position < text.size();) units += TakeCharacter(text, position) < kFirstOfTwo ? 1 : 2;
  return units;
}

/// Most texts are plain: every byte is a character. The loop does not stop early, so that the compiler can vectorise
/// it.
bool IsPlain(std::string_view text) noexcept {
  unsigned char bits = 0;
  for (const char c : text) bits |= static_cast<unsigned char>(c);
  return bits < 0x80;
}

void Widen(std::string_view text, OLECHAR* target) noexcept {
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = TakeCharacter(text, position);
    if (character < kFirstOfTwo) {
      *target++ = static_cast<OLECHAR>(character);
    } else {
      *target++ = static_cast<OLECHAR>(0xD800 + ((character - kFirstOfTwo) >> 10));
      *target++ = static_cast<OLECHAR>(0xDC00 + ((character - kFirstOfTwo) & 0x3FF));
    }
  }
}

}  // namespace

BSTR ToBstr(std::string_view text) {
  const bool isPlain = IsPlain(text);
  const BSTR wide = Allocate(isPlain ? text.size() : CountUnits(text));
  if (isPlain) {
    std::ranges::transform(text, wide, [](char c) { return static_cast<OLECHAR>(c); });
  } else {
    Widen(text, wide);
  }
  return wide;
}

std::string FromBstr(BSTR text) { return FromWide(Name(text, SysStringLen(text))); }

std::string FromWide(Name text) {
  std::string narrow;
  narrow.reserve(text.size());
  // OLECHAR is a UTF-16 unit on every platform, but not always char16_t.
  utf::AppendUtf8(narrow, {reinterpret_cast<const char16_t*>(text.data()), text.size()});
  return narrow;
}

std::string TextOf(const GUID& id) {
  std::string text = fmt::format("{{{:08X}-{:04X}-{:04X}-", id.Data1, id.Data2, id.Data3);
  for (std::size_t i = 0; i < std::size(id.Data4); ++i) text += fmt::format("{}{:02X}", i == 2 ? "-" : "", id.Data4[i]);
  return text + '}';
}

}  // namespace quorvel::com
