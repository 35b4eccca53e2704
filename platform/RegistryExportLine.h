#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/RegistryKey.h"

namespace quorvel::registry {

/// One line of the registry's export format with its line break, or several where the bytes of a value go on.
struct RegistryExportLine {
  enum class Kind { Other, Key, Value };
  Kind kind = Kind::Other;           ///< Other: comments, blank lines and all that cannot be read
  std::string raw;                   ///< what the file holds
  std::string name;                  ///< of a key, with its hive, or of a value; empty for the default value
  std::optional<StoredValue> value;  ///< nothing for a value that the line deletes
};

/// Reads a line. A backslash in quotes that stands before neither a quote nor a backslash is taken for
/// itself, because people write server names with one.
[[nodiscard]] RegistryExportLine ParseLine(std::string raw);

/// Whether the value that `raw` begins goes on in the next line.
[[nodiscard]] bool GoesOn(std::string_view raw);

/// The lines for a key and for a string value, without line break; nothing where the format has none. A text
/// with control characters becomes hex(1), the format's form for the bytes of a string.
[[nodiscard]] std::optional<std::string> FormatKey(std::string_view key);
[[nodiscard]] std::optional<std::string> FormatString(std::string_view name, std::string_view text);

}  // namespace quorvel::registry
