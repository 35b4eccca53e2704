#include "runtime/WindowLibrary.h"

#include <dlfcn.h>

#include <filesystem>
#include <string>

#include <fmt/format.h>

#include "platform/Error.h"

namespace quorvel {
namespace {

constexpr char kFile[] = "libquorvel-windows.so.5";

/// The libraries of one build are in one folder. Named outright, so that neither a loader's path nor whatever stands
/// between a program and its loader decides which one is taken.
std::string BesideThisLibrary() {
  Dl_info here{};
  if (::dladdr(kFile, &here) == 0 || here.dli_fname == nullptr) return kFile;
  return std::filesystem::path(here.dli_fname).replace_filename(kFile);
}

[[noreturn]] void FailToLoad() {
  const char* reason = ::dlerror();
  throw Error(ErrorNumber::Component, "Quorvel",
              fmt::format("No window can be opened: the library with the windows cannot be loaded. Install the package "
                          "libquorvel5-windows. ({})",
                          reason != nullptr ? reason : kFile));
}

}  // namespace

WindowLibrary StartWindowLibrary() {
  // The toolkit leaves things behind in the process that refer to the library, so it stays for good.
  void* library = ::dlopen(BesideThisLibrary().c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) FailToLoad();
  void* entry = ::dlsym(library, kWindowLibraryEntry);
  if (entry == nullptr) FailToLoad();
  return reinterpret_cast<WindowLibrary (*)()>(entry)();
}

}  // namespace quorvel
