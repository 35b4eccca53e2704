#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/RegistryExportLine.h"
#include "platform/RegistryKey.h"

namespace quorvel::registry {

/// A text in the registry's export format, version 5.00, whose keys and values can be read and changed. Lines that are
/// not changed or not understood keep every byte. When a value occurs more than once, the last one counts. Names ignore
/// letter case; a key's name begins with its hive.
class RegistryExport {
 public:
  /// Reads UTF-8, or UTF-16LE with a byte order mark, as the operating system exports it. The empty text is a file
  /// without keys. Nothing for any other text without the format's header: a foreign file must not be changed.
  [[nodiscard]] static std::optional<RegistryExport> Parse(std::string_view bytes);

  [[nodiscard]] bool HasKey(std::string_view key) const;
  [[nodiscard]] std::optional<StoredValue> Find(std::string_view key, std::string_view name) const;

  /// False for a key or value that the format cannot hold, or for a value whose key does not exist.
  [[nodiscard]] bool AddKey(std::string_view key);
  [[nodiscard]] bool SetString(std::string_view key, std::string_view name, std::string_view text);
  void Remove(std::string_view key, std::string_view name);

  /// The whole text as UTF-8.
  [[nodiscard]] std::string Text() const;

 private:
  RegistryExport() = default;
  [[nodiscard]] bool ReadLines(std::string_view text);
  [[nodiscard]] std::vector<std::size_t> PositionsInKey(std::string_view key) const;
  [[nodiscard]] std::vector<std::size_t> PositionsOfValue(std::string_view key, std::string_view name) const;
  void Append(std::string line);

  std::vector<RegistryExportLine> m_lines;
  std::string m_lineBreak = "\n";
};

}  // namespace quorvel::registry
