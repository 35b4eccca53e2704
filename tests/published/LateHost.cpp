#include <dlfcn.h>

#include <cstdio>
#include <thread>

#include "tests/support/HostCalls.h"
#include "tests/support/TestDatabase.h"

// Twice loads the library named on the command line, uses it on a thread and unloads it. Ends with 0 on success.
namespace {

using namespace Quorvel;
using quorvel::test::Load;

template <typename Function>
Function* Find(void* library, const char* name) {
  return reinterpret_cast<Function*>(dlsym(library, name));
}

const char* Use(void* library) {
  auto* create = Find<decltype(QuorvelCreate)>(library, "QuorvelCreate");
  auto* canUnload = Find<decltype(DllCanUnloadNow)>(library, "DllCanUnloadNow");
  if (create == nullptr || canUnload == nullptr) return "an entry point is missing";
  _RemarkContext* context = nullptr;
  if (FAILED(create(u"Quorvel.RemarkContext", IID__RemarkContext, reinterpret_cast<void**>(&context)))) {
    return "no context was created";
  }
  LONG count = -1;
  if (SUCCEEDED(Load(context, u"CustMaint", u"C1044", u"admin"))) context->get_MemoCount(&count);
  context->Dispose();
  if (canUnload() != S_FALSE) return "it would unload under an object";
  context->Release();
  if (count != 7) return "the context did not load the sample's remarks";
  return canUnload() == S_OK ? nullptr : "something keeps it loaded";
}

const char* LoadAndUse(const char* path) {
  void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) return dlerror();
  const char* problem = nullptr;
  std::thread([&] { problem = Use(library); }).join();
  if (dlclose(library) != 0) return dlerror();
  return problem;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const quorvel::test::TestDatabase database;
  for (int round = 1; round <= 2; ++round) {
    const char* problem = LoadAndUse(argv[1]);
    if (problem == nullptr) continue;
    std::fprintf(stderr, "round %d: %s\n", round, problem);
    return 1;
  }
  return 0;
}
