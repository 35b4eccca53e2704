#pragma once

#include <cstddef>

namespace quorvel::os {

/// The bytes that are left of the calling thread's stack; the largest number when the system does not know, as on a
/// stack that the host has made itself. Functions that call themselves as deep as a text says ask for it: a host's
/// thread may have a small stack, and the end of it is the end of the host.
[[nodiscard]] std::size_t StackLeft() noexcept;

}  // namespace quorvel::os
