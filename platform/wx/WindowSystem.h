#pragma once

namespace quorvel::ui {

/// Starts wxWidgets inside the host, with the first call, so that windows can be opened on the calling thread. The
/// host's locale stays as it was; a host that runs wxWidgets itself keeps its own application object.
///
/// Throws error -1 when no window can be opened: there is no display (the text names DISPLAY), the process has no
/// desktop that a person sees, or another thread has windows already, since only one thread of a process can have them.
/// After a failure the call may be repeated, for example when there is a display.
void RequireWindowSystem();

}  // namespace quorvel::ui
