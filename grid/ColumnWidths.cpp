#include "grid/ColumnWidths.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <numeric>

#include <wx/dcclient.h>
#include <wx/grid.h>

#include "grid/CellLayout.h"
#include "grid/GridContent.h"
#include "platform/DateTime.h"
#include "platform/ShortDate.h"
#include "platform/wx/Text.h"

namespace quorvel {

std::vector<int> ShareWidth(const std::vector<int>& widths, int total, const std::vector<int>& least) {
  std::vector<int> shares;
  std::int64_t sum = std::accumulate(widths.begin(), widths.end(), std::int64_t{0});
  std::int64_t left = total;
  for (const int width : widths) {
    const std::int64_t share = sum > 0 ? left * width / sum : left;
    const int needed = shares.size() < least.size() ? least[shares.size()] : 0;
    shares.push_back(static_cast<int>(std::max<std::int64_t>({share, needed, kLeastColumnWidth})));
    left -= shares.back();
    sum -= width;
  }
  return shares;
}

std::vector<int> ShareWidthAfter(const std::vector<int>& widths, std::size_t position, int total) {
  const auto border = widths.begin() + static_cast<std::ptrdiff_t>(std::min(position + 1, widths.size()));
  if (border == widths.end()) return ShareWidth(widths, total);
  std::vector<int> shares(widths.begin(), border);
  const int left = std::accumulate(shares.begin(), shares.end(), 0);
  const std::vector<int> others = ShareWidth({border, widths.end()}, total - left);
  shares.insert(shares.end(), others.begin(), others.end());
  return shares;
}

void ColumnWidths::Reset(const GridContent& content) {
  m_columns = content.Shown();
  m_widths.clear();
  m_least.clear();
  if (const auto dragged = m_dragged.find(m_columns); dragged != m_dragged.end()) {
    m_widths = dragged->second;
    return Share();
  }
  for (std::size_t position = 0; position < content.Shown().size(); ++position) {
    const GridColumn& column = content.ShownColumn(position);
    m_widths.push_back(m_grid.FromDIP(column.width));
    m_least.push_back(column.format == CellFormat::ShortDate ? WidthOfDates() : 0);
  }
  Share();
}

// Dates of one system are nearly of one width, unlike texts, and a cut date says nothing.
int ColumnWidths::WidthOfDates() const {
  constexpr DateTime kWide{std::chrono::local_days{std::chrono::year{2008} / 12 / 28}.time_since_epoch()};
  wxClientDC dc(m_grid.GetGridWindow());
  dc.SetFont(m_grid.GetDefaultCellFont());
  return dc.GetTextExtent(ui::ToWx(FormatShortDate(kWide))).x + 3 * kCellMargin;
}

void ColumnWidths::Share() {
  const int total = m_grid.GetGridWindow()->GetClientSize().x;
  if (total <= 0) return;
  const wxGridUpdateLocker batch(&m_grid);
  int position = 0;
  for (const int width : ShareWidth(m_widths, total, m_least)) m_grid.SetColSize(position++, width);
}

void ColumnWidths::Fit(int position, int width) {
  const int others = static_cast<int>(m_widths.size() - 1) * kLeastColumnWidth;
  const int most = std::max(m_grid.GetGridWindow()->GetClientSize().x - others, kLeastColumnWidth);
  m_grid.SetColSize(position, std::clamp(width, kLeastColumnWidth, most));
  BorderDragged(position);
}

void ColumnWidths::BorderDragged(int position) {
  const int total = m_grid.GetGridWindow()->GetClientSize().x;
  if (total <= 0) return;
  for (std::size_t i = 0; i < m_widths.size(); ++i) m_widths[i] = m_grid.GetColSize(static_cast<int>(i));
  m_least.clear();
  m_widths = ShareWidthAfter(m_widths, static_cast<std::size_t>(position), total);
  m_dragged[m_columns] = m_widths;
  Share();
}

}  // namespace quorvel
