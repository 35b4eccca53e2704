#pragma once

#ifdef _WIN32
#include <memory>

#include "platform/windows/ThreadSlot.h"
#endif

namespace quorvel {

/// Error -1: the thread has given back what the component kept for it.
[[noreturn]] void ThrowThreadHasEnded();

/// The calling thread's own State, made on first use and destroyed when the thread ends. There is one for each type,
/// so that a module names its own. Its destructor uses no static object: on the thread that ends the process they may
/// be gone before it. Elsewhere than on Windows a host's own objects may outlive it; then ThrowThreadHasEnded.
template <typename State>
[[nodiscard]] State& PerThread() {
#ifdef _WIN32
  // The compiler's thread_local frees an object's memory before it runs the destructor there, so it is for objects
  // without one.
  struct Holder : os::ThreadSlot::Held {
    State state;
  };
  static const os::ThreadSlot slot;
  if (slot.Get() == nullptr) slot.Put(std::make_unique<Holder>());
  return static_cast<Holder*>(slot.Get())->state;
#else
  thread_local bool hasEnded = false;
  struct Holder {
    State state;
    Holder() = default;
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { hasEnded = true; }
  };
  if (hasEnded) ThrowThreadHasEnded();
  thread_local Holder holder;
  return holder.state;
#endif
}

}  // namespace quorvel
