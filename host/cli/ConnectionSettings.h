#pragma once

#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ado/Connection.h"
#include "data/modRegistry.h"

namespace quorvel::cli {

/// The names of the four settings, in the order in which they are shown.
inline constexpr std::array<std::string_view, 4> kSettingNames = {modRegistry::kServer, modRegistry::kDatabase,
                                                                  modRegistry::kUserId, modRegistry::kPassword};
/// Their indexes in a SettingValues.
enum SettingIndex : std::size_t { kServerIndex, kDatabaseIndex, kUserIdIndex, kPasswordIndex };

/// One text per name; a missing value is empty.
using SettingValues = std::array<std::string, kSettingNames.size()>;

/// The stored values of one moment, unchanged; nothing when the store cannot be opened.
[[nodiscard]] std::optional<SettingValues> ReadSettings();

/// The faults in the settings file that ReadSettings passes over, a sentence each.
[[nodiscard]] std::vector<std::string> SettingsProblems();

/// Writes all the values or none; a setting that is neither given nor stored becomes empty. Throws Error 110, with the
/// reason, when they cannot be written.
void WriteSettings(const std::map<SettingIndex, std::string>& values);

/// Throws Error -1 from `source`, with advice, unless the settings name a server and a database.
void RequireSettings(std::string_view source);

/// An open connection for setting up and checking a database. It gives a server 15 seconds to answer; the component's
/// own connection waits for up to an hour. Throws what Open throws.
[[nodiscard]] std::shared_ptr<ado::Connection> ConnectForSetUp(std::chrono::seconds commandTimeout);

/// Whether the settings name the embedded engine.
[[nodiscard]] bool UsesEmbeddedEngine();

/// Whether a connection can read a setting with that value: the settings become pairs of a connection string, in which
/// a semicolon ends a value that is not in quotes.
[[nodiscard]] bool IsReadable(const std::string& value);
/// Why `database`, the setting for the embedded engine, is the name of no file; empty for a name, also of a file that
/// is not there.
[[nodiscard]] std::string FileNameProblem(const std::string& database);
/// Throws Error -1 from `source` with FileNameProblem.
void RequireFileName(const std::string& database, std::string_view source);

/// RequireSettings, and the file of the embedded engine must exist.
void RequireDatabase(std::string_view source);

}  // namespace quorvel::cli
