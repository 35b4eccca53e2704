#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvel::cli {

/// `text` as one line: line breaks as \n, and every control character, with which one user's text could take over
/// another user's terminal, as U+FFFD.
[[nodiscard]] std::string OneLine(std::string_view text);

/// `text` to be printed from column `indent` on: lines after the first are indented by as much, and wrapped between
/// words before column `width` unless that is 0. Tabs stay, other control characters become U+FFFD. Columns are
/// counted in characters.
[[nodiscard]] std::string Paragraph(std::string_view text, std::size_t indent, std::size_t width);

/// "1 remark", "2 remarks".
[[nodiscard]] std::string Counted(std::size_t count, std::string_view noun);

}  // namespace quorvel::cli
