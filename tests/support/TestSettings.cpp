#include "tests/support/TestSettings.h"

#include <cstdlib>

#include "data/modDatabase.h"
#include "data/modRegistry.h"

namespace quorvel::test {

void UseSettings(std::string_view server, std::string_view database, std::string_view userId,
                 std::string_view password) {
  const auto key = registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey);
  if (!key || !key->SetString(modRegistry::kServer, server) || !key->SetString(modRegistry::kDatabase, database) ||
      !key->SetString(modRegistry::kUserId, userId) || !key->SetString(modRegistry::kPassword, password)) {
    std::abort();
  }
  modDatabase::Settings().Reload();
  modDatabase::OpenConnection();
}

}  // namespace quorvel::test
