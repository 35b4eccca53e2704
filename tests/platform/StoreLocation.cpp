// Prints where this process would keep the settings. Its exit status is 1 when it runs with its caller's identity.

#include <unistd.h>

#include <cstdio>

#include "platform/RegistryKey.h"

int main() {
  std::puts(quorvel::registry::StoreLocation().c_str());
  return ::getuid() == ::geteuid() ? 1 : 0;
}
