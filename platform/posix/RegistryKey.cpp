#include "platform/RegistryKey.h"

#include <fmt/format.h>

#include "platform/Environment.h"
#include "platform/FileUpdate.h"
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

/// Changes the stored file with `change` (bool(RegistryExport&)); false when `change` or the writing fails.
template <typename Change>
bool ChangeStore(Change change) {
  return UpdateFile(StoreLocation(), [&](const std::string& before) -> std::optional<std::string> {
    auto file = RegistryExport::Parse(before);
    return file && change(*file) ? std::optional(file->Text()) : std::nullopt;
  });
}

}  // namespace

std::optional<Key> Key::Create(Hive hive, std::string_view path) {
  const std::string name = FullName(hive, path);
  const auto store = ReadStore();
  if (!store) return std::nullopt;
  // Most users of the machine may not write the file, and need not when the key exists.
  if (!store->HasKey(name) && !ChangeStore([&](RegistryExport& file) { return file.AddKey(name); }))
    return std::nullopt;
  return Key(hive, std::string(path));
}

std::optional<StoredValue> Key::Query(std::string_view name) const {
  const auto store = ReadStore();
  return store ? store->Find(FullName(m_hive, m_path), name) : std::nullopt;
}

bool Key::SetString(std::string_view name, std::string_view text) const {
  const std::string key = FullName(m_hive, m_path);
  return ChangeStore([&](RegistryExport& file) { return file.AddKey(key) && file.SetString(key, name, text); });
}

bool Key::Delete(std::string_view name) const {
  return ChangeStore([&](RegistryExport& file) {
    file.Remove(FullName(m_hive, m_path), name);
    return true;
  });
}

std::string StoreLocation() {
  std::string file = EnvironmentVariable(kFileVariable);
  return file.empty() ? kMachineFile : file;
}

}  // namespace quorvel::registry
