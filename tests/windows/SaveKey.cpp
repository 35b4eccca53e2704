#include <windows.h>

#include <cstdio>
#include <string_view>

#include "platform/UniqueHandle.h"
#include "platform/windows/KeyHandle.h"

// SaveKey <key of HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER> <new file>: lets the system save the key with all that is
// below it. Wine writes text, in one step: exporting the same key reads value by value and takes seconds.

namespace {

struct TokenTraits {
  using Type = HANDLE;
  static Type Invalid() noexcept { return nullptr; }
  static void Close(Type token) noexcept { ::CloseHandle(token); }
};

/// An administrator has the privilege to save keys, but it is off.
bool TurnOnBackupPrivilege() {
  quorvel::UniqueHandle<TokenTraits> token;
  TOKEN_PRIVILEGES privileges{};
  privileges.PrivilegeCount = 1;
  privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  return ::OpenProcessToken(::GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES, token.Put()) != 0 &&
         ::LookupPrivilegeValueW(nullptr, L"SeBackupPrivilege", &privileges.Privileges[0].Luid) != 0 &&
         ::AdjustTokenPrivileges(token.Get(), FALSE, &privileges, 0, nullptr, nullptr) != 0;
}

/// Returns the system's error.
LSTATUS Save(std::wstring_view path, const wchar_t* file) {
  const bool isOfUser = path.starts_with(L"HKEY_CURRENT_USER\\");
  const std::wstring_view below = path.substr(path.find(L'\\') + 1);
  quorvel::registry::KeyHandle key;
  const LSTATUS opened =
      ::RegOpenKeyExW(isOfUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, below.data(), 0, KEY_READ, key.Put());
  return opened == ERROR_SUCCESS ? ::RegSaveKeyW(key.Get(), file, nullptr) : opened;
}

}  // namespace

int wmain(int count, wchar_t* arguments[]) {
  if (count != 3) return 2;
  const LSTATUS failure =
      TurnOnBackupPrivilege() ? Save(arguments[1], arguments[2]) : static_cast<LSTATUS>(::GetLastError());
  if (failure != ERROR_SUCCESS) std::fprintf(stderr, "The key could not be saved: error %ld\n", failure);
  return failure == ERROR_SUCCESS ? 0 : 1;
}
