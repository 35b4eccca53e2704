#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/RegistryExportLine.h"
#include "platform/RegistryKey.h"

namespace quorvel::registry {

/// A text in the registry's export format, version 5.00: what it says of keys and values, and how to change it.
/// Lines that are not changed keep every byte, and so does what is not understood. Where a key or value stands
/// more than once the last value counts. Names ignore letter case; keys are given with their hive.
class RegistryExport {
 public:
  /// Reads UTF-8, or UTF-16LE with its byte order mark as the operating system exports it; Text gives UTF-8 either
  /// way. The empty text is a file without keys. Nothing for any other text without the format's header, so that
  /// a foreign file is never written to.
  [[nodiscard]] static std::optional<RegistryExport> Parse(std::string_view bytes);

  [[nodiscard]] bool HasKey(std::string_view key) const;
  [[nodiscard]] std::optional<StoredValue> Find(std::string_view key, std::string_view name) const;

  /// False for a key or value that the format cannot hold, or a value without its key.
  [[nodiscard]] bool AddKey(std::string_view key);
  [[nodiscard]] bool SetString(std::string_view key, std::string_view name, std::string_view text);
  void Remove(std::string_view key, std::string_view name);

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
