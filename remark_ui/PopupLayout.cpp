#include "remark_ui/PopupLayout.h"

#include <algorithm>

namespace quorvel {
namespace {

constexpr ui::TwipSize kSmallest{5640, 2800};
constexpr int kMargin = 120;
constexpr int kGap = 60;
constexpr int kTextLeft = 960;
constexpr int kLine = 195;

/// How much higher than drawn: the type line pushes down what is below it, the buttons grow towards the window's edge.
struct Growth {
  int above;
  int below;
};

Growth GrowthOf(const PopupControls& controls) noexcept {
  const PopupControls drawn;
  return {controls.typeHeight - drawn.typeHeight,
          std::max(controls.next.height, controls.previous.height) - drawn.next.height};
}

/// Level with the first line of text in `control`, `inset` below its edge.
ui::TwipRect LabelBeside(const ui::TwipRect& control, int inset) noexcept {
  return {kMargin, control.top + inset, control.left - kMargin, kLine};
}

}  // namespace

ui::TwipSize SmallestPopup(const PopupControls& controls) noexcept {
  const Growth growth = GrowthOf(controls);
  return {kSmallest.width, kSmallest.height + growth.above + growth.below};
}

PopupLayout LayOutPopup(const ui::TwipSize& window, const PopupControls& controls) noexcept {
  const ui::TwipSize smallest = SmallestPopup(controls);
  const Growth growth = GrowthOf(controls);
  const int width = std::max(window.width, smallest.width);
  const int height = std::max(window.height, smallest.height) - growth.above - growth.below;
  const int buttonTop = height - 945 + growth.above;

  PopupLayout layout;
  layout.remarkType = {kTextLeft, kMargin / 2, width - 1200, controls.typeHeight};
  layout.remark = {kTextLeft, layout.remarkType.top + controls.typeHeight + kGap, width - 1200, height - 1450};
  layout.typeLabel = LabelBeside(layout.remarkType, (controls.typeHeight - kLine) / 2);
  layout.remarkLabel = LabelBeside(layout.remark, 15);
  layout.next = {layout.remark.left + layout.remark.width - controls.next.width, buttonTop, controls.next.width,
                 controls.next.height};
  layout.previous = {layout.next.left - controls.previous.width - kGap, buttonTop, controls.previous.width,
                     controls.previous.height};
  layout.counter = {kMargin, buttonTop, layout.previous.left - kGap - kMargin, controls.next.height};
  return layout;
}

}  // namespace quorvel
