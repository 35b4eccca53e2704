#pragma once

#include <optional>
#include <string>

namespace quorvel::registry {

/// How a change of the registry ended.
enum class Outcome { Done, Denied, Failed };

/// A hive as an installation writes it: texts in keys that it makes and takes away again. Keys are paths below the
/// hive with backslashes between their parts, the empty name is a key's own value; texts are UTF-8.
class InstallationHive {
 public:
  InstallationHive() = default;
  InstallationHive(const InstallationHive&) = delete;
  InstallationHive& operator=(const InstallationHive&) = delete;
  virtual ~InstallationHive() = default;

  /// Nothing when the value does not exist, is no text or cannot be read.
  [[nodiscard]] virtual std::optional<std::string> Text(const std::string& key, const std::string& name) const = 0;

  /// Writes a text and makes the keys that it needs.
  [[nodiscard]] virtual Outcome Write(const std::string& key, const std::string& name, const std::string& text) = 0;

  /// Done also when there is no such value.
  [[nodiscard]] virtual Outcome DeleteValue(const std::string& key, const std::string& name) = 0;

  /// Deletes a key that has neither values nor keys below it; one that has is left, and that is Done too.
  [[nodiscard]] virtual Outcome DeleteEmptyKey(const std::string& key) = 0;
};

}  // namespace quorvel::registry
