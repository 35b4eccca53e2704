#include "platform/RegistryKey.h"

#include <limits>

#include "platform/OperatingSystem.h"
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

std::error_code ErrorOf(LSTATUS status) { return {static_cast<int>(status), std::system_category()}; }

LSTATUS CreateKey(Hive hive, const std::wstring& path, KeyHandle& key) {
  return ::RegCreateKeyExW(Root(hive), path.c_str(), 0, nullptr, 0, kFullAccess, nullptr, key.Put(), nullptr);
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

/// ERROR_ALREADY_EXISTS when the value is a string. Only ERROR_FILE_NOT_FOUND says that it is missing; any other
/// failure may pass, and the value with it.
LSTATUS RequireNoString(HKEY key, const std::wstring& name) {
  DWORD type = 0;
  const LSTATUS status = ::RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, nullptr);
  if (status == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
  return status == ERROR_SUCCESS && type == REG_SZ ? ERROR_ALREADY_EXISTS : status;
}

LSTATUS AssignOne(HKEY key, const Assignment& assignment) {
  const auto name = os::ToWide(assignment.name);
  const auto text = os::ToWide(assignment.text);
  if (!name || !text) return ERROR_INVALID_DATA;
  const std::size_t bytes = (text->size() + 1) * sizeof(wchar_t);
  if (bytes > std::numeric_limits<DWORD>::max()) return ERROR_INVALID_DATA;
  if (assignment.onlyWhenMissing) {
    const LSTATUS found = RequireNoString(key, *name);
    if (found != ERROR_SUCCESS) return found == ERROR_ALREADY_EXISTS ? ERROR_SUCCESS : found;
  }
  return ::RegSetValueExW(key, name->c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text->c_str()),
                          static_cast<DWORD>(bytes));
}

}  // namespace

std::optional<Key> Key::Create(Hive hive, std::string_view path) {
  std::error_code failure;
  return Create(hive, path, failure);
}

std::optional<Key> Key::Create(Hive hive, std::string_view path, std::error_code& failure) {
  const auto name = os::ToWide(path);
  KeyHandle key;
  // A user without the right to write gets no key, even where reading is allowed: hosts rely on that.
  failure = ErrorOf(name ? CreateKey(hive, *name, key) : ERROR_INVALID_DATA);
  return failure ? std::nullopt : std::optional(Key(hive, std::string(path)));
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

std::vector<std::optional<StoredValue>> Key::QueryTogether(std::span<const std::string_view> names) const {
  std::vector<std::optional<StoredValue>> found;
  for (const std::string_view name : names) found.push_back(Query(name));
  return found;
}

std::error_code Key::Assign(std::span<const Assignment> values) const {
  const auto path = os::ToWide(m_path);
  KeyHandle key;
  LSTATUS status = path ? CreateKey(m_hive, *path, key) : ERROR_INVALID_DATA;
  for (const Assignment& value : values) {
    if (status == ERROR_SUCCESS) status = AssignOne(key.Get(), value);
  }
  return ErrorOf(status);
}

bool Key::SetString(std::string_view name, std::string_view text) const {
  const Assignment value{std::string(name), std::string(text)};
  return !Assign({&value, 1});
}

std::vector<std::string> Key::Problems(Hive /*hive*/, std::string_view /*path*/) { return {}; }

std::string Explain(const std::error_code& failure) { return os::Explain(failure); }

std::string StoreLocation() { return "the registry of this machine"; }

}  // namespace quorvel::registry
