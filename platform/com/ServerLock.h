#pragma once

#include "platform/com/Com.h"

namespace quorvel::com {

/// Keeps the library loaded. Every object that a host may hold contains one.
class ServerLock {
 public:
  ServerLock() noexcept { Add(); }
  ServerLock(const ServerLock&) noexcept { Add(); }
  ServerLock& operator=(const ServerLock&) noexcept = default;
  ~ServerLock() { Remove(); }

  /// For the locks that a host sets through a class factory.
  static void Add() noexcept;
  static void Remove() noexcept;

  /// Whether there are no locks.
  [[nodiscard]] static bool None() noexcept;
};

}  // namespace quorvel::com
