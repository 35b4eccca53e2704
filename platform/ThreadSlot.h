#pragma once

#include <cstdint>
#include <memory>

namespace quorvel::os {

/// Windows only: one pointer for each thread. The object that a thread puts there is destroyed when the thread ends. A
/// slot is never released. Once one exists the component stays loaded until the process ends, because the system calls
/// its code at the end of each thread. Safe on all threads at once.
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

  /// The object that the calling thread put there; null at first.
  [[nodiscard]] Held* Get() const noexcept;
  /// May be called once a thread; std::bad_alloc when the system has no memory.
  void Put(std::unique_ptr<Held> held) const;

 private:
  std::uint32_t m_index;
};

}  // namespace quorvel::os
