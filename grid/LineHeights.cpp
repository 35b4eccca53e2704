#include "grid/LineHeights.h"

#include <algorithm>

#include <wx/dcclient.h>
#include <wx/grid.h>

#include "grid/GridRows.h"

namespace quorvel {
namespace {

constexpr std::int32_t kUnitsPerTextLine = 190;
constexpr std::int32_t kHeadingUnits = 265;
/// The toolkit goes through all lines for each line that gets a height of its own.
constexpr std::size_t kMostHeadingsOfOwnHeight = 200;

}  // namespace

void LineHeights::SetRowHeight(std::int32_t units) {
  m_rowUnits = units;
  ForgetDragged();
}

int LineHeights::PixelsOf(std::int32_t units) const {
  wxClientDC dc(m_grid.GetGridWindow());
  dc.SetFont(m_grid.GetDefaultCellFont());
  return static_cast<int>(std::int64_t{units} * dc.GetCharHeight() / kUnitsPerTextLine);
}

void LineHeights::Apply(const GridRows& rows) {
  const wxGridUpdateLocker batch(&m_grid);
  const int height = std::max(PixelsOf(m_rowUnits), m_grid.GetRowMinimalAcceptableHeight());
  m_grid.SetDefaultRowSize(height, true);
  m_grid.SetScrollRate(m_grid.GetScrollLineX(), PixelsOf(kUnitsPerTextLine));
  const int headingHeight = PixelsOf(kHeadingUnits);
  if (headingHeight != height && rows.Groups().size() <= kMostHeadingsOfOwnHeight) {
    for (const RowGroup& group : rows.Groups()) m_grid.SetRowSize(group.line - 1, headingHeight);
  }
  for (const auto& [rowIndex, dragged] : m_dragged) {
    if (const std::int32_t line = rows.LineOf(rowIndex); line > 0) m_grid.SetRowSize(line - 1, dragged);
  }
}

}  // namespace quorvel
