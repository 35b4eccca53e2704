#include "data/modWaitCursor.h"

#include <cstdint>

#include "platform/CurrentPrompts.h"

namespace quorvel::modWaitCursor {
namespace {

struct State {
  std::int32_t waits = 0;
};

State& ThreadState() noexcept {
  thread_local State state;
  return state;
}

}  // namespace

void BeginWait() noexcept {
  State& state = ThreadState();
  if (state.waits == 0) CurrentPrompts().SetPointer(PointerShape::Hourglass);
  ++state.waits;
}

void EndWait() noexcept {
  State& state = ThreadState();
  if (state.waits == 0) return;
  --state.waits;
  if (state.waits == 0) CurrentPrompts().SetPointer(PointerShape::Default);
}

void ResetWait() noexcept {
  ThreadState().waits = 0;
  CurrentPrompts().SetPointer(PointerShape::Default);
}

}  // namespace quorvel::modWaitCursor
