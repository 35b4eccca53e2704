// GTK's own grab keeps input from the host's windows. Two things remain: the host's active window becomes active again
// afterwards, and a loop that the host runs survives the component's modal window.
#include "platform/wx/HostWindows.h"

#include <gtk/gtk.h>

#include <exception>

#include <wx/dialog.h>
#include <wx/evtloop.h>

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

struct Showing {
  wxDialog& dialog;
  int answer = wxID_CANCEL;
  std::exception_ptr failure;
};

gboolean Show(gpointer data) {
  auto& showing = *static_cast<Showing*>(data);
  try {
    showing.answer = showing.dialog.ShowModal();
  } catch (...) {
    showing.failure = std::current_exception();
  }
  gtk_main_quit();
  return G_SOURCE_REMOVE;
}

}  // namespace

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

// After a modal window the toolkit also ends the loop around it, because it mistakes that loop for its own. When that
// loop is the host's, another loop, which may end, is put between.
int HostWindows::ShowModal(wxDialog& dialog) {
  if (gtk_main_level() == 0 || wxEventLoopBase::GetActive() != nullptr) return dialog.ShowModal();
  Showing showing{dialog, wxID_CANCEL, nullptr};
  g_idle_add_full(G_PRIORITY_HIGH, Show, &showing, nullptr);
  gtk_main();
  if (showing.failure) std::rethrow_exception(showing.failure);
  return showing.answer;
}

void HostWindows::Enable() noexcept {}

}  // namespace quorvel::ui
