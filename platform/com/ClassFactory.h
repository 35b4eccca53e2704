#pragma once

#include "platform/com/Com.h"

namespace quorvel::com {

/// A class factory with one reference. `create` makes a new object with one reference and may throw. Throws
/// std::bad_alloc.
[[nodiscard]] IClassFactory* MakeClassFactory(IDispatch* (*create)());

}  // namespace quorvel::com
