#pragma once

#include "runtime/WindowLibrary.h"

namespace quorvel {

/// Starts the toolkit on the calling thread and makes what runtime/ asks for. Throws as RequireWindowSystem does.
[[nodiscard]] WindowLibrary MakeWindowLibrary();

}  // namespace quorvel
