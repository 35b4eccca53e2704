#include "platform/windows/ModulePath.h"

#include <windows.h>

#include <algorithm>

namespace quorvel::os {
namespace {

/// Longer than any path: the file system counts in 16 bits.
constexpr std::size_t kLongest = 0x10000;

/// Its address identifies this module.
const char kInThisModule = 0;

}  // namespace

std::wstring ModulePath() {
  HMODULE module = nullptr;
  if (::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<const wchar_t*>(&kInThisModule), &module) == 0) {
    return {};
  }
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    // A path that fills the buffer was cut off.
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    if (path.size() >= kLongest) return {};
    path.resize(std::min(path.size() * 2, kLongest));
  }
}

}  // namespace quorvel::os
