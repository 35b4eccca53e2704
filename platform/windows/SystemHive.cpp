// InstallationHive over the registry of Windows. Every call opens its key by name and closes it again.

#include "platform/windows/SystemHive.h"

#include "platform/windows/KeyHandle.h"
#include "platform/windows/WideText.h"

namespace quorvel::registry {
namespace {

Outcome OutcomeOf(LSTATUS status) noexcept {
  if (status == ERROR_SUCCESS) return Outcome::Done;
  return status == ERROR_ACCESS_DENIED ? Outcome::Denied : Outcome::Failed;
}

/// A missing key or value is as good as a deleted one.
Outcome OutcomeOfDeleting(LSTATUS status) noexcept {
  return status == ERROR_FILE_NOT_FOUND ? Outcome::Done : OutcomeOf(status);
}

LSTATUS ReadText(HKEY root, const std::wstring& key, const std::wstring& name, std::wstring& text) {
  DWORD bytes = 0;
  LSTATUS status = ::RegGetValueW(root, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &bytes);
  if (status != ERROR_SUCCESS) return status;
  do {
    // Another program may make the value longer between two calls.
    text.resize(bytes / sizeof(wchar_t) + 1);
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    status = ::RegGetValueW(root, key.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
  } while (status == ERROR_MORE_DATA);
  text.resize(text.find(L'\0'));
  return status;
}

class SystemHive final : public InstallationHive {
 public:
  explicit SystemHive(HKEY root) noexcept : m_root(root) {}

  [[nodiscard]] std::optional<std::string> Text(const std::string& key, const std::string& name) const override {
    const auto path = os::ToWide(key);
    const auto valueName = os::ToWide(name);
    std::wstring text;
    if (!path || !valueName || ReadText(m_root, *path, *valueName, text) != ERROR_SUCCESS) return std::nullopt;
    return os::FromWide(text);
  }

  [[nodiscard]] Outcome Write(const std::string& key, const std::string& name, const std::string& text) override {
    const auto path = os::ToWide(key);
    const auto valueName = os::ToWide(name);
    const auto value = os::ToWide(text);
    if (!path || !valueName || !value) return Outcome::Failed;
    KeyHandle opened;
    const LSTATUS status = ::RegCreateKeyExW(m_root, path->c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_SET_VALUE,
                                             nullptr, opened.Put(), nullptr);
    if (status != ERROR_SUCCESS) return OutcomeOf(status);
    const auto bytes = static_cast<DWORD>((value->size() + 1) * sizeof(wchar_t));
    return OutcomeOf(::RegSetValueExW(opened.Get(), valueName->c_str(), 0, REG_SZ,
                                      reinterpret_cast<const BYTE*>(value->c_str()), bytes));
  }

  [[nodiscard]] Outcome DeleteValue(const std::string& key, const std::string& name) override {
    const auto path = os::ToWide(key);
    const auto valueName = os::ToWide(name);
    if (!path || !valueName) return Outcome::Failed;
    KeyHandle opened;
    const LSTATUS status = ::RegOpenKeyExW(m_root, path->c_str(), 0, KEY_SET_VALUE, opened.Put());
    if (status != ERROR_SUCCESS) return OutcomeOfDeleting(status);
    return OutcomeOfDeleting(::RegDeleteValueW(opened.Get(), valueName->c_str()));
  }

  [[nodiscard]] Outcome DeleteEmptyKey(const std::string& key) override {
    const auto path = os::ToWide(key);
    if (!path) return Outcome::Failed;
    KeyHandle opened;
    const LSTATUS status = ::RegOpenKeyExW(m_root, path->c_str(), 0, KEY_QUERY_VALUE, opened.Put());
    if (status != ERROR_SUCCESS) return OutcomeOfDeleting(status);
    DWORD keys = 0;
    DWORD values = 0;
    const LSTATUS counted = ::RegQueryInfoKeyW(opened.Get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                               &values, nullptr, nullptr, nullptr, nullptr);
    if (counted != ERROR_SUCCESS) return OutcomeOf(counted);
    // The system's own call only looks for keys below and would delete the values too.
    if (keys != 0 || values != 0) return Outcome::Done;
    opened.Reset();
    return OutcomeOfDeleting(::RegDeleteKeyW(m_root, path->c_str()));
  }

 private:
  HKEY m_root;
};

}  // namespace

// The handles of the hives are the system's and need no closing.
InstallationHive& MachineHive() noexcept {
  static SystemHive hive(HKEY_LOCAL_MACHINE);
  return hive;
}

InstallationHive& UserHive() noexcept {
  static SystemHive hive(HKEY_CURRENT_USER);
  return hive;
}

}  // namespace quorvel::registry
