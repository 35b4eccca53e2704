#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvel::cli {

/// `text` as one line, with line breaks as \n. Every control character becomes U+FFFD: one user's text must not control
/// another user's terminal.
[[nodiscard]] std::string OneLine(std::string_view text);

/// `text` for printing from column `indent` on. Lines after the first are indented by as much. Lines are wrapped
/// between words before column `width`, unless that is 0. Tabs stay, other control characters become U+FFFD. Columns
/// are counted in characters.
[[nodiscard]] std::string Paragraph(std::string_view text, std::size_t indent, std::size_t width);

/// "1 remark", "2 remarks".
[[nodiscard]] std::string Counted(std::size_t count, std::string_view noun);

}  // namespace quorvel::cli
