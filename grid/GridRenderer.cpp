// TakeStyle makes all colours and fonts from those of the desktop. Drawing only reads them, and asks the state what is
// in a cell and which line is current.

#include "grid/GridRenderer.h"

#include <algorithm>

#include <wx/dc.h>
#include <wx/dcclient.h>
#include <wx/settings.h>

#include "grid/CellLayout.h"
#include "grid/GridColours.h"
#include "grid/WrappedText.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

constexpr int kTriangle = 16;
constexpr int kMostLinesOfRow = 30;  // when a row is fitted to its text

Colour FromWx(const wxColour& colour) { return {colour.Red(), colour.Green(), colour.Blue()}; }
wxColour ToWxColour(Colour colour) { return {colour.red, colour.green, colour.blue}; }
Colour SystemColour(wxSystemColour which) { return FromWx(wxSystemSettings::GetColour(which)); }

/// Points down for an open group, to the right for a closed one. The desktops' own are faint in some themes.
void DrawTriangle(wxDC& dc, const wxRect& rect, bool isOpen, const wxColour& colour) {
  const int half = rect.width / 4;
  const wxPoint centre(rect.x + rect.width / 2, rect.y + rect.height / 2);
  const wxPoint down[] = {{-2 * half, -half}, {2 * half, -half}, {0, half}};
  const wxPoint right[] = {{-half, -2 * half}, {-half, 2 * half}, {half, 0}};
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(colour));
  dc.DrawPolygon(3, isOpen ? down : right, centre.x, centre.y);
}

/// A check mark in the middle of a cell, as high as the text.
void DrawCheckMark(wxDC& dc, const wxRect& rect, const wxColour& colour) {
  const int side = std::max(dc.GetCharHeight() * 2 / 3, 6);
  const int left = rect.x + (rect.width - side) / 2;
  const int top = rect.y + (rect.height - side) / 2;
  const wxPoint points[] = {
      {left, top + side / 2}, {left + side / 3, top + side * 5 / 6}, {left + side, top + side / 6}};
  dc.SetPen(wxPen(colour, std::max(side / 6, 2)));
  dc.DrawLines(3, points);
}

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
  // The current line stays visible, and its colour shows that keys go elsewhere.
  m_selectedUnfocused = readable(Mix(highlight, window, 0.5), text);
  m_line = ToWxColour(Mix(window, text, 0.2));
  m_empty = {ToWxColour(window), ToWxColour(text)};
}

bool GridRenderer::IsOnTriangle(const wxWindow& grid, int x) { return x < grid.FromDIP(kTriangle + 2 * kCellMargin); }

const GridRenderer::Style& GridRenderer::StyleOf(std::int32_t line, bool isHeading) const {
  if (line == m_state.currentLine) return m_isFocused ? m_selected : m_selectedUnfocused;
  if (isHeading) return m_heading;
  return m_state.content.Rows().IsEvenRow(line) ? m_evenRow : m_oddRow;
}

void GridRenderer::Draw(wxGrid& grid, wxGridCellAttr& /*attribute*/, wxDC& dc, const wxRect& rect, int row, int column,
                        bool /*isSelected*/) {
  const std::int32_t line = row + 1;
  const RowGroup* heading = m_state.content.Rows().GroupAt(line);
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
    const ShownCell cell = m_state.Cell(line, static_cast<std::size_t>(column));
    DrawText(dc, rect, cell.text);
    if (cell.isChecked) DrawCheckMark(dc, rect, style.text);
    if (column == 0 && !m_state.MarkOf(line).empty()) DrawMark(dc, rect);
  }
  DrawBorder(dc, rect);
}

void GridRenderer::DrawEmptyText(wxDC& dc, const wxSize& size) const {
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(m_empty.background));
  dc.DrawRectangle({0, 0}, size);
  dc.SetFont(m_font);
  dc.SetTextForeground(m_empty.text);
  const CellLines words = LayOutCell(dc, m_state.emptyText, size.x - 2 * kCellMargin, LineCountOf(dc, size.y));
  int y = dc.GetCharHeight();
  for (const wxString& line : words.lines) {
    dc.DrawText(line, (size.x - dc.GetTextExtent(line).x) / 2, y);
    y += dc.GetCharHeight();
  }
}

void GridRenderer::DrawText(wxDC& dc, const wxRect& rect, const std::string& text) const {
  const int lineCount = LineCountOf(dc, rect.height);
  const CellLines cell = LayOutCell(dc, text, rect.width - 2 * kCellMargin, lineCount);
  const bool isRightToLeft = IsRightToLeft(text);
  const int height = dc.GetCharHeight();
  // A single text line goes in the middle; several begin at the top, where reading starts.
  int y = rect.y + (lineCount == 1 ? std::max((rect.height - height) / 2, 0) : kCellTopMargin);
  for (const wxString& each : cell.lines) {
    const int x = isRightToLeft ? rect.GetRight() - kCellMargin - dc.GetTextExtent(each).x : rect.x + kCellMargin;
    dc.DrawText(each, x, y);
    y += height;
  }
}

void GridRenderer::DrawHeading(wxGrid& grid, wxDC& dc, const wxRect& rect, const RowGroup& heading) const {
  dc.SetFont(m_headingFont);
  const int side = grid.FromDIP(kTriangle);
  const wxRect triangle(rect.x + kCellMargin, rect.y + (rect.height - side) / 2, side, side);
  DrawTriangle(dc, triangle, heading.open, dc.GetTextForeground());
  const std::string text = m_state.HeadingText(heading);
  const int left = triangle.GetRight() + kCellMargin;
  const CellLines cell = LayOutCell(dc, text, rect.GetRight() - left - kCellMargin, 1);
  if (!cell.lines.empty()) dc.DrawText(cell.lines.front(), left, rect.y + (rect.height - dc.GetCharHeight()) / 2);
}

// In the margin of the cell, so that no text moves.
void GridRenderer::DrawMark(wxDC& dc, const wxRect& rect) const {
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxBrush(dc.GetTextForeground()));
  dc.DrawRectangle(rect.x, rect.y + 1, kCellMargin - 1, rect.height - 3);
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
  const std::string text = m_state.Cell(row + 1, static_cast<std::size_t>(column)).text;
  const CellLines cell = LayOutCell(dc, text, width - 2 * kCellMargin, kMostLinesOfRow);
  return static_cast<int>(std::max<std::size_t>(cell.lines.size(), 1)) * dc.GetCharHeight() + 2 * kCellTopMargin + 1;
}

}  // namespace quorvel
