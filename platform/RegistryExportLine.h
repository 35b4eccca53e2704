#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/RegistryKey.h"

namespace quorvel::registry {

/// One line of the registry's export format with its line break, or several when a value's bytes continue.
struct RegistryExportLine {
  /// Other: a comment, a blank line or one that names nothing. Unreadable: a line for a value, without quotes for
  /// example, from which no value can be read.
  enum class Kind { Other, Key, Value, Unreadable };
  Kind kind = Kind::Other;
  std::string raw;                   ///< the bytes of the file
  std::string name;                  ///< of a key, with its hive, or of a value; empty for the default value
  std::optional<StoredValue> value;  ///< nothing for a value that the line deletes
};

/// Reads a line. A backslash in quotes is itself unless a quote or another backslash follows, because people type
/// server names with a single one.
[[nodiscard]] RegistryExportLine ParseLine(std::string raw);

/// Whether the value in `raw` continues on `next`, which is empty at the end of the text. A line that cannot hold bytes
/// is never a continuation: the lines after a value that was cut off keep their meaning.
[[nodiscard]] bool ContinuesOnNextLine(std::string_view raw, std::string_view next);

/// The lines for a key and for a string value, without a line break; nothing when the format cannot express it. A text
/// with control characters becomes hex(1), the format's form for the bytes of a string.
[[nodiscard]] std::optional<std::string> FormatKey(std::string_view key);
[[nodiscard]] std::optional<std::string> FormatString(std::string_view name, std::string_view text);

}  // namespace quorvel::registry
