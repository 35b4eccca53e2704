#pragma once

#include <exception>
#include <functional>
#include <type_traits>
#include <utility>

namespace quorvel::ui {

// No exception may pass through the toolkit, so whatever the toolkit calls is guarded. `failed` takes a
// std::exception_ptr and throws nothing.

/// Runs `action` and passes what it throws to `failed`.
template <typename Action, typename Failed>
void RunGuarded(const Action& action, const Failed& failed) noexcept {
  try {
    action();
  } catch (...) {
    failed(std::current_exception());
  }
}

/// Calls a handler that takes the event or nothing.
template <typename Handler, typename Event>
void CallHandler(Handler& handler, Event& event) {
  if constexpr (std::is_invocable_v<Handler&, Event&>) {
    handler(event);
  } else {
    handler();
  }
}

/// An event handler that runs `handler`, which takes the event or nothing, and passes what it throws to `failed`.
template <typename Handler, typename Failed>
[[nodiscard]] auto GuardedHandler(Handler handler, Failed failed) {
  return [handler = std::move(handler), failed = std::move(failed)](auto& event) mutable {
    RunGuarded([&] { CallHandler(handler, event); }, failed);
  };
}

}  // namespace quorvel::ui
