#include "host/cli/ConnectionSettings.h"

#include <fmt/format.h>

#include <filesystem>

#include "data/modDatabase.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::cli {

std::optional<SettingValues> ReadSettings() {
  const auto key = registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey);
  if (!key) return std::nullopt;
  SettingValues values;
  for (std::size_t i = 0; i < kSettingNames.size(); ++i) {
    if (auto stored = key->Query(kSettingNames.at(i))) values.at(i) = std::move(stored->text);
  }
  return values;
}

void WriteSetting(std::string_view name, const std::string& value) {
  const auto key = registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey);
  if (!key || !key->SetString(name, value)) {
    throw Error(ErrorNumber::RegistryWrite, "quorvel.settings", fmt::format("Could not write the setting {}", name));
  }
}

bool UsesEmbeddedEngine() { return ado::IsEmbedded(modDatabase::Settings().Server()); }

void RequireSettings(std::string_view source) {
  DBConnect& settings = modDatabase::Settings();
  const bool noServer = TrimBlanks(settings.Server()).empty();
  if (!noServer && !TrimBlanks(settings.Database()).empty()) return;
  throw Error(ErrorNumber::Component, std::string(source),
              fmt::format("No database {} is set. Set one first, for example: "
                          "quorvel settings 'Server=(embedded)' Database=remarks.db",
                          noServer ? "server" : "name"));
}

std::shared_ptr<ado::Connection> ConnectForSetUp(std::chrono::seconds commandTimeout) {
  auto connection = std::make_shared<ado::Connection>();
  connection->SetConnectionString(modDatabase::Settings().ConnectionString());
  connection->SetConnectionTimeout(std::chrono::seconds(15));
  connection->SetCommandTimeout(commandTimeout);
  connection->Open();
  return connection;
}

void RequireDatabase(std::string_view source) {
  RequireSettings(source);
  const std::string database = modDatabase::Settings().Database();
  std::error_code ignored;
  if (!UsesEmbeddedEngine() || std::filesystem::exists(database, ignored)) return;
  throw Error(ErrorNumber::DbUnspecified, std::string(source),
              fmt::format("The database file {} does not exist; 'quorvel init' makes it", database));
}

}  // namespace quorvel::cli
