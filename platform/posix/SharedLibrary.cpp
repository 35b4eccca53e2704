#include "platform/SharedLibrary.h"

#include <dlfcn.h>
#include <link.h>

#include <array>
#include <climits>
#include <filesystem>
#include <string>

#include "platform/Environment.h"
#include "platform/Error.h"

namespace quorvel::os {
namespace {

/// Its address identifies the library that contains this code.
const char kInThisLibrary = 0;

[[noreturn]] void Fail(const char* file) {
  const char* reason = ::dlerror();
  throw Error(ErrorNumber::Component, std::string(kApplicationName), reason != nullptr ? reason : file);
}

/// With a full path neither the loader's search path, nor a library that intercepts the loader, nor the current folder
/// chooses another file. A host may have loaded this library by a relative path and changed the folder since; the
/// loader keeps the folder as it was then.
std::string BesideThisLibrary(const char* file) {
  Dl_info here{};
  void* library = nullptr;
  if (::dladdr1(&kInThisLibrary, &here, &library, RTLD_DL_LINKMAP) == 0 || here.dli_fname == nullptr) Fail(file);
  const std::filesystem::path path(here.dli_fname);
  if (path.is_absolute()) return path.parent_path() / file;
  // In a program itself, which has no name here, the loader has no folder to copy either, and would end the process.
  if (*static_cast<const link_map*>(library)->l_name == '\0') Fail(file);
  std::array<char, std::size_t{2} * PATH_MAX> folder{};  // the current folder, and the path below it
  if (::dlinfo(library, RTLD_DI_ORIGIN, folder.data()) != 0) Fail(file);
  return std::filesystem::path(folder.data()) / file;
}

}  // namespace

void* LibraryFunction(const char* file, const char* function) {
  void* library = ::dlopen(BesideThisLibrary(file).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) Fail(file);
  void* address = ::dlsym(library, function);
  if (address == nullptr) Fail(file);
  return address;
}

}  // namespace quorvel::os
