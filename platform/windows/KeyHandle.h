#pragma once

#include <windows.h>

#include "platform/UniqueHandle.h"

namespace quorvel::registry {

struct KeyTraits {
  using Type = HKEY;
  static Type Invalid() noexcept { return nullptr; }
  static void Close(Type key) noexcept { ::RegCloseKey(key); }
};
using KeyHandle = UniqueHandle<KeyTraits>;

}  // namespace quorvel::registry
