#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

#include "platform/Error.h"
#include "platform/com/Enumerator.h"
#include "runtime/published/Publish.h"

namespace quorvel::published {

/// An enumerator over the runtime objects that `objects(*owner)` returns at each step. It keeps `owner` alive, even
/// after a reload has replaced it in its context. Error 91 without an owner.
template <typename Owner, typename Objects>
[[nodiscard]] IUnknown* EnumerateObjects(std::shared_ptr<Owner> owner, Objects objects) {
  if (!owner) ThrowObjectNotSet();
  return com::MakeEnumerator({[owner, objects] { return std::invoke(objects, *owner).size(); },
                              [owner, objects](std::size_t position) -> IDispatch* {
                                return Publish(std::invoke(objects, *owner)[position]);
                              }});
}

}  // namespace quorvel::published
