#include "platform/wx/HostWindows.h"

#include <gtk/gtk.h>

namespace quorvel::ui {
namespace {

GtkWindow* ActiveWindow() {
  GList* windows = gtk_window_list_toplevels();
  GtkWindow* active = nullptr;
  for (const GList* item = windows; item != nullptr && active == nullptr; item = item->next) {
    auto* window = static_cast<GtkWindow*>(item->data);
    if (gtk_window_is_active(window) != FALSE) active = window;
  }
  g_list_free(windows);
  return active;
}

}  // namespace

/// The grab of a modal window keeps input from all windows of GTK, the host's too.
struct HostWindows::State {
  GWeakRef active;
};

HostWindows::HostWindows() : m_state(std::make_unique<State>()) { g_weak_ref_init(&m_state->active, ActiveWindow()); }

HostWindows::~HostWindows() {
  if (gpointer window = g_weak_ref_get(&m_state->active)) {
    if (gtk_widget_get_visible(static_cast<GtkWidget*>(window)) != FALSE) {
      gtk_window_present(static_cast<GtkWindow*>(window));
    }
    g_object_unref(window);
  }
  g_weak_ref_clear(&m_state->active);
}

void HostWindows::Enable() noexcept {}

}  // namespace quorvel::ui
