#pragma once

#include <optional>
#include <string>

namespace quorvel::registry {

/// The result of a change of the registry.
enum class Outcome { Done, Denied, Failed };

/// A registry hive as an installation uses it: text values in keys that it creates and removes again. A key is a path
/// below the hive with backslashes between its parts; the empty name is the key's default value. Texts are UTF-8.
class InstallationHive {
 public:
  InstallationHive() = default;
  InstallationHive(const InstallationHive&) = delete;
  InstallationHive& operator=(const InstallationHive&) = delete;
  virtual ~InstallationHive() = default;

  /// Nothing when the value does not exist, is not a text or cannot be read.
  [[nodiscard]] virtual std::optional<std::string> Text(const std::string& key, const std::string& name) const = 0;

  /// Writes a text and creates the missing keys on its path.
  [[nodiscard]] virtual Outcome Write(const std::string& key, const std::string& name, const std::string& text) = 0;

  /// Succeeds also when the value does not exist.
  [[nodiscard]] virtual Outcome DeleteValue(const std::string& key, const std::string& name) = 0;

  /// Deletes a key without values and without keys below it. Succeeds also when it has some, and then it stays.
  [[nodiscard]] virtual Outcome DeleteEmptyKey(const std::string& key) = 0;
};

}  // namespace quorvel::registry
