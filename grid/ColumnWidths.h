#pragma once

#include <cstddef>
#include <vector>

namespace quorvel {

/// No column becomes narrower than this, in pixels: its border could not be caught again.
inline constexpr int kLeastColumnWidth = 24;

/// Columns share `total` pixels in proportion to `widths`; the last takes the rest.
[[nodiscard]] std::vector<int> ShareWidth(const std::vector<int>& widths, int total);

/// After the border right of `column` (0-based) was dragged: what stands left of it stays as it is, the columns right
/// of it share the rest.
[[nodiscard]] std::vector<int> ShareWidthAfter(const std::vector<int>& widths, std::size_t column, int total);

}  // namespace quorvel
