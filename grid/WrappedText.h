#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

/// The beginning of `text` (UTF-8), at most that many characters, as it can be drawn: line breaks are line feeds, other
/// control characters are blanks. A line break counts as `lineBreak` characters.
struct DrawableText {
  std::string text;
  bool complete = true;  ///< it is the whole text
};
[[nodiscard]] DrawableText BeginningOf(std::string_view text, std::size_t characters, std::size_t lineBreak = 1);

struct TextLine {
  std::size_t from = 0;
  std::size_t count = 0;
};
struct WrappedText {
  std::vector<TextLine> lines;
  bool complete = true;  ///< false: the text is cut, and the last line leaves room for an ellipsis
};

/// The width in pixels of a part of the text: from, count.
using MeasurePart = std::function<int(std::size_t, std::size_t)>;

/// Breaks `text` at blanks and line feeds into at most `lineCount` (1 or more) lines of `width` pixels; words that are
/// longer than a line are broken. A text that does not fit leaves `ellipsis` pixels for an ellipsis.
[[nodiscard]] WrappedText WrapText(std::wstring_view text, int width, int lineCount, int ellipsis,
                                   const MeasurePart& measure);

/// Whether the text's first letter belongs to a script that is written from right to left.
[[nodiscard]] bool IsRightToLeft(std::string_view text) noexcept;

/// Whether the width of each part of the text is the sum of its characters' widths. True for Latin, Greek and Cyrillic
/// letters without combining marks; in other scripts letters join, change places or form one picture.
[[nodiscard]] bool IsMeasuredByCharacter(std::wstring_view text) noexcept;

}  // namespace quorvel
