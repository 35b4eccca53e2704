#pragma once

#include <limits>

class wxWindow;
class wxSize;
class wxRect;

namespace quorvel::ui {

/// A size in twips, the unit of the layout rules.
struct TwipSize {
  int width = 0;
  int height = 0;
  friend bool operator==(const TwipSize&, const TwipSize&) = default;
};
inline constexpr TwipSize kUnlimited{std::numeric_limits<int>::max(), std::numeric_limits<int>::max()};
/// A rectangle in twips.
struct TwipRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const TwipRect&, const TwipRect&) = default;
};

/// Converts the twips of layout rules to pixels of one window. The rules assume a font whose line is 195 twips high (13
/// pixels of 15 twips at 96 dpi). With a larger font or screen everything grows with the line of that font.
class TwipScale {
 public:
  /// Measures the font of `window`.
  explicit TwipScale(const wxWindow& window);
  /// `lineHeight` in pixels; for tests.
  explicit TwipScale(int lineHeight) noexcept : m_lineHeight(lineHeight) {}

  [[nodiscard]] int ToPixels(int twips) const noexcept;
  [[nodiscard]] int ToTwips(int pixels) const noexcept;
  [[nodiscard]] wxRect ToPixels(const TwipRect& rectangle) const;

  /// The rules use the whole size of a window, with a border and a title of a size of their own and not those that the
  /// desktop draws. These convert the inside of a window, in pixels, to that size and back.
  [[nodiscard]] TwipSize WindowSizeOf(const wxSize& client) const;
  [[nodiscard]] wxSize ClientSizeFor(const TwipSize& window) const;

 private:
  int m_lineHeight;
};

}  // namespace quorvel::ui
