#include "platform/com/ServerLock.h"

#include <atomic>

namespace quorvel::com {
namespace {

constinit std::atomic<LONG> locks = 0;

}  // namespace

void ServerLock::Add() noexcept { locks.fetch_add(1, std::memory_order_relaxed); }

void ServerLock::Remove() noexcept { locks.fetch_sub(1, std::memory_order_release); }

bool ServerLock::None() noexcept { return locks.load(std::memory_order_acquire) == 0; }

}  // namespace quorvel::com
