#include "platform/Stack.h"

#include <windows.h>

#include <bit>
#include <cstdint>
#include <limits>

namespace quorvel::os {

// A stack is one allocation, whose pages the system commits from its end downwards.
std::size_t StackLeft() noexcept {
  void* const here = __builtin_frame_address(0);
  MEMORY_BASIC_INFORMATION pages{};
  if (::VirtualQuery(here, &pages, sizeof pages) == 0) return std::numeric_limits<std::size_t>::max();
  return std::bit_cast<std::uintptr_t>(here) - std::bit_cast<std::uintptr_t>(pages.AllocationBase);
}

}  // namespace quorvel::os
