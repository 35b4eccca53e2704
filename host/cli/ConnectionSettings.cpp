#include "host/cli/ConnectionSettings.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

#include "ado/ConnectionString.h"
#include "data/modDatabase.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel::cli {

namespace {

std::optional<registry::Key> OpenKey(std::error_code& failure) {
  return registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey, failure);
}

/// The database that a connection reads from that value; nothing when it can read none.
std::optional<std::string> DatabaseIn(const std::string& value) {
  try {
    return ado::ParseConnectionString("Database=" + value).initialCatalog;
  } catch (const Error&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<SettingValues> ReadSettings() {
  std::error_code ignored;
  const auto key = OpenKey(ignored);
  if (!key) return std::nullopt;
  SettingValues values;
  const auto stored = key->QueryTogether(kSettingNames);
  for (std::size_t i = 0; i < kSettingNames.size(); ++i) {
    if (stored.at(i)) values.at(i) = stored[i]->text;
  }
  return values;
}

std::vector<std::string> SettingsProblems() {
  return registry::Key::Problems(registry::Hive::LocalMachine, modRegistry::kSettingsKey);
}

void WriteSettings(const std::map<SettingIndex, std::string>& values) {
  std::vector<registry::Assignment> assignments;
  for (std::size_t i = 0; i < kSettingNames.size(); ++i) {
    const auto given = values.find(static_cast<SettingIndex>(i));
    const bool isGiven = given != values.end();
    assignments.push_back({std::string(kSettingNames.at(i)), isGiven ? given->second : "", !isGiven});
  }
  std::error_code failure;
  const auto key = OpenKey(failure);
  if (key) failure = key->Assign(assignments);
  if (!failure) return;
  std::vector<std::string> reasons = {registry::Explain(failure)};
  if (failure == std::errc::operation_canceled) std::ranges::copy(SettingsProblems(), std::back_inserter(reasons));
  throw Error(ErrorNumber::RegistryWrite, "quorvel.settings",
              fmt::format("Could not write the settings: {}", fmt::join(reasons, ". ")));
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

bool IsReadable(const std::string& value) { return DatabaseIn(value).has_value(); }

std::string FileNameProblem(const std::string& database) {
  if (DatabaseIn(database) != database) {
    return "The name of a database file must not contain a semicolon, and not begin or end with a blank or a quotation "
           "mark. Rename the file or its folder";
  }
  std::error_code ignored;
  const auto found = std::filesystem::status(database, ignored);
  const bool isOther = std::filesystem::exists(found) && !std::filesystem::is_regular_file(found);
  return isOther ? fmt::format("{} is no file, but a folder, a device or a pipe", database) : "";
}

void RequireFileName(const std::string& database, std::string_view source) {
  const std::string problem = FileNameProblem(database);
  if (!problem.empty()) throw Error(ErrorNumber::Component, std::string(source), problem);
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
  if (!UsesEmbeddedEngine()) return;
  RequireFileName(database, source);
  std::error_code ignored;
  if (std::filesystem::exists(database, ignored)) return;
  throw Error(ErrorNumber::DbUnspecified, std::string(source),
              fmt::format("The database file {} does not exist; 'quorvel init' makes it", database));
}

}  // namespace quorvel::cli
