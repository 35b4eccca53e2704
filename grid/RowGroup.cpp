#include "grid/RowGroup.h"

#include <map>
#include <utility>

namespace quorvel {
namespace {

struct LessValue {
  bool operator()(const Value& left, const Value& right) const noexcept { return CompareValues(left, right) < 0; }
};

/// Numbers the groups in the order in which their first rows come.
class GroupFinder {
 public:
  std::int32_t Number(Value value) {
    // Rows of one group often follow each other.
    if (m_last != m_numbers.end() && m_last->first == value) return m_last->second;
    m_last = m_numbers.try_emplace(std::move(value), static_cast<std::int32_t>(m_numbers.size())).first;
    return m_last->second;
  }
  [[nodiscard]] const std::map<Value, std::int32_t, LessValue>& SortedByValue() const noexcept { return m_numbers; }

 private:
  std::map<Value, std::int32_t, LessValue> m_numbers;
  std::map<Value, std::int32_t, LessValue>::iterator m_last = m_numbers.end();
};

/// The groups in the direction of `key`, counted. `groupOfRow` becomes the 0-based group of each row, by row index - 1.
std::vector<RowGroup> FindGroups(const RowSource& source, SortKey key, std::vector<std::int32_t>& groupOfRow) {
  GroupFinder finder;
  std::int32_t rowIndex = 0;
  for (std::int32_t& number : groupOfRow) number = finder.Number(source.At(++rowIndex, key.column));

  std::vector<RowGroup> groups(finder.SortedByValue().size());
  std::vector<std::int32_t> groupOfNumber(groups.size());
  std::size_t rank = 0;
  for (const auto& [value, number] : finder.SortedByValue()) {
    const std::size_t group = key.ascending ? rank : groups.size() - 1 - rank;
    groups[group].value = value;
    groupOfNumber[static_cast<std::size_t>(number)] = static_cast<std::int32_t>(group);
    ++rank;
  }
  for (std::int32_t& group : groupOfRow) {
    group = groupOfNumber[static_cast<std::size_t>(group)];
    ++groups[static_cast<std::size_t>(group)].count;
  }
  return groups;
}

}  // namespace

// A counting sort: the groups are counted, the counts tell where each group begins in the result, and every row then
// goes to the next free place of its group. Values are compared only to find a row's group.
std::vector<RowGroup> GroupRows(const RowSource& source, SortKey key, std::vector<std::int32_t>& order) {
  std::vector<std::int32_t> groupOfRow(order.size());
  std::vector<RowGroup> groups = FindGroups(source, key, groupOfRow);
  std::vector<std::size_t> nextFree;
  nextFree.reserve(groups.size());
  std::int32_t first = 0;
  for (RowGroup& group : groups) {
    group.first = first;
    nextFree.push_back(static_cast<std::size_t>(first));
    first += group.count;
  }
  std::vector<std::int32_t> grouped(order.size());
  for (const std::int32_t rowIndex : order) {
    const auto group = static_cast<std::size_t>(groupOfRow[static_cast<std::size_t>(rowIndex - 1)]);
    grouped[nextFree[group]++] = rowIndex;
  }
  order = std::move(grouped);
  return groups;
}

}  // namespace quorvel
