#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

/// The beginning of `text` (UTF-8), at most so many characters, fit to be drawn: line breaks are line feeds, and every
/// other control character is a blank.
struct DrawableText {
  std::string text;
  bool complete = true;  ///< nothing was left out
};
[[nodiscard]] DrawableText BeginningOf(std::string_view text, std::size_t characters);

struct TextLine {
  std::size_t from = 0;
  std::size_t count = 0;
};
struct WrappedText {
  std::vector<TextLine> lines;
  bool complete = true;  ///< else the last line leaves room for an ellipsis
};

/// Pixels that a part of the text takes: from, count.
using MeasurePart = std::function<int(std::size_t, std::size_t)>;

/// Breaks `text` at blanks and line feeds into at most `lineCount` (1 or more) lines of `width` pixels; words that are
/// longer than a line are broken. What does not fit ends with an ellipsis of `ellipsis` pixels.
[[nodiscard]] WrappedText WrapText(std::wstring_view text, int width, int lineCount, int ellipsis,
                                   const MeasurePart& measure);

/// Whether the text's first letter belongs to a script that is written from right to left.
[[nodiscard]] bool IsRightToLeft(std::string_view text) noexcept;

/// Whether parts of the text are as wide alone as within it, and as many pixels apart as their characters' own widths:
/// Latin, Greek and Cyrillic letters without combining marks. Elsewhere letters join, change places or make up one
/// picture.
[[nodiscard]] bool IsMeasuredByCharacter(std::wstring_view text) noexcept;

}  // namespace quorvel
