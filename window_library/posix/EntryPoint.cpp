#include "window_library/ComponentWindows.h"

// The runtime finds it by this name (kWindowLibraryEntry). Only the component's own libraries, which are built together
// with this one, call it, so it may return a C++ object.
#pragma GCC diagnostic push
#if defined(__clang__)
#pragma GCC diagnostic ignored "-Wreturn-type-c-linkage"
#endif
extern "C" quorvel::WindowLibrary QuorvelWindowLibrary();
#pragma GCC diagnostic pop

extern "C" __attribute__((visibility("default"))) quorvel::WindowLibrary QuorvelWindowLibrary() {
  return quorvel::ComponentWindows::Start();
}
