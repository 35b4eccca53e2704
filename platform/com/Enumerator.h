#pragma once

#include <cstddef>
#include <functional>

#include "platform/com/Com.h"

namespace quorvel::com {

/// What an enumerator walks over.
struct ObjectSource {
  /// How many there are at this moment.
  std::function<std::size_t()> count;
  /// A new reference to the object at a 0-based position below count.
  std::function<IDispatch*(std::size_t)> at;
};

/// An IEnumVARIANT over a source that may change while it is walked over: what is behind the position counts.
/// Throws std::bad_alloc.
[[nodiscard]] IEnumVARIANT* MakeEnumerator(ObjectSource source);

}  // namespace quorvel::com
