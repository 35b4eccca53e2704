#include "platform/Stack.h"

#include <pthread.h>

#include <bit>
#include <cstdint>
#include <limits>

namespace quorvel::os {
namespace {

struct Stack {
  std::uintptr_t lowest = 0;
  std::uintptr_t end = 0;
};

Stack StackOfThisThread() noexcept {
  pthread_attr_t attributes;
  if (::pthread_getattr_np(::pthread_self(), &attributes) != 0) return {};
  void* lowest = nullptr;
  std::size_t size = 0;
  const bool isKnown = ::pthread_attr_getstack(&attributes, &lowest, &size) == 0;
  ::pthread_attr_destroy(&attributes);
  const auto begin = std::bit_cast<std::uintptr_t>(lowest);
  return isKnown ? Stack{begin, begin + size} : Stack{};
}

}  // namespace

std::size_t StackLeft() noexcept {
  // For the first thread of a process the system reads a file to answer.
  thread_local const Stack stack = StackOfThisThread();
  const auto here = std::bit_cast<std::uintptr_t>(__builtin_frame_address(0));
  const bool isOnIt = here >= stack.lowest && here < stack.end;
  return isOnIt ? here - stack.lowest : std::numeric_limits<std::size_t>::max();
}

}  // namespace quorvel::os
