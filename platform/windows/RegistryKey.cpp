#include "platform/RegistryKey.h"

#include <limits>

#include "platform/windows/KeyHandle.h"
#include "platform/windows/WideText.h"

namespace quorvel::registry {
namespace {

/// Query and set values, create and enumerate sub-keys, notify, create links.
constexpr REGSAM kFullAccess = 63;

HKEY Root(Hive hive) {
  // The system gives its hives as handles with fixed numbers.
  return reinterpret_cast<HKEY>(  // NOLINT(performance-no-int-to-ptr)
      static_cast<LONG_PTR>(static_cast<LONG>(hive)));
}

KeyHandle CreateKey(Hive hive, const std::wstring& path) {
  KeyHandle key;
  ::RegCreateKeyExW(Root(hive), path.c_str(), 0, nullptr, 0, kFullAccess, nullptr, key.Put(), nullptr);
  return key;
}

KeyHandle OpenKey(Hive hive, std::string_view path, REGSAM access) {
  KeyHandle key;
  if (const auto name = os::ToWide(path)) ::RegOpenKeyExW(Root(hive), name->c_str(), 0, access, key.Put());
  return key;
}

/// A stored text may have any number of bytes and usually ends with a zero; some programs leave that out.
std::string TextOf(const std::wstring& buffer, DWORD bytes) {
  std::wstring_view text(buffer.data(), bytes / sizeof(wchar_t));
  if (text.ends_with(L'\0')) text.remove_suffix(1);
  return os::FromWide(text);
}

}  // namespace

std::optional<Key> Key::Create(Hive hive, std::string_view path) {
  const auto name = os::ToWide(path);
  if (!name) return std::nullopt;
  // A user without the right to write gets no key, even where reading is allowed: hosts rely on that.
  return CreateKey(hive, *name) ? std::optional(Key(hive, std::string(path))) : std::nullopt;
}

std::optional<StoredValue> Key::Query(std::string_view name) const {
  const KeyHandle key = OpenKey(m_hive, m_path, KEY_QUERY_VALUE);
  const auto valueName = os::ToWide(name);
  if (!key || !valueName) return std::nullopt;
  DWORD type = 0;
  DWORD bytes = 0;
  LSTATUS status = ::RegQueryValueExW(key.Get(), valueName->c_str(), nullptr, &type, nullptr, &bytes);
  std::wstring buffer;
  // Another program may make the value longer between two calls.
  while ((status == ERROR_SUCCESS || status == ERROR_MORE_DATA) && type == REG_SZ) {
    buffer.resize(bytes / sizeof(wchar_t) + 1);
    bytes = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
    status = ::RegQueryValueExW(key.Get(), valueName->c_str(), nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()),
                                &bytes);
    if (status == ERROR_SUCCESS && type == REG_SZ) return StoredValue{ValueType::String, TextOf(buffer, bytes)};
  }
  return status == ERROR_SUCCESS ? std::optional(StoredValue{static_cast<ValueType>(type), ""}) : std::nullopt;
}

bool Key::SetString(std::string_view name, std::string_view text) const {
  const auto path = os::ToWide(m_path);
  const auto valueName = os::ToWide(name);
  const auto value = os::ToWide(text);
  if (!path || !valueName || !value) return false;
  const std::size_t bytes = (value->size() + 1) * sizeof(wchar_t);
  if (bytes > std::numeric_limits<DWORD>::max()) return false;
  const KeyHandle key = CreateKey(m_hive, *path);
  return key &&
         ::RegSetValueExW(key.Get(), valueName->c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value->c_str()),
                          static_cast<DWORD>(bytes)) == ERROR_SUCCESS;
}

bool Key::Delete(std::string_view name) const {
  const KeyHandle key = OpenKey(m_hive, m_path, KEY_SET_VALUE);
  const auto valueName = os::ToWide(name);
  if (!key || !valueName) return false;
  const LSTATUS status = ::RegDeleteValueW(key.Get(), valueName->c_str());
  return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

std::string StoreLocation() { return "the registry of this machine"; }

}  // namespace quorvel::registry
