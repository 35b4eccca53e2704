// The themes mark the focus with faint dots on buttons and lists, and not at all on what scrolls. Style rules for
// single controls give them a frame: rules for the whole display would change the windows of the host.

#include <gtk/gtk.h>

#include <wx/window.h>

#include "platform/wx/NativeControls.h"

namespace quorvel::ui {
namespace {

constexpr const char* kFocusedPart = "focused-part";

/// The theme's own colour for what is selected is too dark in dark themes.
constexpr const char* kRules = R"(
  @define-color focus_frame mix(@theme_selected_bg_color, @theme_text_color, 0.4);
  button:focus {
    outline: 2px solid @focus_frame; outline-offset: -3px; -gtk-outline-radius: 4px;
  }
  entry:focus { border-color: @focus_frame; box-shadow: inset 0 0 0 1px @focus_frame; }
  scrolledwindow { padding: 1px; background-color: @theme_base_color; }
  scrolledwindow.focused-part { padding: 0; border-width: 2px; border-color: @focus_frame; }
)";

GtkStyleProvider* Rules() {
  static GtkCssProvider* const rules = [] {
    GtkCssProvider* const made = gtk_css_provider_new();
    gtk_css_provider_load_from_data(made, kRules, -1, nullptr);
    return made;
  }();
  return GTK_STYLE_PROVIDER(rules);
}

/// The focus may go to a part of the control.
void AddRules(GtkWidget* widget, gpointer /*data*/) {
  gtk_style_context_add_provider(gtk_widget_get_style_context(widget), Rules(),
                                 GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  if (GTK_IS_CONTAINER(widget) != FALSE) gtk_container_forall(GTK_CONTAINER(widget), AddRules, nullptr);
}

void FocusMoved(GtkWindow* /*window*/, GtkWidget* focus, GtkWidget* scrolled) {
  GtkStyleContext* const style = gtk_widget_get_style_context(scrolled);
  if (focus != nullptr && gtk_widget_is_ancestor(focus, scrolled) != FALSE) {
    gtk_style_context_add_class(style, kFocusedPart);
  } else {
    gtk_style_context_remove_class(style, kFocusedPart);
  }
}

}  // namespace

void ShowFocus(wxWindow& window) {
  GtkWidget* const widget = window.GetHandle();
  AddRules(widget, nullptr);
  if (GTK_IS_SCROLLED_WINDOW(widget) != FALSE) {
    g_signal_connect_object(gtk_widget_get_toplevel(widget), "set-focus", G_CALLBACK(FocusMoved), widget,
                            static_cast<GConnectFlags>(0));
  }
}

void ShowOutline(wxWindow& window) {
  GtkWidget* const widget = window.GetHandle();
  if (GTK_IS_SCROLLED_WINDOW(widget) != FALSE) {
    gtk_scrolled_window_set_shadow_type(GTK_SCROLLED_WINDOW(widget), GTK_SHADOW_IN);
  }
}

}  // namespace quorvel::ui
