#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ado/Connection.h"
#include "data/modRegistry.h"

namespace quorvel::cli {

/// The names of the four settings, in the order in which people see them.
inline constexpr std::array<std::string_view, 4> kSettingNames = {modRegistry::kServer, modRegistry::kDatabase,
                                                                  modRegistry::kUserId, modRegistry::kPassword};
/// Their places in a SettingValues.
enum SettingIndex : std::size_t { kServerIndex, kDatabaseIndex, kUserIdIndex, kPasswordIndex };

/// One text per name; a missing value is empty.
using SettingValues = std::array<std::string, kSettingNames.size()>;

/// The values as they are kept, changing none of them; nothing when the store cannot be opened.
[[nodiscard]] std::optional<SettingValues> ReadSettings();

/// Throws Error 110, naming the setting, when it cannot be written.
void WriteSetting(std::string_view name, const std::string& value);

/// Throws Error -1 from `source`, saying what to do, unless the settings name a database to work on.
void RequireSettings(std::string_view source);

/// An open connection by the settings for setting a database up and looking after it: it gives a server 15 seconds to
/// answer, where the component's own connection waits for up to an hour. Throws what Open throws.
[[nodiscard]] std::shared_ptr<ado::Connection> ConnectForSetUp(std::chrono::seconds commandTimeout);

/// RequireSettings, and the embedded engine's file must be there.
void RequireDatabase(std::string_view source);

}  // namespace quorvel::cli
