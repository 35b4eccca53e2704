#include "grid/ColumnWidths.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace quorvel {

std::vector<int> ShareWidth(const std::vector<int>& widths, int total) {
  std::vector<int> shares;
  std::int64_t sum = std::accumulate(widths.begin(), widths.end(), std::int64_t{0});
  std::int64_t left = total;
  for (const int width : widths) {
    const std::int64_t share = sum > 0 ? left * width / sum : left;
    shares.push_back(static_cast<int>(std::max<std::int64_t>(share, kLeastColumnWidth)));
    left -= shares.back();
    sum -= width;
  }
  return shares;
}

std::vector<int> ShareWidthAfter(const std::vector<int>& widths, std::size_t column, int total) {
  const auto border = widths.begin() + static_cast<std::ptrdiff_t>(std::min(column + 1, widths.size()));
  if (border == widths.end()) return ShareWidth(widths, total);
  std::vector<int> shares(widths.begin(), border);
  const int left = std::accumulate(shares.begin(), shares.end(), 0);
  const std::vector<int> others = ShareWidth({border, widths.end()}, total - left);
  shares.insert(shares.end(), others.begin(), others.end());
  return shares;
}

}  // namespace quorvel
