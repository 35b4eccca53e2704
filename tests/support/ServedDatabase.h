#pragma once

#include <memory>

#include "tests/support/TestDatabase.h"
#include "tests/support/tds/StandInServer.h"

namespace quorvel::test {

/// The sample database on the stand-in server, with settings that point to that server: after construction
/// modDatabase of this thread reaches it through ODBC. File() gives a look at the database without the server.
class ServedDatabase {
 public:
  ServedDatabase();

  [[nodiscard]] StandInServer& Server() noexcept { return m_server; }
  [[nodiscard]] const TestDatabase& File() const noexcept { return m_file; }

 private:
  TestDatabase m_file{TestDatabase::Content::Sample};
  StandInServer m_server{m_file.DatabaseFile()};
};

}  // namespace quorvel::test
