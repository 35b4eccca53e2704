#pragma once

#include <cstdint>

#include "platform/wx/Twips.h"

namespace quorvel {

/// How much room the controls of the editor need on this desktop, in twips; never less than they were drawn with.
struct EditControls {
  int frameHeight = 1465;
  ui::TwipSize button{982, 330};
};

/// Where the controls stand inside the window, in twips.
struct EditLayout {
  ui::TwipRect grid;
  ui::TwipRect frame;
  ui::TwipRect newButton;
  ui::TwipRect saveButton;
  ui::TwipRect deleteButton;
  ui::TwipRect closeButton;
};

/// `window` is the whole window, as TwipScale counts it. The grid takes what the window grows by. Controls that need
/// more room than drawn make the window larger.
[[nodiscard]] ui::TwipSize SmallestEditor(const EditControls& controls) noexcept;
[[nodiscard]] EditLayout LayOutEditor(const ui::TwipSize& window, const EditControls& controls) noexcept;

/// The height of the grid's rows in grid units, for a context's RowHeight in text lines.
[[nodiscard]] std::int32_t GridRowHeight(std::int32_t rowHeight) noexcept;

}  // namespace quorvel
