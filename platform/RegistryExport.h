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
/// not changed keep every byte. When a value occurs more than once, the last line counts. Names ignore letter case; a
/// key's name begins with its hive.
class RegistryExport {
 public:
  /// Reads UTF-8, or UTF-16LE with a byte order mark, as the operating system exports it. The empty text is a file
  /// without keys. Nothing for any other text without the format's header: a foreign file must not be changed.
  [[nodiscard]] static std::optional<RegistryExport> Parse(std::string_view bytes);

  [[nodiscard]] bool HasKey(std::string_view key) const;
  [[nodiscard]] std::optional<StoredValue> Find(std::string_view key, std::string_view name) const;

  /// Whether the line that counts for the value cannot be read. Find then returns nothing, but the value is not
  /// missing.
  [[nodiscard]] bool IsUnreadable(std::string_view key, std::string_view name) const;

  /// The faults that a person has made in the lines of the key, one sentence each, with their line numbers.
  [[nodiscard]] std::vector<std::string> Problems(std::string_view key) const;

  /// False for a key or value that the format cannot hold, for a value whose key does not exist, and for a new key
  /// after one whose name has no end: that may be the same key.
  [[nodiscard]] bool AddKey(std::string_view key);
  /// Replaces every line of the value, readable or not, by one.
  [[nodiscard]] bool SetString(std::string_view key, std::string_view name, std::string_view text);

  [[nodiscard]] bool IsEmpty() const { return m_lines.empty(); }
  /// The whole text as UTF-8.
  [[nodiscard]] std::string Text() const;

 private:
  RegistryExport() = default;
  [[nodiscard]] bool ReadLines(std::string_view text);
  [[nodiscard]] std::optional<std::string> ProblemOf(std::size_t position, std::string_view key) const;
  [[nodiscard]] std::vector<std::size_t> PositionsInKey(std::string_view key) const;
  [[nodiscard]] std::vector<std::size_t> PositionsOfValue(std::string_view key, std::string_view name) const;
  void Append(std::string line);

  std::vector<RegistryExportLine> m_lines;
  std::string m_lineBreak = "\n";
};

}  // namespace quorvel::registry
