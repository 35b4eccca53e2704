#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/RegistryKey.h"

namespace quorvel::registry {

/// One line of the registry's export format with its line break, or several when a value's bytes continue.
struct RegistryExportLine {
  enum class Kind { Other, Key, Value };
  Kind kind = Kind::Other;           ///< Other: a comment, a blank line or one that cannot be read
  std::string raw;                   ///< the bytes of the file
  std::string name;                  ///< of a key, with its hive, or of a value; empty for the default value
  std::optional<StoredValue> value;  ///< nothing for a value that the line deletes
};

/// Reads a line. A backslash in quotes is itself unless a quote or another backslash follows, because people type
/// server names with a single one.
[[nodiscard]] RegistryExportLine ParseLine(std::string raw);

/// Whether the value in `raw` continues on the next line.
[[nodiscard]] bool ContinuesOnNextLine(std::string_view raw);

/// The lines for a key and for a string value, without a line break; nothing when the format cannot express it. A text
/// with control characters becomes hex(1), the format's form for the bytes of a string.
[[nodiscard]] std::optional<std::string> FormatKey(std::string_view key);
[[nodiscard]] std::optional<std::string> FormatString(std::string_view name, std::string_view text);

}  // namespace quorvel::registry
