#include "tests/support/TestSettings.h"

#include <array>
#include <cstdlib>
#include <string>

#include "data/modDatabase.h"
#include "data/modRegistry.h"

namespace quorvel::test {

void UseSettings(std::string_view server, std::string_view database, std::string_view userId,
                 std::string_view password) {
  const auto key = registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey);
  const auto assign = [](std::string_view name, std::string_view text) {
    return registry::Assignment{std::string(name), std::string(text)};
  };
  const std::array values = {assign(modRegistry::kServer, server), assign(modRegistry::kDatabase, database),
                             assign(modRegistry::kUserId, userId), assign(modRegistry::kPassword, password)};
  if (!key || key->Assign(values)) std::abort();
  modDatabase::Settings().Reload();
  modDatabase::OpenConnection();
}

void UseSettings(const StandInServer& server) {
  UseSettings(server.Address(), "Ledger; Driver=FreeTDS", StandInServer::kUser,
              "\"" + std::string(StandInServer::kPassword) + "\"");
}

}  // namespace quorvel::test
