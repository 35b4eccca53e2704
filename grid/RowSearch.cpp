#include "grid/RowSearch.h"

#include <string>

#include "grid/GridContent.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

/// A place in the order of all rows, and how far from it the search begins.
struct Start {
  std::int64_t rank = 0;
  std::int64_t first = 0;
};

Start StartOf(const GridRows& rows, std::int32_t line, SearchFrom from) {
  if (const auto rank = rows.RankOf(rows.RowIndex(line))) return {*rank, from == SearchFrom::Here ? 0 : 1};
  const RowGroup* heading = rows.GroupAt(line);
  return {heading != nullptr ? heading->first : 0, from == SearchFrom::Previous ? 1 : 0};
}

}  // namespace

std::int32_t FindRow(const GridContent& content, std::int32_t line, std::string_view text, SearchFrom from) {
  const auto& order = content.Rows().Order();
  if (text.empty() || order.empty()) return 0;
  const std::string folded = FoldCase(text);
  const auto count = static_cast<std::int64_t>(order.size());
  const Start start = StartOf(content.Rows(), line, from);
  const std::int64_t step = from == SearchFrom::Previous ? count - 1 : 1;
  for (std::int64_t i = start.first; i < start.first + count; ++i) {
    const std::int32_t rowIndex = order[static_cast<std::size_t>((start.rank + i * step) % count)];
    if (content.RowHas(rowIndex, folded)) return rowIndex;
  }
  return 0;
}

}  // namespace quorvel
