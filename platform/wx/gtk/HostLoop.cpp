#include "platform/wx/HostLoop.h"

#include <glib.h>

#include <wx/evtloop.h>

namespace quorvel::ui {

// A call from inside a loop: the depth also counts loops that are not gtk_main's, such as an application object's.
bool HostRunsLoop() { return g_main_depth() > 0 || wxEventLoopBase::GetActive() != nullptr; }

// GTK delivers keys to every window, and the toolkit's idle events are sources of GTK's loop.
struct LifeOnHostLoop::State {};

LifeOnHostLoop::LifeOnHostLoop() = default;

LifeOnHostLoop::~LifeOnHostLoop() = default;

}  // namespace quorvel::ui
