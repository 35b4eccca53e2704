#pragma once

#include <string_view>

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

namespace quorvel::ui {

/// A picture of the product in all its sizes; `name` is that of the drawing in pictures/, such as "users". The default
/// size is the smallest, 32 pixels for the views of the administration. Empty when there is no such drawing.
[[nodiscard]] wxBitmapBundle Picture(std::string_view name);

/// The product's icon for a title bar, a task bar and a list of windows.
[[nodiscard]] wxIconBundle ProductIcons();

}  // namespace quorvel::ui
