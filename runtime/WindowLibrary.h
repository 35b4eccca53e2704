#pragma once

#include <memory>

#include "platform/Prompts.h"
#include "runtime/RemarkWindows.h"

namespace quorvel {

/// What a window library brings.
struct WindowLibrary {
  std::shared_ptr<RemarkWindows> windows;
  std::shared_ptr<Prompts> prompts;
};

/// Starts the window library on the calling thread, which is from then on the one that can have windows. On Windows it
/// is part of the component, elsewhere it is loaded from libquorvel-windows.so.5 and never unloaded. Error -1, and
/// nothing is different, when the library or a display is missing or another thread has windows already.
[[nodiscard]] WindowLibrary StartWindowLibrary();

/// The name under which the library that is loaded hands itself over: a function WindowLibrary().
inline constexpr const char* kWindowLibraryEntry = "QuorvelWindowLibrary";

}  // namespace quorvel
