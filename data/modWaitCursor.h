#pragma once

namespace quorvel::modWaitCursor {

/// Waits are counted per thread; the hourglass shows while one is pending.
void BeginWait() noexcept;
/// Does nothing when no wait is pending.
void EndWait() noexcept;
/// Ends every wait and shows the default pointer.
void ResetWait() noexcept;

/// One wait, until the end of the scope.
class BusyPointer {
 public:
  BusyPointer() noexcept { BeginWait(); }
  ~BusyPointer() { EndWait(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

}  // namespace quorvel::modWaitCursor
