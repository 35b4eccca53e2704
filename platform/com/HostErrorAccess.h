#pragma once

#include "platform/com/Com.h"

namespace quorvel::com {

/// The object through which hosts read and write the thread's error object on systems without a GetErrorInfo. It has
/// one reference. Throws std::bad_alloc.
[[nodiscard]] IThreadErrors* MakeHostErrorAccess();

}  // namespace quorvel::com
