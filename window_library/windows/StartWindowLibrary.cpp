#include "window_library/MakeWindowLibrary.h"

namespace quorvel {

// There is one file only, so nothing is loaded.
WindowLibrary StartWindowLibrary() { return MakeWindowLibrary(); }

}  // namespace quorvel
