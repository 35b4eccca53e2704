#include "platform/wx/ButtonKeys.h"

#include <gtk/gtk.h>

#include <wx/button.h>

namespace quorvel::ui {
namespace {

/// The button shows itself pressed until a moment has passed or a key is released, whichever comes first.
void ReleaseKey(GtkButton* button, gpointer /*data*/) {
  GtkWidget* const widget = GTK_WIDGET(button);
  GdkWindow* const window = gtk_widget_get_window(widget);
  if (window == nullptr) return;
  GdkEvent* const release = gdk_event_new(GDK_KEY_RELEASE);
  release->key.window = GDK_WINDOW(g_object_ref(window));
  gdk_event_set_device(release, gdk_seat_get_keyboard(gdk_display_get_default_seat(gtk_widget_get_display(widget))));
  gtk_widget_event(widget, release);
  gdk_event_free(release);
}

}  // namespace

void ActAtOnce(wxButton& button) {
  // Runs when the button's own answer to the key has.
  g_signal_connect(button.GetHandle(), "activate", G_CALLBACK(ReleaseKey), nullptr);
}

}  // namespace quorvel::ui
