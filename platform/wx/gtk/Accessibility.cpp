#include "platform/wx/Accessibility.h"

#include <gtk/gtk.h>

#include <string>

#include <wx/window.h>

namespace quorvel::ui {
namespace {

/// The focus goes to a part of some controls, and it is that part which is read out then.
void SetName(GtkWidget* widget, gpointer name) {
  atk_object_set_name(gtk_widget_get_accessible(widget), static_cast<const char*>(name));
  if (GTK_IS_CONTAINER(widget) != FALSE) gtk_container_forall(GTK_CONTAINER(widget), SetName, name);
}

}  // namespace

void SetAccessibleName(wxWindow& window, std::string_view name) {
  std::string text(name);
  SetName(window.GetHandle(), text.data());
}

}  // namespace quorvel::ui
