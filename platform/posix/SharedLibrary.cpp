#include "platform/SharedLibrary.h"

#include <dlfcn.h>

#include <filesystem>
#include <string>

#include "platform/Environment.h"
#include "platform/Error.h"

namespace quorvel::os {
namespace {

/// Its address identifies the library that contains this code.
const char kInThisLibrary = 0;

/// With a full path, neither the loader's search path nor a library that intercepts the loader chooses another file.
std::string BesideThisLibrary(const char* file) {
  Dl_info here{};
  if (::dladdr(&kInThisLibrary, &here) == 0 || here.dli_fname == nullptr) return file;
  return std::filesystem::path(here.dli_fname).replace_filename(file);
}

[[noreturn]] void Fail(const char* file) {
  const char* reason = ::dlerror();
  throw Error(ErrorNumber::Component, std::string(kApplicationName), reason != nullptr ? reason : file);
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
