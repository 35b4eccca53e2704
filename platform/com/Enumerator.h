#pragma once

#include <cstddef>
#include <functional>

#include "platform/com/Com.h"

namespace quorvel::com {

/// The objects of an enumeration.
struct ObjectSource {
  /// The current number of objects.
  std::function<std::size_t()> count;
  /// A new reference to the object at a 0-based position below count.
  std::function<IDispatch*(std::size_t)> at;
};

/// An IEnumVARIANT over a source that may change during the enumeration: each step reads the source again. Throws
/// std::bad_alloc.
[[nodiscard]] IEnumVARIANT* MakeEnumerator(ObjectSource source);

}  // namespace quorvel::com
