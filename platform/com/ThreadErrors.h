#pragma once

#include "platform/com/Com.h"

namespace quorvel::com {

/// The face of the thread's error object towards hosts on systems that have none of their own, with one reference.
/// Throws std::bad_alloc.
[[nodiscard]] IThreadErrors* MakeThreadErrors();

}  // namespace quorvel::com
