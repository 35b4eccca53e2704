#pragma once

#include <string_view>
#include <vector>

#include <wx/string.h>

class wxDC;
class wxSize;

namespace quorvel {

// Space round the text of a cell, in pixels.
inline constexpr int kCellMargin = 4;     ///< left and right
inline constexpr int kCellTopMargin = 2;  ///< above and below

/// A text as a cell shows it: its lines; the last one ends with an ellipsis where the text is not complete.
struct CellLines {
  std::vector<wxString> lines;
  bool complete = true;
};

/// Breaks `text` (UTF-8) into at most `lineCount` lines of `width` pixels in the font of `dc`. Looks only at as much of
/// the text as can be seen.
[[nodiscard]] CellLines LayOutCell(wxDC& dc, std::string_view text, int width, int lineCount);

/// How many lines of text a cell of that height shows, at least 1.
[[nodiscard]] int LineCountOf(const wxDC& dc, int height);

/// Whether a cell of that size shows all of `text`.
[[nodiscard]] bool ShowsWhole(wxDC& dc, std::string_view text, const wxSize& cell);

}  // namespace quorvel
