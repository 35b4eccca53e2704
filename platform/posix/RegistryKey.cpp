#include "platform/RegistryKey.h"

#include <fmt/format.h>

#include <algorithm>

#include "platform/Environment.h"
#include "platform/FileUpdate.h"
#include "platform/OperatingSystem.h"
#include "platform/RegistryExport.h"

namespace quorvel::registry {
namespace {

constexpr const char* kFileVariable = "QUORVEL_REGISTRY";
constexpr const char* kMachineFile = "/etc/quorvel/quorvel.reg";

std::string FullName(Hive hive, std::string_view path) {
  switch (hive) {
    case Hive::LocalMachine:
      return fmt::format("HKEY_LOCAL_MACHINE\\{}", path);
  }
  return {};
}

std::optional<RegistryExport> ReadStore() {
  const auto content = ReadWholeFile(StoreLocation());
  return content ? RegistryExport::Parse(*content) : std::nullopt;
}

/// Changes the stored file with `change` (bool(RegistryExport&, bool isWhole)), which is called again after false while
/// the file may be a part of what another program is writing.
template <typename Change>
std::error_code ChangeStore(Change change) {
  return UpdateFile(StoreLocation(), [&](const std::string& before, bool settled) -> std::optional<std::string> {
    auto file = RegistryExport::Parse(before);
    if (!file) return std::nullopt;
    const bool isWhole = settled || before.empty();
    return change(*file, isWhole) ? std::optional(file->Text()) : std::nullopt;
  });
}

bool AssignOne(RegistryExport& file, std::string_view key, const Assignment& value, bool isWhole) {
  if (value.onlyWhenMissing) {
    const auto stored = file.Find(key, value.name);
    if (stored && stored->type == ValueType::String) return true;
    if (!isWhole || file.IsUnreadable(key, value.name)) return false;
  }
  return file.SetString(key, value.name, value.text);
}

}  // namespace

std::optional<Key> Key::Create(Hive hive, std::string_view path) {
  std::error_code failure;
  return Create(hive, path, failure);
}

std::optional<Key> Key::Create(Hive hive, std::string_view path, std::error_code& failure) {
  const std::string name = FullName(hive, path);
  const auto store = ReadStore();
  // Most users of the machine may not write the file, and need not when the key exists.
  if (!store || !store->HasKey(name)) {
    failure = ChangeStore(
        [&](RegistryExport& file, bool isWhole) { return file.HasKey(name) || (isWhole && file.AddKey(name)); });
  }
  return failure ? std::nullopt : std::optional(Key(hive, std::string(path)));
}

std::optional<StoredValue> Key::Query(std::string_view name) const {
  const auto store = ReadStore();
  return store ? store->Find(FullName(m_hive, m_path), name) : std::nullopt;
}

std::vector<std::optional<StoredValue>> Key::QueryTogether(std::span<const std::string_view> names) const {
  const auto store = ReadStore();
  const std::string key = FullName(m_hive, m_path);
  std::vector<std::optional<StoredValue>> found;
  for (const std::string_view name : names) found.push_back(store ? store->Find(key, name) : std::nullopt);
  return found;
}

std::error_code Key::Assign(std::span<const Assignment> values) const {
  const std::string key = FullName(m_hive, m_path);
  return ChangeStore([&](RegistryExport& file, bool isWhole) {
    if (!file.HasKey(key) && !(isWhole && file.AddKey(key))) return false;
    return std::ranges::all_of(values, [&](const Assignment& value) { return AssignOne(file, key, value, isWhole); });
  });
}

bool Key::SetString(std::string_view name, std::string_view text) const {
  const Assignment value{std::string(name), std::string(text)};
  return !Assign({&value, 1});
}

std::vector<std::string> Key::Problems(Hive hive, std::string_view path) {
  const auto store = ReadStore();
  return store ? store->Problems(FullName(hive, path)) : std::vector<std::string>();
}

std::string Explain(const std::error_code& failure) {
  if (failure == std::errc::device_or_resource_busy) {
    return "another program keeps the file locked or open for writing";
  }
  if (failure != std::errc::operation_canceled) return os::Explain(failure);
  return ReadStore() ? "the file has a line that cannot be read, or cannot hold a value"
                     : "the file is not in the registry's export format";
}

std::string StoreLocation() {
  std::string file = EnvironmentVariable(kFileVariable);
  return file.empty() ? kMachineFile : file;
}

}  // namespace quorvel::registry
