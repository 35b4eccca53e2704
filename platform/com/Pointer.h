#pragma once

#include <utility>

#include "platform/UniqueHandle.h"
#include "platform/com/Com.h"

namespace quorvel::com {

template <typename Interface>
struct ReferenceTraits {
  using Type = Interface*;
  static Type Invalid() noexcept { return nullptr; }
  static void Close(Type object) noexcept { object->Release(); }
};

/// Owns one reference to a COM object.
template <typename Interface>
class Pointer : public UniqueHandle<ReferenceTraits<Interface>> {
 public:
  using UniqueHandle<ReferenceTraits<Interface>>::UniqueHandle;
  Interface* operator->() const noexcept { return this->Get(); }
};

/// The interface `interfaceId` of an object, which may be null; null when the object does not have it.
template <typename Interface>
Pointer<Interface> Query(IUnknown* object, REFIID interfaceId) noexcept {
  void* found = nullptr;
  if (object == nullptr || FAILED(object->QueryInterface(interfaceId, &found))) return {};
  return Pointer<Interface>(static_cast<Interface*>(found));
}

}  // namespace quorvel::com
