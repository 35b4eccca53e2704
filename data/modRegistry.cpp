#include "data/modRegistry.h"

#include <fmt/format.h>

#include "platform/Environment.h"
#include "platform/Error.h"

namespace quorvel::modRegistry {

std::string GetRegStringValue(registry::Hive hive, std::string_view keyPath, std::string_view valueName,
                              std::string_view defaultValue) {
  const auto key = registry::Key::Create(hive, keyPath);
  if (key) {
    if (const auto stored = key->Query(valueName)) {
      if (stored->type == registry::ValueType::String) return stored->text;
      LogWarning(fmt::format("Warning: Converted registry value to string: \r\n{}\\{}", keyPath, valueName));
      (void)key->Delete(valueName);
    }
  }
  if (!key || !key->SetString(valueName, defaultValue)) {
    throw Error(ErrorNumber::RegistryWrite, "GetRegStringValue",
                fmt::format("Could not read or create registry string value: {}\\{}", keyPath, valueName));
  }
  return std::string(defaultValue);
}

}  // namespace quorvel::modRegistry
