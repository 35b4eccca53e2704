#pragma once

#include <utility>

namespace quorvel {

/// Owns one operating-system or library handle. `Traits` gives `Type`, `Invalid()` and `Close(Type)`.
template <typename Traits>
class UniqueHandle {
 public:
  using Type = typename Traits::Type;

  UniqueHandle() noexcept = default;
  explicit UniqueHandle(Type handle) noexcept : m_handle(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : m_handle(other.Release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) Reset(other.Release());
    return *this;
  }
  UniqueHandle(const UniqueHandle&) = delete;
  UniqueHandle& operator=(const UniqueHandle&) = delete;
  ~UniqueHandle() { Reset(); }

  [[nodiscard]] Type Get() const noexcept { return m_handle; }
  explicit operator bool() const noexcept { return m_handle != Traits::Invalid(); }
  [[nodiscard]] Type Release() noexcept { return std::exchange(m_handle, Traits::Invalid()); }
  void Reset(Type handle = Traits::Invalid()) noexcept {
    // The member changes first: closing may call code that uses this object.
    const Type closing = std::exchange(m_handle, handle);
    if (closing != Traits::Invalid()) Traits::Close(closing);
  }
  /// For functions that return a handle through a pointer. Closes the former handle first.
  [[nodiscard]] Type* Put() noexcept {
    Reset();
    return &m_handle;
  }

 private:
  Type m_handle = Traits::Invalid();
};

}  // namespace quorvel
