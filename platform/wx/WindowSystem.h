#pragma once

namespace quorvel::ui {

/// Makes sure that windows can be opened on the calling thread. The first call starts wxWidgets inside the host, whose
/// locale stays as it was; a host that runs wxWidgets itself keeps its own application object.
///
/// Error -1 when no window can be opened: there is no display (the text names DISPLAY), the process has no desktop that
/// a person sees, or another thread has windows already, since one thread of a process can have them. A call that
/// failed for want of a display may be repeated.
void RequireWindowSystem();

}  // namespace quorvel::ui
