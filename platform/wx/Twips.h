#pragma once

class wxWindow;
class wxSize;
class wxRect;

namespace quorvel::ui {

/// A rectangle or size in twips, as the layout rules give them.
struct TwipSize {
  int width = 0;
  int height = 0;
  friend bool operator==(const TwipSize&, const TwipSize&) = default;
};
struct TwipRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const TwipRect&, const TwipRect&) = default;
};

/// Turns the twips of layout rules into pixels of one window. The rules were drawn for a font whose line is 195 twips
/// (13 pixels of 15 twips at 96 dpi); with a larger font or screen everything grows with that font's line.
class TwipScale {
 public:
  /// Measures `window`'s font.
  explicit TwipScale(const wxWindow& window);
  /// `lineHeight` in pixels; for tests.
  explicit TwipScale(int lineHeight) noexcept : m_lineHeight(lineHeight) {}

  [[nodiscard]] int ToPixels(int twips) const noexcept;
  [[nodiscard]] int ToTwips(int pixels) const noexcept;
  [[nodiscard]] wxRect ToPixels(const TwipRect& rectangle) const;

  /// The rules speak of a window's whole size, with a border and a title of the design's own size, whatever border and
  /// title a desktop draws. These go from the inside of a window to that size and back.
  [[nodiscard]] TwipSize WindowSizeOf(const wxSize& client) const;
  [[nodiscard]] wxSize ClientSizeFor(const TwipSize& window) const;

 private:
  int m_lineHeight;
};

}  // namespace quorvel::ui
