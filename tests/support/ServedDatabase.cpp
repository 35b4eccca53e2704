#include "tests/support/ServedDatabase.h"

#include <fmt/format.h>

#include "tests/support/TestSettings.h"

namespace quorvel::test {

ServedDatabase::ServedDatabase() {
  UseSettings(m_server.Address(), "Ledger; Driver=FreeTDS", StandInServer::kUser,
              fmt::format("\"{}\"", StandInServer::kPassword));
}

}  // namespace quorvel::test
