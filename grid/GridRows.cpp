// One list has the row indexes in their order; each group knows its range of that list and the line of its heading.
// Opening or closing a group therefore only numbers the headings again.

#include "grid/GridRows.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

#include "grid/SortColumn.h"

namespace quorvel {
namespace {

std::vector<std::int32_t> SortedRows(const RowSource& source, const std::vector<SortKey>& sort, std::int32_t count) {
  std::vector<std::int32_t> order(static_cast<std::size_t>(count));
  std::iota(order.begin(), order.end(), 1);
  std::vector<SortColumn> columns;
  columns.reserve(sort.size());
  for (const SortKey& key : sort) columns.emplace_back(source, key, count);
  if (columns.empty()) return order;
  std::stable_sort(order.begin(), order.end(), [&columns](std::int32_t left, std::int32_t right) {
    for (const SortColumn& column : columns) {
      const int compared = column.Compare(left, right);
      if (compared != 0) return compared < 0;
    }
    return false;
  });
  return order;
}

}  // namespace

void GridRows::Arrange(const RowSource& source, std::optional<SortKey> group, const std::vector<SortKey>& sort) {
  std::vector<std::int32_t> order = SortedRows(source, sort, std::max(source.RowCount(), 0));
  std::vector<RowGroup> groups;
  if (group) groups = GroupRows(source, *group, order);
  for (const RowGroup& before : m_groups) {
    if (before.open) continue;
    const auto same = std::find_if(groups.begin(), groups.end(), [&before](const RowGroup& each) {
      return CompareValues(each.value, before.value) == 0;
    });
    if (same != groups.end()) same->open = false;
  }
  m_order = std::move(order);
  m_groups = std::move(groups);
  NumberLines();
}

void GridRows::NumberLines() noexcept {
  m_lineCount = 0;
  for (RowGroup& group : m_groups) {
    group.line = ++m_lineCount;
    if (group.open) m_lineCount += group.count;
  }
  if (m_groups.empty()) m_lineCount = static_cast<std::int32_t>(m_order.size());
}

const RowGroup* GridRows::GroupOfLine(std::int32_t line) const noexcept {
  if (line < 1 || line > m_lineCount) return nullptr;
  const auto after = std::upper_bound(m_groups.begin(), m_groups.end(), line,
                                      [](std::int32_t wanted, const RowGroup& each) { return wanted < each.line; });
  return after == m_groups.begin() ? nullptr : &*std::prev(after);
}

std::int32_t GridRows::RowIndex(std::int32_t line) const noexcept {
  if (line < 1 || line > m_lineCount) return 0;
  if (m_groups.empty()) return m_order[static_cast<std::size_t>(line - 1)];
  const RowGroup* group = GroupOfLine(line);
  if (group == nullptr || group->line == line) return 0;
  return m_order[static_cast<std::size_t>(group->first + line - group->line - 1)];
}

std::optional<std::int32_t> GridRows::RankOf(std::int32_t rowIndex) const noexcept {
  const auto found = std::find(m_order.begin(), m_order.end(), rowIndex);
  if (found == m_order.end()) return std::nullopt;
  return static_cast<std::int32_t>(found - m_order.begin());
}

const RowGroup* GridRows::GroupOfRank(std::int32_t rank) const noexcept {
  const auto after = std::upper_bound(m_groups.begin(), m_groups.end(), rank,
                                      [](std::int32_t wanted, const RowGroup& each) { return wanted < each.first; });
  return after == m_groups.begin() ? nullptr : &*std::prev(after);
}

std::int32_t GridRows::LineOf(std::int32_t rowIndex) const noexcept {
  const auto rank = RankOf(rowIndex);
  if (!rank) return 0;
  const RowGroup* group = GroupOfRank(*rank);
  if (group == nullptr) return *rank + 1;
  return group->open ? group->line + 1 + *rank - group->first : 0;
}

std::int32_t GridRows::HeadingOf(std::int32_t rowIndex) const noexcept {
  const auto rank = RankOf(rowIndex);
  const RowGroup* group = rank ? GroupOfRank(*rank) : nullptr;
  return group != nullptr ? group->line : 0;
}

const RowGroup* GridRows::GroupAt(std::int32_t line) const noexcept {
  const RowGroup* group = GroupOfLine(line);
  return group != nullptr && group->line == line ? group : nullptr;
}

bool GridRows::IsEvenRow(std::int32_t line) const noexcept {
  const RowGroup* group = GroupOfLine(line);
  const std::int32_t number = group != nullptr ? line - group->line : line;
  return number > 0 && number % 2 == 0;
}

void GridRows::SetOpen(std::int32_t line, bool open) {
  for (RowGroup& group : m_groups) {
    if (group.line != line) continue;
    group.open = open;
    NumberLines();
    return;
  }
}

void GridRows::OpenAll() noexcept {
  for (RowGroup& group : m_groups) group.open = true;
  NumberLines();
}

}  // namespace quorvel
