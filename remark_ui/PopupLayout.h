#pragma once

#include "platform/wx/Twips.h"

namespace quorvel {

/// How large the controls of the pop-up window are on this desktop, in twips; never smaller than they were drawn.
struct PopupControls {
  int typeHeight = 285;
  ui::TwipSize next{1215, 375};
  ui::TwipSize previous{1215, 375};
};

/// Where the controls stand inside the window, in twips.
struct PopupLayout {
  ui::TwipRect typeLabel;
  ui::TwipRect remarkType;
  ui::TwipRect remarkLabel;
  ui::TwipRect remark;
  ui::TwipRect previous;
  ui::TwipRect next;
  ui::TwipRect counter;
};

/// `window` is the whole window, as TwipScale counts it. Controls that are higher than drawn make the window higher:
/// what stands below keeps its distances.
[[nodiscard]] ui::TwipSize SmallestPopup(const PopupControls& controls) noexcept;
[[nodiscard]] PopupLayout LayOutPopup(const ui::TwipSize& window, const PopupControls& controls) noexcept;

}  // namespace quorvel
