#include "grid/GridRows.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <string>
#include <utility>

#include "grid/SortColumn.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

template <typename Number>
int Order(Number left, Number right) noexcept {
  return static_cast<int>(left > right) - static_cast<int>(left < right);
}

/// Null, numbers of every kind, dates, texts.
int Rank(const Value& value) noexcept {
  if (IsNull(value)) return 0;
  if (std::holds_alternative<DateTime>(value)) return 2;
  return IsText(value) ? 3 : 1;
}

double Number(const Value& value) noexcept {
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  const auto* number = std::get_if<double>(&value);
  return number != nullptr ? *number : 0;
}

struct LessValue {
  bool operator()(const Value& left, const Value& right) const noexcept { return CompareValues(left, right) < 0; }
};

/// Numbers the groups in the order in which they are met.
class GroupFinder {
 public:
  std::int32_t Number(Value value) {
    // Rows of a kind often stand together.
    if (m_last != m_numbers.end() && m_last->first == value) return m_last->second;
    m_last = m_numbers.try_emplace(std::move(value), static_cast<std::int32_t>(m_numbers.size())).first;
    return m_last->second;
  }
  [[nodiscard]] const std::map<Value, std::int32_t, LessValue>& InOrder() const noexcept { return m_numbers; }

 private:
  std::map<Value, std::int32_t, LessValue> m_numbers;
  std::map<Value, std::int32_t, LessValue>::iterator m_last = m_numbers.end();
};

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

/// Puts the rows of each group together, in the order in which they stand.
std::vector<GridRows::Group> GroupRows(const RowSource& source, SortKey key, std::vector<std::int32_t>& order) {
  GroupFinder finder;
  std::vector<std::int32_t> numbers(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) {
    numbers[i] = finder.Number(source.At(static_cast<std::int32_t>(i + 1), key.column));
  }
  std::vector<GridRows::Group> groups;
  std::vector<std::size_t> places(finder.InOrder().size());  // of each number among the groups
  for (const auto& [value, number] : finder.InOrder()) {
    const std::size_t place = groups.size();
    places[static_cast<std::size_t>(number)] = key.ascending ? place : places.size() - 1 - place;
    groups.push_back({.value = value});
  }
  if (!key.ascending) std::reverse(groups.begin(), groups.end());

  for (std::int32_t& number : numbers) {
    number = static_cast<std::int32_t>(places[static_cast<std::size_t>(number)]);
    ++groups[static_cast<std::size_t>(number)].count;
  }
  std::int32_t first = 0;
  std::vector<std::int32_t> next;
  for (GridRows::Group& group : groups) {
    group.first = first;
    next.push_back(first);
    first += group.count;
  }
  std::vector<std::int32_t> grouped(order.size());
  for (const std::int32_t row : order) {
    std::int32_t& place = next[static_cast<std::size_t>(numbers[static_cast<std::size_t>(row - 1)])];
    grouped[static_cast<std::size_t>(place++)] = row;
  }
  order = std::move(grouped);
  return groups;
}

}  // namespace

int CompareValues(const Value& left, const Value& right) noexcept {
  const int rank = Rank(left);
  if (const int order = Order(rank, Rank(right)); order != 0) return order;
  const auto* leftText = std::get_if<std::string>(&left);
  const auto* rightText = std::get_if<std::string>(&right);
  if (leftText != nullptr && rightText != nullptr) return CompareIgnoringCase(*leftText, *rightText);
  const auto* leftDate = std::get_if<DateTime>(&left);
  const auto* rightDate = std::get_if<DateTime>(&right);
  if (leftDate != nullptr && rightDate != nullptr) return Order(*leftDate, *rightDate);
  const auto* leftWhole = std::get_if<std::int64_t>(&left);
  const auto* rightWhole = std::get_if<std::int64_t>(&right);
  if (leftWhole != nullptr && rightWhole != nullptr) return Order(*leftWhole, *rightWhole);
  return Order(Number(left), Number(right));
}

void GridRows::Arrange(const RowSource& source, std::optional<SortKey> group, const std::vector<SortKey>& sort) {
  std::vector<std::int32_t> order = SortedRows(source, sort, std::max(source.RowCount(), 0));
  std::vector<Group> groups;
  if (group) groups = GroupRows(source, *group, order);
  for (const Group& before : m_groups) {
    if (before.open) continue;
    const auto same = std::find_if(groups.begin(), groups.end(), [&before](const Group& each) {
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
  for (Group& group : m_groups) {
    group.line = ++m_lineCount;
    if (group.open) m_lineCount += group.count;
  }
  if (m_groups.empty()) m_lineCount = static_cast<std::int32_t>(m_order.size());
}

std::int32_t GridRows::LineCount() const noexcept { return m_lineCount; }

const GridRows::Group* GridRows::GroupOfLine(std::int32_t line) const noexcept {
  if (line < 1 || line > m_lineCount) return nullptr;
  const auto after = std::upper_bound(m_groups.begin(), m_groups.end(), line,
                                      [](std::int32_t wanted, const Group& each) { return wanted < each.line; });
  return after == m_groups.begin() ? nullptr : &*std::prev(after);
}

std::int32_t GridRows::RowIndex(std::int32_t line) const noexcept {
  if (line < 1 || line > m_lineCount) return 0;
  if (m_groups.empty()) return m_order[static_cast<std::size_t>(line - 1)];
  const Group* group = GroupOfLine(line);
  if (group == nullptr || group->line == line) return 0;
  return m_order[static_cast<std::size_t>(group->first + line - group->line - 1)];
}

std::optional<std::int32_t> GridRows::PlaceOf(std::int32_t rowIndex) const noexcept {
  const auto found = std::find(m_order.begin(), m_order.end(), rowIndex);
  if (found == m_order.end()) return std::nullopt;
  return static_cast<std::int32_t>(found - m_order.begin());
}

const GridRows::Group* GridRows::GroupOfPlace(std::int32_t place) const noexcept {
  const auto after = std::upper_bound(m_groups.begin(), m_groups.end(), place,
                                      [](std::int32_t wanted, const Group& each) { return wanted < each.first; });
  return after == m_groups.begin() ? nullptr : &*std::prev(after);
}

std::int32_t GridRows::LineOf(std::int32_t rowIndex) const noexcept {
  const auto place = PlaceOf(rowIndex);
  if (!place) return 0;
  const Group* group = GroupOfPlace(*place);
  if (group == nullptr) return *place + 1;
  return group->open ? group->line + 1 + *place - group->first : 0;
}

std::int32_t GridRows::HeadingOf(std::int32_t rowIndex) const noexcept {
  const auto place = PlaceOf(rowIndex);
  const Group* group = place ? GroupOfPlace(*place) : nullptr;
  return group != nullptr ? group->line : 0;
}

const GridRows::Group* GridRows::GroupAt(std::int32_t line) const noexcept {
  const Group* group = GroupOfLine(line);
  return group != nullptr && group->line == line ? group : nullptr;
}

const std::vector<GridRows::Group>& GridRows::Groups() const noexcept { return m_groups; }

bool GridRows::IsEvenRow(std::int32_t line) const noexcept {
  const Group* group = GroupOfLine(line);
  const std::int32_t number = group != nullptr ? line - group->line : line;
  return number > 0 && number % 2 == 0;
}

void GridRows::SetOpen(std::int32_t line, bool open) {
  for (Group& group : m_groups) {
    if (group.line != line) continue;
    group.open = open;
    NumberLines();
    return;
  }
}

void GridRows::OpenAll() noexcept {
  for (Group& group : m_groups) group.open = true;
  NumberLines();
}

}  // namespace quorvel
