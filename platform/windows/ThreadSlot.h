#pragma once

#include <cstdint>
#include <memory>

namespace quorvel::os {

/// A place of which every thread has its own; what a thread puts there is destroyed when the thread ends. A slot is
/// never given back, and once there is one the component stays loaded until the process ends: the system calls its
/// code at the end of each thread. Safe to use on all threads at once.
class ThreadSlot {
 public:
  struct Held {
    Held() = default;
    virtual ~Held() = default;
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
  };

  /// std::bad_alloc when the system has no more slots.
  ThreadSlot();

  /// What the calling thread has put there; null at first.
  [[nodiscard]] Held* Get() const noexcept;
  /// Takes the place of nothing; std::bad_alloc when the system has no room.
  void Put(std::unique_ptr<Held> held) const;

 private:
  std::uint32_t m_index;
};

}  // namespace quorvel::os
