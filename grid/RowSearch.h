#pragma once

#include <cstdint>
#include <string_view>

namespace quorvel {

class GridContent;

/// The start of a search: the current row, the one after it, or the one before it and then upwards.
enum class SearchFrom { Here, Next, Previous };

/// The nearest row, in the order of the grid and beyond its end from the other end on, that shows `text` in a visible
/// column, in any letter case; also in a closed group. `line` is the current line: on a heading the search begins at
/// its group, and without one at the first line. Returns 0 when no row has the text, or the text is empty.
[[nodiscard]] std::int32_t FindRow(const GridContent& content, std::int32_t line, std::string_view text,
                                   SearchFrom from);

}  // namespace quorvel
