#include "runtime/WindowLibrary.h"

#include <fmt/format.h>

#include "platform/Environment.h"
#include "platform/Error.h"
#include "platform/SharedLibrary.h"

namespace quorvel {
namespace {

void* EntryPoint() {
  const int version = ComponentVersion().major;
  try {
    return os::LibraryFunction(fmt::format("libquorvel-windows.so.{}", version).c_str(), kWindowLibraryEntry);
  } catch (const Error& error) {
    throw Error(error.Number(), error.Source(),
                fmt::format("No window can be opened: the library with the windows cannot be loaded. Install the "
                            "package libquorvel{}-windows. ({})",
                            version, error.Description()));
  }
}

}  // namespace

WindowLibrary StartWindowLibrary() { return reinterpret_cast<WindowLibrary (*)()>(EntryPoint())(); }

}  // namespace quorvel
