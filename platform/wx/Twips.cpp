#include "platform/wx/Twips.h"

#include <algorithm>

#include <wx/gdicmn.h>
#include <wx/window.h>

namespace quorvel::ui {
namespace {

constexpr int kTwipsPerLine = 195;

/// The border and the title that the rules assume: 4 pixels on each side and 19 for the title.
constexpr TwipSize kFrame{.width = 120, .height = 405};

/// Rounded to the nearest, away from zero at a half.
int Scale(int value, int numerator, int denominator) noexcept {
  const auto product = static_cast<long long>(value) * numerator;
  const long long half = product < 0 ? -(denominator / 2) : denominator / 2;
  return static_cast<int>((product + half) / denominator);
}

}  // namespace

TwipScale::TwipScale(const wxWindow& window) : m_lineHeight(std::max(1, window.GetCharHeight())) {}

int TwipScale::ToPixels(int twips) const noexcept { return Scale(twips, m_lineHeight, kTwipsPerLine); }

int TwipScale::ToTwips(int pixels) const noexcept { return Scale(pixels, kTwipsPerLine, m_lineHeight); }

// Rounds the edges and not the sizes, so that neighbours meet at every scale.
wxRect TwipScale::ToPixels(const TwipRect& rectangle) const {
  const int left = ToPixels(rectangle.left);
  const int top = ToPixels(rectangle.top);
  const int right = ToPixels(rectangle.left + rectangle.width);
  const int bottom = ToPixels(rectangle.top + rectangle.height);
  return {left, top, right - left, bottom - top};
}

TwipSize TwipScale::WindowSizeOf(const wxSize& client) const {
  return {.width = ToTwips(client.x) + kFrame.width, .height = ToTwips(client.y) + kFrame.height};
}

wxSize TwipScale::ClientSizeFor(const TwipSize& window) const {
  return {ToPixels(window.width - kFrame.width), ToPixels(window.height - kFrame.height)};
}

}  // namespace quorvel::ui
