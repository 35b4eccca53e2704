#pragma once

#include <string>
#include <string_view>

#include "platform/RegistryKey.h"

namespace quorvel::modRegistry {

/// The key of the component's settings, and the names of its values.
inline constexpr std::string_view kSettingsKey = "Software\\Tarnwick";
inline constexpr std::string_view kServer = "Server";
inline constexpr std::string_view kDatabase = "Database";
inline constexpr std::string_view kUserId = "UserId";
inline constexpr std::string_view kPassword = "Password";

/// The value's text. A missing key or value is created with `defaultValue`, and a value that is not a string is
/// replaced with it, with a warning in the system's log. Error 110 when the value can neither be read nor
/// created; the reason is in the log and nested in the Error. Nothing is written unless the value is certainly missing.
[[nodiscard]] std::string GetRegStringValue(registry::Hive hive, std::string_view keyPath, std::string_view valueName,
                                            std::string_view defaultValue);

}  // namespace quorvel::modRegistry
