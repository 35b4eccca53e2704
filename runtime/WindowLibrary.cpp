#include "runtime/WindowLibrary.h"

#include <fmt/format.h>

#include "platform/Error.h"
#include "platform/SharedLibrary.h"

namespace quorvel {
namespace {

void* EntryPoint() {
  try {
    return os::LibraryFunction("libquorvel-windows.so.5", kWindowLibraryEntry);
  } catch (const Error& error) {
    throw Error(error.Number(), error.Source(),
                fmt::format("No window can be opened: the library with the windows cannot be loaded. Install the "
                            "package libquorvel5-windows. ({})",
                            error.Description()));
  }
}

}  // namespace

WindowLibrary StartWindowLibrary() { return reinterpret_cast<WindowLibrary (*)()>(EntryPoint())(); }

}  // namespace quorvel
