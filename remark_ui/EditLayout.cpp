#include "remark_ui/EditLayout.h"

#include <algorithm>
#include <limits>

namespace quorvel {
namespace {

constexpr ui::TwipSize kSmallest{8255, 5400};
constexpr int kMargin = 60;
constexpr int kBelowGrid = 50;
constexpr int kButtonGap = 45;
constexpr int kButtons = 4;

/// The height that the frame and the column of buttons beside it share.
int LowerHeight(const EditControls& controls) noexcept {
  const int column = kButtons * controls.button.height + (kButtons - 1) * kButtonGap;
  return std::max({EditControls().frameHeight, controls.frameHeight, column});
}

/// What the controls need beyond the room they were drawn with.
ui::TwipSize GrowthOf(const EditControls& controls) noexcept {
  const EditControls drawn;
  return {std::max(0, controls.button.width - drawn.button.width), LowerHeight(controls) - LowerHeight(drawn)};
}

}  // namespace

ui::TwipSize SmallestEditor(const EditControls& controls) noexcept {
  const ui::TwipSize growth = GrowthOf(controls);
  return {kSmallest.width + growth.width, kSmallest.height + growth.height};
}

EditLayout LayOutEditor(const ui::TwipSize& window, const EditControls& controls) noexcept {
  const ui::TwipSize smallest = SmallestEditor(controls);
  const ui::TwipSize growth = GrowthOf(controls);
  const int width = std::max(window.width, smallest.width);
  const int height = std::max(window.height, smallest.height);
  const int column = width - 1165 - growth.width;

  EditLayout layout;
  layout.grid = {kMargin, kMargin, width - 243, height - 2040 - growth.height};
  const int top = layout.grid.top + layout.grid.height + kBelowGrid;
  layout.frame = {kMargin, top, column - 2 * kMargin, LowerHeight(controls)};
  const auto button = [&](int place) {
    const int travel = layout.frame.height - controls.button.height;
    return ui::TwipRect{column, top + travel * place / (kButtons - 1), controls.button.width, controls.button.height};
  };
  layout.newButton = button(0);
  layout.saveButton = button(1);
  layout.deleteButton = button(2);
  layout.closeButton = button(3);
  return layout;
}

std::int32_t GridRowHeight(std::int32_t rowHeight) noexcept {
  constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
  constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
  const std::int64_t height = std::int64_t{rowHeight} * 190 + (rowHeight >= 6 ? 90 : 75);
  return static_cast<std::int32_t>(std::clamp(height, kLowest, kHighest));
}

}  // namespace quorvel
