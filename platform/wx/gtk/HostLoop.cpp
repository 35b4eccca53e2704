#include "platform/wx/HostLoop.h"

#include <gtk/gtk.h>

#include <exception>
#include <utility>

#include <wx/dialog.h>
#include <wx/evtloop.h>

namespace quorvel::ui {
namespace {

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

// After a modal window the toolkit ends the loop around it too, since it takes that for its own, which would run on.
// Where that loop is the host's, one that may be ended is put between.
int ShowModalInHost(wxDialog& dialog) {
  if (gtk_main_level() == 0 || wxEventLoopBase::GetActive() != nullptr) return dialog.ShowModal();
  Showing showing{dialog, wxID_CANCEL, nullptr};
  g_idle_add_full(G_PRIORITY_HIGH, Show, &showing, nullptr);
  gtk_main();
  if (showing.failure) std::rethrow_exception(showing.failure);
  return showing.answer;
}

}  // namespace quorvel::ui
