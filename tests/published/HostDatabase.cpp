#include "tests/published/HostDatabase.h"

#include <sqlite3.h>

#include <stdexcept>

#include "data/modUserName.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::test {

struct HostDatabase::State {
  TestDatabase database{TestDatabase::Content::Sample};
};

HostDatabase::HostDatabase() : m_state(std::make_unique<State>()) {}
HostDatabase::~HostDatabase() = default;

std::string HostDatabase::SettingsFile() const { return m_state->database.SettingsFile(); }
void HostDatabase::Run(std::string_view batch) const { m_state->database.Run(batch); }
std::string HostDatabase::Ask(std::string_view query) const { return m_state->database.Ask(query); }

void HostDatabase::RunBeneath(const char* statement) const {
  sqlite3* opened = nullptr;
  const int result = sqlite3_open(m_state->database.DatabaseFile().c_str(), &opened);
  const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, sqlite3_close);
  if (result != SQLITE_OK || sqlite3_exec(opened, statement, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(opened));
  }
}

std::string HostDatabase::LogonName() { return modUserName::GetUserName(); }

}  // namespace quorvel::test
