#include "window_library/MakeWindowLibrary.h"

// Found by its plain name; only the component's own libraries, built together with this one, call it.
#pragma GCC diagnostic push
#if defined(__clang__)
#pragma GCC diagnostic ignored "-Wreturn-type-c-linkage"
#endif
extern "C" quorvel::WindowLibrary QuorvelWindowLibrary();
#pragma GCC diagnostic pop

extern "C" __attribute__((visibility("default"))) quorvel::WindowLibrary QuorvelWindowLibrary() {
  return quorvel::MakeWindowLibrary();
}
