#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace quorvel::registry {

/// The hives by the numbers that the operating system gives them.
enum class Hive : std::uint32_t { LocalMachine = 0x80000002U };

/// Value types by the operating system's numbers; only those that the component distinguishes.
enum class ValueType : std::uint32_t { String = 1, Binary = 3, DWord = 4 };

struct StoredValue {
  ValueType type;
  std::string text;  ///< UTF-8; empty unless `type` is String
};

/// A string value to write.
struct Assignment {
  std::string name;
  std::string text;
  bool onlyWhenMissing = false;  ///< a string that the value has already is kept
};

/// An open key of the machine's registry, for the component's settings. Names of keys and values ignore letter case.
///
/// A system without a registry keeps the settings in one text file in the registry's export format, UTF-8, named by the
/// environment variable QUORVEL_REGISTRY or else /etc/quorvel/quorvel.reg. A change reads the file, changes the text
/// and replaces the file atomically, under a lock and with mode 0640. Nothing counts as missing while the file cannot
/// be read whole, or while another program may still be writing it.
class Key {
 public:
  /// Opens the key for reading and writing and creates it when it is missing. Nothing when that is not possible. In a
  /// text file an existing key can be opened without the right to write.
  [[nodiscard]] static std::optional<Key> Create(Hive hive, std::string_view path);

  /// The same; `failure` says why it was not possible.
  [[nodiscard]] static std::optional<Key> Create(Hive hive, std::string_view path, std::error_code& failure);

  /// Nothing when the value does not exist or cannot be read.
  [[nodiscard]] std::optional<StoredValue> Query(std::string_view name) const;

  /// The same for several values; in a text file they are those of one moment.
  [[nodiscard]] std::vector<std::optional<StoredValue>> QueryTogether(std::span<const std::string_view> names) const;

  /// Writes string values, in a text file all or none of them. A value that cannot be read, because its line in the
  /// file is wrong for example, is not missing: with `onlyWhenMissing` it is an error and stays as it is.
  [[nodiscard]] std::error_code Assign(std::span<const Assignment> values) const;

  /// Writes one string value; false when it cannot be written, and then nothing has changed.
  [[nodiscard]] bool SetString(std::string_view name, std::string_view text) const;

  /// The faults that a person has made in the key's part of the text file, a sentence each; none in a registry. They
  /// can be the reason why the key cannot be opened.
  [[nodiscard]] static std::vector<std::string> Problems(Hive hive, std::string_view path);

 private:
  Key(Hive hive, std::string path) : m_hive(hive), m_path(std::move(path)) {}
  Hive m_hive;
  std::string m_path;
};

/// Why a key could not be opened or changed, for messages.
[[nodiscard]] std::string Explain(const std::error_code& failure);

/// The place of the settings, for messages: the file's path, or a name for the operating system's registry.
[[nodiscard]] std::string StoreLocation();

}  // namespace quorvel::registry
