#include "grid/GridRenderer.h"

#include <algorithm>
#include <optional>

#include <wx/dc.h>
#include <wx/dcclient.h>
#include <wx/renderer.h>
#include <wx/settings.h>

#include "grid/GridColours.h"
#include "grid/WrappedText.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

constexpr int kMargin = 4;     // left and right of a text
constexpr int kTopMargin = 2;  // above and below
constexpr int kTriangle = 16;
constexpr int kMostLinesOfRow = 30;  // when a row is fitted to its text
const wxString& Ellipsis() {
  static const wxString ellipsis = wxString::FromUTF8("\xE2\x80\xA6");
  return ellipsis;
}

Colour FromWx(const wxColour& colour) { return {colour.Red(), colour.Green(), colour.Blue()}; }
wxColour ToWxColour(Colour colour) { return {colour.red, colour.green, colour.blue}; }
Colour SystemColour(wxSystemColour which) { return FromWx(wxSystemSettings::GetColour(which)); }

struct CellLines {
  std::vector<wxString> lines;
  bool complete = true;
};

/// Measures parts of one text: all at once where its characters stand apart, else part by part.
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

/// As many characters as a cell can show at the very most: no letter is narrower than two pixels.
std::size_t MostCharacters(int width, int lineCount) {
  return static_cast<std::size_t>(lineCount) * static_cast<std::size_t>(width / 2 + 8);
}

CellLines LayOut(wxDC& dc, std::string_view text, int width, int lineCount) {
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

int LineCountOf(const wxDC& dc, int height) { return std::max((height - 2 * kTopMargin) / dc.GetCharHeight(), 1); }

}  // namespace

GridRenderer::GridRenderer(const GridState& state) : m_state(state) {}

void GridRenderer::TakeStyle(const wxGrid& grid) {
  m_font = grid.GetDefaultCellFont();
  m_headingFont = m_font.Bold();
  const Colour text = SystemColour(wxSYS_COLOUR_WINDOWTEXT);
  const Colour window = SystemColour(wxSYS_COLOUR_WINDOW);
  const Colour highlight = SystemColour(wxSYS_COLOUR_HIGHLIGHT);
  const auto readable = [](Colour background, Colour foreground) {
    return Style{ToWxColour(ReadableBackground(background, foreground)), ToWxColour(foreground)};
  };
  m_oddRow = readable(kOddRow, text);
  m_evenRow = readable(kEvenRow, text);
  m_heading = {wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE), wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT)};
  m_selected = {ToWxColour(highlight), wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT)};
  // The current row stays visible, and tells that keys go elsewhere.
  m_selectedUnfocused = readable(Mix(highlight, window, 0.5), text);
  m_line = ToWxColour(Mix(window, text, 0.2));
  m_emptySpace = ToWxColour(window);
}

bool GridRenderer::IsOnTriangle(const wxWindow& grid, int x) { return x < grid.FromDIP(kTriangle + 2 * kMargin); }

bool GridRenderer::ShowsWhole(wxDC& dc, std::string_view text, const wxSize& cell) {
  return LayOut(dc, text, cell.x - 2 * kMargin, LineCountOf(dc, cell.y)).complete;
}

const GridRenderer::Style& GridRenderer::StyleOf(std::int32_t line, bool isHeading) const {
  if (line == m_state.currentLine) return m_isFocused ? m_selected : m_selectedUnfocused;
  if (isHeading) return m_heading;
  return m_state.content.Rows().IsEvenRow(line) ? m_evenRow : m_oddRow;
}

void GridRenderer::Draw(wxGrid& grid, wxGridCellAttr& /*attribute*/, wxDC& dc, const wxRect& rect, int row, int column,
                        bool /*isSelected*/) {
  const std::int32_t line = row + 1;
  const GridRows::Group* heading = m_state.content.Rows().GroupAt(line);
  const Style& style = StyleOf(line, heading != nullptr);
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(style.background));
  dc.DrawRectangle(rect);
  dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
  dc.SetTextForeground(style.text);
  const wxDCClipper clipped(dc, rect);
  if (heading != nullptr) {
    DrawHeading(grid, dc, rect, *heading);
  } else {
    dc.SetFont(m_font);
    const std::string text = m_state.CellText(line, static_cast<std::size_t>(column));
    const int lineCount = LineCountOf(dc, rect.height);
    const CellLines cell = LayOut(dc, text, rect.width - 2 * kMargin, lineCount);
    const bool isRightToLeft = IsRightToLeft(text);
    const int height = dc.GetCharHeight();
    // A row of one line has it in the middle; several begin at the top, where one starts to read.
    int y = rect.y + (lineCount == 1 ? std::max((rect.height - height) / 2, 0) : kTopMargin);
    for (const wxString& each : cell.lines) {
      const int x = isRightToLeft ? rect.GetRight() - kMargin - dc.GetTextExtent(each).x : rect.x + kMargin;
      dc.DrawText(each, x, y);
      y += height;
    }
  }
  DrawBorder(dc, rect);
}

void GridRenderer::DrawHeading(wxGrid& grid, wxDC& dc, const wxRect& rect, const GridRows::Group& heading) const {
  dc.SetFont(m_headingFont);
  const int side = grid.FromDIP(kTriangle);
  const wxRect triangle(rect.x + kMargin, rect.y + (rect.height - side) / 2, side, side);
  wxRendererNative::Get().DrawTreeItemButton(&grid, dc, triangle, heading.open ? wxCONTROL_EXPANDED : wxCONTROL_NONE);
  const std::string text = m_state.HeadingText(heading);
  const int left = triangle.GetRight() + kMargin;
  const CellLines cell = LayOut(dc, text, rect.GetRight() - left - kMargin, 1);
  if (!cell.lines.empty()) dc.DrawText(cell.lines.front(), left, rect.y + (rect.height - dc.GetCharHeight()) / 2);
}

void GridRenderer::DrawBorder(wxDC& dc, const wxRect& rect) const {
  dc.SetPen(wxPen(m_line));
  dc.DrawLine(rect.x, rect.GetBottom(), rect.GetRight() + 1, rect.GetBottom());
  dc.DrawLine(rect.GetRight(), rect.y, rect.GetRight(), rect.GetBottom());
}

wxSize GridRenderer::GetBestSize(wxGrid& grid, wxGridCellAttr& attribute, wxDC& dc, int row, int column) {
  const int width = grid.GetColSize(column);
  return {width, GetBestHeight(grid, attribute, dc, row, column, width)};
}

int GridRenderer::GetBestHeight(wxGrid& /*grid*/, wxGridCellAttr& /*attribute*/, wxDC& dc, int row, int column,
                                int width) {
  dc.SetFont(m_font);
  const std::string text = m_state.CellText(row + 1, static_cast<std::size_t>(column));
  const CellLines cell = LayOut(dc, text, width - 2 * kMargin, kMostLinesOfRow);
  return static_cast<int>(std::max<std::size_t>(cell.lines.size(), 1)) * dc.GetCharHeight() + 2 * kTopMargin + 1;
}

}  // namespace quorvel
