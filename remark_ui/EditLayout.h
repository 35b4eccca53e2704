#pragma once

#include <cstdint>

#include "platform/wx/Twips.h"

namespace quorvel {

/// The sizes that the controls of the editor need on this desktop, in twips. The defaults are the design's.
struct EditSizes {
  int frameHeight = 1465;
  ui::TwipSize button{982, 330};
  ui::TwipSize screen = ui::kUnlimited;  ///< the largest window that the screen has room for
};

/// The rectangles of the controls inside the window, in twips.
struct EditLayout {
  ui::TwipRect grid;
  ui::TwipRect frame;
  ui::TwipRect newButton;
  ui::TwipRect saveButton;
  ui::TwipRect deleteButton;
  ui::TwipRect closeButton;
};

/// The smallest size of the whole window, as TwipScale counts it. Controls that need more room than the design's make
/// it larger, but not larger than the screen: with a large font the rule would hide the buttons.
[[nodiscard]] ui::TwipSize SmallestEditor(const EditSizes& sizes) noexcept;
/// Lays out a whole window of that size, or the smallest one. The grid gets all additional space.
[[nodiscard]] EditLayout LayOutEditor(const ui::TwipSize& window, const EditSizes& sizes) noexcept;

/// Converts a context's RowHeight, in text lines, to the height of the grid's rows, in grid units.
[[nodiscard]] std::int32_t GridRowHeight(std::int32_t rowHeight) noexcept;

}  // namespace quorvel
