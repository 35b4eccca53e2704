// The functions that libFuzzer calls.

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "tests/fuzz/Fuzz.h"

extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
  // Databases of the tests are then in memory, and no window can open.
  ::setenv("TMPDIR", "/dev/shm", 1);
  ::unsetenv("DISPLAY");
  ::unsetenv("WAYLAND_DISPLAY");
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quorvel::fuzz::Try({reinterpret_cast<const char*>(data), size});
  return 0;
}
