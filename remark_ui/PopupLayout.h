#pragma once

#include "platform/wx/Twips.h"

namespace quorvel {

/// The sizes of the controls of the pop-up window on this desktop, in twips. The defaults are the design's.
struct PopupSizes {
  int typeHeight = 285;
  int firstLine = 15;  ///< from the upper edge of the remark's box to its first line
  ui::TwipSize next{1215, 375};
  ui::TwipSize previous{1215, 375};
  ui::TwipSize screen = ui::kUnlimited;  ///< the largest window that the screen has room for
};

/// The rectangles of the controls inside the window, in twips.
struct PopupLayout {
  ui::TwipRect typeLabel;
  ui::TwipRect remarkType;
  ui::TwipRect remarkLabel;
  ui::TwipRect remark;
  ui::TwipRect previous;
  ui::TwipRect next;
  ui::TwipRect counter;
};

/// The smallest size of the whole window, as TwipScale counts it. Controls that are higher than the design's make it
/// higher, and the distances between the controls stay the same. It is not larger than the screen.
[[nodiscard]] ui::TwipSize SmallestPopup(const PopupSizes& sizes) noexcept;
/// Lays out a whole window of that size, or the smallest one.
[[nodiscard]] PopupLayout LayOutPopup(const ui::TwipSize& window, const PopupSizes& sizes) noexcept;

}  // namespace quorvel
