#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel::registry {

/// The hives by the numbers that the operating system gives them.
enum class Hive : std::uint32_t { LocalMachine = 0x80000002U };

/// Value types by the operating system's numbers; only those that the component distinguishes.
enum class ValueType : std::uint32_t { String = 1, Binary = 3, DWord = 4 };

struct StoredValue {
  ValueType type;
  std::string text;  ///< UTF-8; empty unless `type` is String
};

/// An open key of the machine's registry, for the component's settings. Names of keys and values ignore letter case.
///
/// A system without a registry keeps the settings in one text file in the registry's export format, UTF-8, named by the
/// environment variable QUORVEL_REGISTRY or else /etc/quorvel/quorvel.reg. A change reads the file, changes the text
/// and replaces the file atomically, under a lock and with mode 0640; lines that the component does not understand are
/// kept.
class Key {
 public:
  /// Opens the key for reading and writing and creates it when it is missing. Nothing when that is not possible. In a
  /// text file an existing key can be opened without the right to write.
  [[nodiscard]] static std::optional<Key> Create(Hive hive, std::string_view path);

  /// Nothing when the value does not exist or cannot be read.
  [[nodiscard]] std::optional<StoredValue> Query(std::string_view name) const;

  /// Writes a string value; false when it cannot be written, and then nothing has changed.
  [[nodiscard]] bool SetString(std::string_view name, std::string_view text) const;

  /// Removes a value; true also when it does not exist.
  [[nodiscard]] bool Delete(std::string_view name) const;

 private:
  Key(Hive hive, std::string path) : m_hive(hive), m_path(std::move(path)) {}
  Hive m_hive;
  std::string m_path;
};

/// The place of the settings, for messages: the file's path, or a name for the operating system's registry.
[[nodiscard]] std::string StoreLocation();

}  // namespace quorvel::registry
