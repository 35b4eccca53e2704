#include "remark_ui/PopupLayout.h"

#include <algorithm>

namespace quorvel {
namespace {

constexpr ui::TwipSize kSmallestPopup{5640, 2800};
constexpr int kPopupMargin = 120;
constexpr int kGap = 60;
constexpr int kTextLeft = 960;
constexpr int kLine = 195;

/// How much higher than the design's the controls are: the type line moves the controls below it down, the buttons grow
/// towards the window's edge.
struct Growth {
  int above;
  int below;
};

Growth GrowthOf(const PopupSizes& sizes) noexcept {
  const PopupSizes design;
  return {sizes.typeHeight - design.typeHeight,
          std::max(sizes.next.height, sizes.previous.height) - design.next.height};
}

/// Left of `control`, `top` below its upper edge.
ui::TwipRect LabelBeside(const ui::TwipRect& control, int top, int height) noexcept {
  return {kPopupMargin, control.top + top, control.left - kPopupMargin, height};
}

}  // namespace

ui::TwipSize SmallestPopup(const PopupSizes& sizes) noexcept {
  const Growth growth = GrowthOf(sizes);
  return {std::min(kSmallestPopup.width, sizes.screen.width),
          std::min(kSmallestPopup.height + growth.above + growth.below, sizes.screen.height)};
}

PopupLayout LayOutPopup(const ui::TwipSize& window, const PopupSizes& sizes) noexcept {
  const ui::TwipSize smallest = SmallestPopup(sizes);
  const Growth growth = GrowthOf(sizes);
  const int width = std::max(window.width, smallest.width);
  const int height = std::max(window.height, smallest.height) - growth.above - growth.below;
  const int buttonTop = height - 945 + growth.above;

  PopupLayout layout;
  layout.remarkType = {kTextLeft, kPopupMargin / 2, width - 1200, sizes.typeHeight};
  layout.remark = {kTextLeft, layout.remarkType.top + sizes.typeHeight + kGap, width - 1200, height - 1450};
  layout.typeLabel = LabelBeside(layout.remarkType, 0, sizes.typeHeight);
  layout.remarkLabel = LabelBeside(layout.remark, sizes.firstLine, kLine);
  layout.next = {layout.remark.left + layout.remark.width - sizes.next.width, buttonTop, sizes.next.width,
                 sizes.next.height};
  layout.previous = {layout.next.left - sizes.previous.width - kGap, buttonTop, sizes.previous.width,
                     sizes.previous.height};
  layout.counter = {kPopupMargin, buttonTop, layout.previous.left - kGap - kPopupMargin, sizes.next.height};
  return layout;
}

}  // namespace quorvel
