#pragma once

#ifdef _WIN32
#include <memory>

#include "platform/windows/ThreadSlot.h"
#else
#include <utility>
#endif

namespace quorvel {

/// The calling thread's own State, made on first use and destroyed when the thread ends. There is one for each type,
/// so that a module names its own. Its destructor uses no static object: on the thread that ends the process they may
/// be gone before it.
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
  // No destructor of its own: what hosts destroy after it at the end of the thread makes another, which stays.
  thread_local State* state = nullptr;
  struct End {
    ~End() { delete std::exchange(state, nullptr); }
  };
  if (state == nullptr) {
    state = new State();
    thread_local const End end;
    static_cast<void>(end);
  }
  return *state;
#endif
}

}  // namespace quorvel
