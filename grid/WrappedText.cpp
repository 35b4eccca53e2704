// Breaks a text into lines by measuring: a binary search finds how many characters fit on a line, and the line then
// ends at the last blank before them.

#include "grid/WrappedText.h"

#include <algorithm>

#include "platform/Utf.h"

namespace quorvel {
namespace {

/// Whether a character belongs to the one before it: combining marks, joiners and characters that they join, second
/// halves of surrogate pairs.
bool Extends(std::wstring_view text, std::size_t position) noexcept {
  const auto character = static_cast<char32_t>(text[position]);
  return (character >= 0x300 && character <= 0x36F) || character == 0x200D || text[position - 1] == 0x200D ||
         (character >= 0xFE00 && character <= 0xFE0F) || (character >= 0xDC00 && character <= 0xDFFF) ||
         (character >= 0x1F3FB && character <= 0x1F3FF);
}

class Wrapping {
 public:
  Wrapping(std::wstring_view text, int width, const MeasurePart& measure)
      : m_text(text), m_width(width), m_measure(measure) {}

  /// How many characters from `from` on, at most up to `end`, fit into the width less `reserved`.
  [[nodiscard]] std::size_t Fit(std::size_t from, std::size_t end, int reserved) const {
    std::size_t fits = 0;
    std::size_t tooMany = end - from + 1;
    while (tooMany - fits > 1) {
      const std::size_t middle = fits + (tooMany - fits) / 2;
      if (m_measure(from, middle) <= m_width - reserved) {
        fits = middle;
      } else {
        tooMany = middle;
      }
    }
    while (fits > 0 && from + fits < end && Extends(m_text, from + fits)) --fits;
    return fits;
  }

  /// The same for the whole width, but at least one, and up to the end of a word if a word ends there.
  [[nodiscard]] std::size_t FitWords(std::size_t from, std::size_t end) const {
    const std::size_t fits = std::max<std::size_t>(Fit(from, end, 0), 1);
    if (from + fits == end || m_text[from + fits] == L' ') return fits;
    const std::size_t blank = m_text.rfind(L' ', from + fits - 1);
    return blank != std::wstring_view::npos && blank > from ? blank - from : fits;
  }

  [[nodiscard]] std::size_t LineEnd(std::size_t from) const noexcept {
    return std::min(m_text.find(L'\n', from), m_text.size());
  }

 private:
  std::wstring_view m_text;
  int m_width;
  const MeasurePart& m_measure;
};

}  // namespace

DrawableText BeginningOf(std::string_view text, std::size_t characters, std::size_t lineBreak) {
  DrawableText drawable;
  std::size_t position = 0;
  for (std::size_t count = 0; count < characters && position < text.size();) {
    char32_t character = utf::Take(text, position);
    if (character == U'\r' && position < text.size() && text[position] == '\n') ++position;
    if (character == U'\r') character = U'\n';
    count += character == U'\n' ? lineBreak : 1;
    const bool isControl = (character < 0x20 && character != U'\n') || (character >= 0x7F && character < 0xA0);
    utf::Append(drawable.text, isControl ? U' ' : character);
  }
  drawable.complete = position == text.size();
  return drawable;
}

WrappedText WrapText(std::wstring_view text, int width, int lineCount, int ellipsis, const MeasurePart& measure) {
  const Wrapping wrapping(text, width, measure);
  WrappedText wrapped;
  std::size_t position = 0;
  while (position < text.size()) {
    const std::size_t end = wrapping.LineEnd(position);
    const bool isLast = static_cast<int>(wrapped.lines.size()) + 1 >= lineCount;
    if (isLast) {
      wrapped.complete = end == text.size() && wrapping.Fit(position, end, 0) == end - position;
      wrapped.lines.push_back({position, wrapped.complete ? end - position : wrapping.Fit(position, end, ellipsis)});
      return wrapped;
    }
    const std::size_t count = end > position ? wrapping.FitWords(position, end) : 0;
    wrapped.lines.push_back({position, count});
    position += count;
    if (position < end) {
      while (position < end && text[position] == L' ') ++position;
    }
    if (position == end) ++position;
  }
  return wrapped;
}

bool IsRightToLeft(std::string_view text) noexcept {
  constexpr std::size_t kLookedAt = 64;
  std::size_t position = 0;
  for (std::size_t i = 0; i < kLookedAt && position < text.size(); ++i) {
    const char32_t character = utf::Take(text, position);
    if ((character >= 0x590 && character <= 0x8FF) || (character >= 0xFB1D && character <= 0xFDFF) ||
        (character >= 0xFE70 && character <= 0xFEFC) || (character >= 0x10800 && character <= 0x10FFF) ||
        (character >= 0x1E800 && character <= 0x1EEFF)) {
      return true;
    }
    const bool isLetter = (character >= U'A' && character <= U'Z') || (character >= U'a' && character <= U'z') ||
                          (character >= 0xC0 && character < 0x2000) || (character >= 0x2E80 && character < 0xD800);
    if (isLetter) return false;
  }
  return false;
}

bool IsMeasuredByCharacter(std::wstring_view text) noexcept {
  return std::all_of(text.begin(), text.end(), [](wchar_t each) {
    const auto character = static_cast<char32_t>(each);
    return character < 0x300 || (character >= 0x370 && character < 0x483) ||
           (character >= 0x48A && character < 0x530) || (character >= 0x2010 && character < 0x2028) ||
           character == 0x20AC;
  });
}

}  // namespace quorvel
