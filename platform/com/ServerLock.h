#pragma once

#include "platform/com/Com.h"

namespace quorvel::com {

/// Keeps the library loaded: every object that a host may hold has one.
class ServerLock {
 public:
  ServerLock() noexcept { Add(); }
  ServerLock(const ServerLock&) noexcept { Add(); }
  ServerLock& operator=(const ServerLock&) noexcept = default;
  ~ServerLock() { Remove(); }

  /// For a host's own locks, which have no object.
  static void Add() noexcept;
  static void Remove() noexcept;

  /// Whether nobody holds anything.
  [[nodiscard]] static bool None() noexcept;
};

}  // namespace quorvel::com
