#include "platform/com/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
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

constexpr std::size_t kBlock = 16;

/// Calls `work` for each block of a text, at its position. The last block may overlap the one before it. False, without
/// a call, for a text that is shorter than a block.
template <typename Work>
bool ForEachBlock(std::size_t length, Work work) noexcept {
  if (length < kBlock) return false;
  for (std::size_t position = 0; position < length - kBlock; position += kBlock) work(position);
  work(length - kBlock);
  return true;
}

/// Most texts are plain: every byte is a character. Hosts read every remark's text, so plain ones go block by block:
/// the compiler makes one or two instructions of a loop over a block, and many of the characters that are left at an
/// end.
bool IsPlain(std::string_view text) noexcept {
  std::array<unsigned char, kBlock> bits{};
  const auto add = [&](std::size_t position) {
    for (std::size_t i = 0; i < kBlock; ++i) bits[i] |= static_cast<unsigned char>(text[position + i]);
  };
  if (!ForEachBlock(text.size(), add)) std::ranges::copy(text, bits.begin());
  std::array<std::uint64_t, 2> halves{};
  static_assert(sizeof halves == sizeof bits);
  std::memcpy(halves.data(), bits.data(), sizeof halves);
  return ((halves[0] | halves[1]) & 0x8080808080808080U) == 0;
}

void WidenPlain(std::string_view text, OLECHAR* target) noexcept {
  const auto widen = [&](std::size_t position, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) target[position + i] = static_cast<unsigned char>(text[position + i]);
  };
  if (!ForEachBlock(text.size(), [&](std::size_t position) { widen(position, kBlock); })) widen(0, text.size());
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
    WidenPlain(text, wide);
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
