#pragma once

#ifdef _WIN32
#include <memory>

#include "platform/ThreadSlot.h"
#endif

namespace quorvel {

/// Error -1: the state of this thread is already destroyed.
[[noreturn]] void ThrowThreadHasEnded();

/// The calling thread's State, made on first use and destroyed when the thread ends. There is one for each type, so
/// each module declares a type for its own use. A State's destructor must not use static objects: when the process ends
/// they may be destroyed first. Except on Windows, a host's own objects may call this after the State is destroyed;
/// then it calls ThrowThreadHasEnded.
template <typename State>
[[nodiscard]] State& PerThread() {
#ifdef _WIN32
  // The Windows compiler's thread_local frees an object's memory before it runs the destructor.
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
