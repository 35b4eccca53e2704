#include "tests/support/EngineUnderTest.h"

#include <fmt/format.h>

#include <array>
#include <random>

#include "ado/embedded/EmbeddedEngine.h"
#include "platform/Environment.h"
#include "platform/Error.h"
#include "tests/support/Rows.h"

namespace quorvel::test {
namespace {

constexpr const char* kServerVariable = "QUORVEL_TEST_SQLSERVER";

}  // namespace

std::string NameOf(EngineKind kind) {
  constexpr std::array kNames = {"Embedded", "SqliteDriver", "StandIn", "SqlServer"};
  return kNames.at(static_cast<std::size_t>(kind));
}

std::string WhyNot(EngineKind kind) {
  if (kind != EngineKind::SqlServer || !EnvironmentVariable(kServerVariable).empty()) return {};
  return fmt::format("{} names no server: nothing was tested on a real one", kServerVariable);
}

EngineUnderTest::EngineUnderTest(EngineKind kind) : m_kind(kind) {
  if (kind == EngineKind::Embedded || kind == EngineKind::StandIn) {
    ado::CreateEmbeddedDatabase(m_folder.File("engine.db"));
  }
  if (kind == EngineKind::StandIn) m_standIn = std::make_unique<StandInServer>(m_folder.File("engine.db"));
}

EngineUnderTest::~EngineUnderTest() {
  for (; !m_drops.empty(); m_drops.pop_back()) {
    try {
      Connect()->Execute(m_drops.back());
    } catch (const Error&) {  // NOLINT(bugprone-empty-catch): the test did not get as far as making it.
    }
  }
}

std::string EngineUnderTest::ConnectionString() const {
  switch (m_kind) {
    case EngineKind::Embedded:
      return "Data Source=(embedded); Initial Catalog=" + m_folder.File("engine.db");
    case EngineKind::SqliteDriver:
      return "Data Source=a file; Driver=SQLite3; Initial Catalog=" + m_folder.File("driver.db");
    case EngineKind::StandIn:
      return fmt::format("Data Source={}; Initial Catalog=Ledger; User ID={}; Password=\"{}\"; Driver=FreeTDS",
                         m_standIn->Address(), StandInServer::kUser, StandInServer::kPassword);
    case EngineKind::SqlServer:
      break;
  }
  return EnvironmentVariable(kServerVariable);
}

std::string_view EngineUnderTest::LongText() const noexcept { return SpeaksTransactSql() ? "nvarchar(max)" : "text"; }

std::string EngineUnderTest::Literal(std::string_view text) const {
  std::string literal = SpeaksTransactSql() ? "N'" : "'";
  for (const char c : text) {
    literal += c;
    if (c == '\'') literal += c;
  }
  return literal + "'";
}

std::shared_ptr<ado::Connection> EngineUnderTest::Connect() const { return ConnectBy(ConnectionString()); }

std::string EngineUnderTest::UniqueName(std::string_view name) {
  static const auto kRun = std::random_device{}();
  return fmt::format("QvTest_{}_{:08x}", name, kRun);
}

std::string EngineUnderTest::NameToDrop(std::string_view kind, std::string_view name) {
  std::string unique = UniqueName(name);
  m_drops.push_back(fmt::format("DROP {} {}", kind, unique));
  return unique;
}

}  // namespace quorvel::test
