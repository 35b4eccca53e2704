#pragma once

#include <gtk/gtk.h>

class wxTextCtrl;

namespace quorvel::ui {

/// The widget that draws the text of a box of several lines; null for a box of one line.
[[nodiscard]] GtkTextView* TextViewOf(wxTextCtrl& box);

}  // namespace quorvel::ui
