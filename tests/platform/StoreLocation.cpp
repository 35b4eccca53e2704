// Prints where this process would keep the settings. Its exit status is 1 when it runs with its caller's identity.

#include <unistd.h>

#include <cstdio>

#include "platform/RegistryKey.h"

#ifdef QUORVEL_SANITIZED
/// The search for leaks traces the program, which the system forbids for one with another identity.
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }
#endif

int main() {
  std::puts(quorvel::registry::StoreLocation().c_str());
  return ::getuid() == ::geteuid() ? 1 : 0;
}
