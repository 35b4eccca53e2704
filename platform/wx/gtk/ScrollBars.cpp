#include "platform/wx/ScrollBars.h"

#include <gtk/gtk.h>

#include <wx/window.h>

namespace quorvel::ui {

void KeepScrollBars(wxWindow& window) {
  GtkWidget* const widget = window.GetHandle();
  if (GTK_IS_SCROLLED_WINDOW(widget) != FALSE) {
    gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(widget), FALSE);
  }
}

}  // namespace quorvel::ui
