#pragma once

#include <memory>

#include "platform/Prompts.h"
#include "runtime/RemarkWindows.h"

namespace quorvel {

/// The objects that a window library supplies.
struct WindowLibrary {
  std::shared_ptr<RemarkWindows> windows;
  std::shared_ptr<Prompts> prompts;
};

/// Starts the window library on the calling thread, which is then the only one that can have windows. On Windows the
/// window library is part of the component and this function is its entry point. Elsewhere this function loads
/// libquorvel-windows.so.5, which is never unloaded, and calls kWindowLibraryEntry there.
///
/// Throws error -1 and leaves everything as it was when the library or a display is missing or another thread has
/// windows already.
[[nodiscard]] WindowLibrary StartWindowLibrary();

/// The name of the entry point of a window library that is loaded: a function WindowLibrary().
inline constexpr const char* kWindowLibraryEntry = "QuorvelWindowLibrary";

}  // namespace quorvel
