#include "bench/BareGrid.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>

#include "platform/ShortDate.h"
#include "platform/Text.h"

namespace quorvel::bench {

wxString BareTable::GetValue(int row, int column) {
  const std::int32_t line = m_lines[static_cast<std::size_t>(row)];
  if (line < 0) {
    if (column > 0) return {};
    const Heading& heading = m_headings[static_cast<std::size_t>(-1 - line)];
    return wxString::FromUTF8(
        fmt::format("Type: {} ({})", m_remarks[static_cast<std::size_t>(heading.first)].type, heading.count));
  }
  const BareRemark& remark = m_remarks[static_cast<std::size_t>(line)];
  if (column == 0) return wxString::FromUTF8(FormatShortDate(remark.date));
  return wxString::FromUTF8(column == 1 ? remark.user : remark.text);
}

void BareTable::Arrange(bool isGrouped, bool isByText) {
  std::vector<std::int32_t> order(m_remarks.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&](std::int32_t i, std::int32_t j) {
    const BareRemark& left = m_remarks[static_cast<std::size_t>(i)];
    const BareRemark& right = m_remarks[static_cast<std::size_t>(j)];
    if (const int byType = isGrouped ? CompareIgnoringCase(left.type, right.type) : 0; byType != 0) return byType < 0;
    return isByText ? CompareIgnoringCase(left.text, right.text) < 0 : left.date > right.date;
  });
  m_headings.clear();
  m_lines.clear();
  m_lines.reserve(order.size());
  for (const std::int32_t remark : order) {
    const std::string& type = m_remarks[static_cast<std::size_t>(remark)].type;
    if (isGrouped && (m_headings.empty() ||
                      !EqualIgnoringCase(m_remarks[static_cast<std::size_t>(m_headings.back().first)].type, type))) {
      m_headings.push_back({remark, 0});
      m_lines.push_back(-static_cast<std::int32_t>(m_headings.size()));
    }
    if (isGrouped) ++m_headings.back().count;
    m_lines.push_back(remark);
  }
}

void ShowTable(wxGrid& grid, BareTable& table) {
  grid.SetTable(&table, true);
  grid.HideRowLabels();
  grid.SetColSize(0, 110);
  grid.SetColSize(1, 125);
  grid.SetColSize(2, 565);
}

}  // namespace quorvel::bench
