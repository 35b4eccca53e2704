#include "remark_ui/EditLayout.h"

#include <algorithm>
#include <limits>

namespace quorvel {
namespace {

constexpr ui::TwipSize kSmallestEditor{8255, 5400};
constexpr int kEditorMargin = 60;
constexpr int kBelowGrid = 50;
constexpr int kButtonGap = 45;
constexpr int kButtons = 4;

/// The height that the frame and the column of buttons beside it share.
int LowerHeight(const EditSizes& sizes) noexcept {
  const int column = kButtons * sizes.button.height + (kButtons - 1) * kButtonGap;
  return std::max({EditSizes().frameHeight, sizes.frameHeight, column});
}

/// How much larger than the design the controls make the window.
ui::TwipSize GrowthOf(const EditSizes& sizes) noexcept {
  const EditSizes design;
  return {std::max(0, sizes.button.width - design.button.width), LowerHeight(sizes) - LowerHeight(design)};
}

}  // namespace

ui::TwipSize SmallestEditor(const EditSizes& sizes) noexcept {
  const ui::TwipSize growth = GrowthOf(sizes);
  return {std::min(kSmallestEditor.width + growth.width, sizes.screen.width),
          std::min(kSmallestEditor.height + growth.height, sizes.screen.height)};
}

EditLayout LayOutEditor(const ui::TwipSize& window, const EditSizes& sizes) noexcept {
  const ui::TwipSize smallest = SmallestEditor(sizes);
  const ui::TwipSize growth = GrowthOf(sizes);
  const int width = std::max(window.width, smallest.width);
  const int height = std::max(window.height, smallest.height);
  const int column = width - 1165 - growth.width;

  EditLayout layout;
  layout.grid = {kEditorMargin, kEditorMargin, width - 243, std::max(0, height - 2040 - growth.height)};
  const int top = layout.grid.top + layout.grid.height + kBelowGrid;
  layout.frame = {kEditorMargin, top, column - 2 * kEditorMargin, LowerHeight(sizes)};
  const auto button = [&](int index) {
    const int travel = layout.frame.height - sizes.button.height;
    return ui::TwipRect{column, top + travel * index / (kButtons - 1), sizes.button.width, sizes.button.height};
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
