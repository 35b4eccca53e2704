#include "platform/wx/TextMargins.h"

#include <gtk/gtk.h>

#include <wx/textctrl.h>

namespace quorvel::ui {

void SetTextMargins(wxTextCtrl& box) {
  GtkWidget* const scrolled = box.GetHandle();
  if (GTK_IS_BIN(scrolled) == FALSE) return;
  GtkWidget* const view = gtk_bin_get_child(GTK_BIN(scrolled));
  if (GTK_IS_TEXT_VIEW(view) == FALSE) return;
  auto* const text = GTK_TEXT_VIEW(view);
  const int margin = box.FromDIP(5);
  gtk_text_view_set_left_margin(text, margin);
  gtk_text_view_set_right_margin(text, margin);
  gtk_text_view_set_top_margin(text, margin);
  gtk_text_view_set_bottom_margin(text, margin);
}

}  // namespace quorvel::ui
