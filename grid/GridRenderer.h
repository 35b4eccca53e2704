#pragma once

#include <string>

#include <wx/colour.h>
#include <wx/font.h>
#include <wx/grid.h>

#include "grid/GridState.h"

namespace quorvel {

/// Draws rows in alternating colours, texts wrapped and cut to their cells, flags as check marks, a bar at the left of
/// marked rows, and the headings of groups.
class GridRenderer : public wxGridCellRenderer {
 public:
  /// `state` outlives the renderer.
  explicit GridRenderer(const GridState& state);

  /// Takes colours from the desktop and the font from `grid`. To be called again when those have changed.
  void TakeStyle(const wxGrid& grid);
  void SetFocused(bool focused) noexcept { m_isFocused = focused; }
  [[nodiscard]] const wxColour& EmptySpace() const noexcept { return m_empty.background; }

  /// Whether `x`, counted from the left border of the grid, is on the triangle of a heading.
  [[nodiscard]] static bool IsOnTriangle(const wxWindow& grid, int x);

  void Draw(wxGrid& grid, wxGridCellAttr& attribute, wxDC& dc, const wxRect& rect, int row, int column,
            bool isSelected) override;
  /// Draws the words of a grid without lines, over all of a window of that size.
  void DrawEmptyText(wxDC& dc, const wxSize& size) const;
  wxSize GetBestSize(wxGrid& grid, wxGridCellAttr& attribute, wxDC& dc, int row, int column) override;
  int GetBestHeight(wxGrid& grid, wxGridCellAttr& attribute, wxDC& dc, int row, int column, int width) override;
  /// State, colours and fonts are one grid's; a second renderer would draw the same.
  [[nodiscard]] GridRenderer* Clone() const override { return new GridRenderer(*this); }

 private:
  struct Style {
    wxColour background;
    wxColour text;
  };

  [[nodiscard]] const Style& StyleOf(std::int32_t line, bool isHeading) const;
  void DrawHeading(wxGrid& grid, wxDC& dc, const wxRect& rect, const RowGroup& heading) const;
  void DrawText(wxDC& dc, const wxRect& rect, const std::string& text) const;
  void DrawMark(wxDC& dc, const wxRect& rect) const;
  void DrawBorder(wxDC& dc, const wxRect& rect) const;

  const GridState& m_state;
  wxFont m_font;
  wxFont m_headingFont;
  Style m_oddRow;
  Style m_evenRow;
  Style m_heading;
  Style m_selected;
  Style m_selectedUnfocused;
  Style m_empty;
  wxColour m_line;
  bool m_isFocused = false;
};

}  // namespace quorvel
