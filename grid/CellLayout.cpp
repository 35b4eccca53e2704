#include "grid/CellLayout.h"

#include <algorithm>

#include <wx/dc.h>

#include "grid/WrappedText.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

const wxString& Ellipsis() {
  static const wxString ellipsis = wxString::FromUTF8("\xE2\x80\xA6");
  return ellipsis;
}

/// Measures parts of one text: all at once if its characters do not influence each other, else part by part.
class PartMeasure {
 public:
  PartMeasure(wxDC& dc, const wxString& text) : m_dc(dc), m_text(text) {
    if (!IsMeasuredByCharacter(text.ToStdWstring())) return;
    wxString oneLine = text;
    oneLine.Replace("\n", " ");
    dc.GetPartialTextExtents(oneLine, m_ends);
  }
  int operator()(std::size_t from, std::size_t count) const {
    if (count == 0) return 0;
    if (m_ends.size() < m_text.size()) return m_dc.GetTextExtent(m_text.Mid(from, count)).x;
    return m_ends[from + count - 1] - (from > 0 ? m_ends[from - 1] : 0);
  }

 private:
  wxDC& m_dc;
  const wxString& m_text;
  wxArrayInt m_ends;
};

/// More characters than a cell can show: no letter is narrower than two pixels.
std::size_t MostCharacters(int width, int lineCount) {
  return static_cast<std::size_t>(lineCount) * static_cast<std::size_t>(width / 2 + 8);
}

}  // namespace

CellLines LayOutCell(wxDC& dc, std::string_view text, int width, int lineCount) {
  CellLines cell;
  if (text.empty() || width <= 0) return cell;
  const DrawableText drawable = BeginningOf(text, MostCharacters(width, lineCount));
  const wxString whole = ui::ToWx(drawable.text);
  const int ellipsisWidth = dc.GetTextExtent(Ellipsis()).x;
  const WrappedText wrapped = WrapText(whole.ToStdWstring(), width, lineCount, ellipsisWidth, PartMeasure(dc, whole));
  for (const TextLine& line : wrapped.lines) cell.lines.push_back(whole.Mid(line.from, line.count));
  cell.complete = wrapped.complete && drawable.complete;
  if (!cell.complete && !cell.lines.empty()) cell.lines.back() += Ellipsis();
  return cell;
}

int LineCountOf(const wxDC& dc, int height) { return std::max((height - 2 * kCellTopMargin) / dc.GetCharHeight(), 1); }

bool ShowsWhole(wxDC& dc, std::string_view text, const wxSize& cell) {
  return LayOutCell(dc, text, cell.x - 2 * kCellMargin, LineCountOf(dc, cell.y)).complete;
}

}  // namespace quorvel
