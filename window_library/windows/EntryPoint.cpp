#include "window_library/ComponentWindows.h"

namespace quorvel {

// On Windows there is one file, so nothing is loaded.
WindowLibrary StartWindowLibrary() { return ComponentWindows::Start(); }

}  // namespace quorvel
