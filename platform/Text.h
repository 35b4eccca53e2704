#pragma once

#include <string>
#include <string_view>

namespace quorvel {

/// Without leading and trailing blanks (U+0020 only: tabs and line breaks are text).
[[nodiscard]] std::string_view TrimBlanks(std::string_view text) noexcept;

/// `text` (UTF-8) with every character folded to lower case, one character for one; bytes that are not UTF-8
/// are unchanged. Used wherever letter case does not count.
[[nodiscard]] std::string FoldCase(std::string_view text);

/// Less than, equal or greater than 0, comparing without regard to letter case and without allocating.
/// Ordered by folded code point.
[[nodiscard]] int CompareIgnoringCase(std::string_view left, std::string_view right) noexcept;
[[nodiscard]] bool EqualIgnoringCase(std::string_view left, std::string_view right) noexcept;

/// Whether one user's text could take over or mislead another user's terminal with this character: a control character
/// other than line feed and tab, an embedding, override or isolate of writing directions, which shows text in another
/// order than it has, or a result of utf::Take that is no character.
[[nodiscard]] bool CanMisleadTerminal(char32_t character) noexcept;

/// `text` made safe for a terminal: every character or stray byte that can mislead it becomes U+FFFD. A carriage return
/// before a line feed is dropped.
[[nodiscard]] std::string Printable(std::string_view text);

/// Orders texts without regard to letter case; for maps with text keys that are looked up without a copy.
struct LessIgnoringCase {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const noexcept {
    return CompareIgnoringCase(left, right) < 0;
  }
};

/// Number of characters (code points) in a UTF-8 text.
[[nodiscard]] std::size_t CountCharacters(std::string_view text) noexcept;

}  // namespace quorvel
