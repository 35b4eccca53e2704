#include <windows.h>

#include <sddl.h>

#include "platform/UniqueHandle.h"
#include "platform/windows/KeyHandle.h"

// DenyWriting <key of HKEY_LOCAL_MACHINE>: creates the key and makes it read-only for everyone, as most keys of a
// machine are for ordinary users. Wine keeps this until it is restarted.

namespace {

/// KEY_READ for everyone and no other right.
constexpr const wchar_t* kReadOnly = L"D:P(A;;KR;;;WD)";

struct DescriptorTraits {
  using Type = PSECURITY_DESCRIPTOR;
  static Type Invalid() noexcept { return nullptr; }
  static void Close(Type descriptor) noexcept { ::LocalFree(descriptor); }
};

}  // namespace

int wmain(int count, wchar_t* arguments[]) {
  if (count != 2) return 2;
  quorvel::registry::KeyHandle key;
  quorvel::UniqueHandle<DescriptorTraits> descriptor;
  const bool done = ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, arguments[1], 0, nullptr, 0, WRITE_DAC, nullptr, key.Put(),
                                      nullptr) == ERROR_SUCCESS &&
                    ::ConvertStringSecurityDescriptorToSecurityDescriptorW(kReadOnly, SDDL_REVISION_1, descriptor.Put(),
                                                                           nullptr) != 0 &&
                    ::RegSetKeySecurity(key.Get(), DACL_SECURITY_INFORMATION, descriptor.Get()) == ERROR_SUCCESS;
  return done ? 0 : 1;
}
