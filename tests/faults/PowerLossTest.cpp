// The power fails at any moment: the next program finds everything that was acknowledged.

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "ado/embedded/EmbeddedEngine.h"
#include "data/Schema.h"
#include "data/modRegistry.h"
#include "tests/faults/RecordedDisk.h"
#include "tests/faults/Rounds.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/Rows.h"

namespace quorvel::test {
namespace {

using testing::AnyOf;
using testing::ElementsAre;

class PowerLoss : public testing::Test {
 protected:
  /// The power fails shortly before or after the end of a save, or at any other moment. `check` gets what is left, and
  /// how many saves had returned.
  void LosePower(const RecordedDisk& disk, int rounds,
                 const std::function<void(const TemporaryFolder&, std::ptrdiff_t)>& check) {
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
      const std::size_t save = m_acknowledged[m_chance() % m_acknowledged.size()];
      const std::size_t moment = m_chance() % 2 == 0 ? m_chance() : save + m_chance() % 12;
      const std::size_t changes = moment % (disk.Count() + 1);
      SCOPED_TRACE(changes);
      const TemporaryFolder after;
      disk.LosePowerAfter(changes, m_chance, after.Path());
      check(after, std::ranges::count_if(m_acknowledged, [&](std::size_t each) { return each <= changes; }));
    }
  }

  const ScopedVariable m_inMemory{"TMPDIR", "/dev/shm"};
  std::vector<std::size_t> m_acknowledged;  ///< the number of changes at the end of each save
  std::minstd_rand m_chance;
};

// The first text is so long that the log is copied into the database at once and begun again.
TEST_F(PowerLoss, LosesNoRemarkThatWasSaved) {
  const PromptsGuard prompts;
  const TestDatabase database;
  const RecordedDisk disk(std::filesystem::path(database.DatabaseFile()).parent_path());
  for (int session = 0; session < 3; ++session) {
    // A new thread opens a connection of its own and closes it at the end.
    std::thread([&] {
      const ContextHolder context("CustMaint", "C1020", "admin");
      for (int i = 0; i < 8; ++i) {
        const std::size_t length = session + i == 0 ? 4'500'000 : 3'000;
        context->AddRemark("Cust.General", fmt::format("saved {:0>{}}", disk.Count(), length), "admin");
        context->Save(true);
        m_acknowledged.push_back(disk.Count());
      }
    }).join();
  }
  LosePower(disk, Rounds(60), [](const TemporaryFolder& after, std::ptrdiff_t acknowledged) {
    const std::string file = after.File("test.db");
    const auto connection = ConnectBy("Data Source=(embedded);Initial Catalog=" + file);
    EXPECT_THAT(RowsOf(*connection, "SELECT COUNT(*) FROM tciMemo WHERE MemoText LIKE 'saved %'"),
                ElementsAre(AnyOf(std::to_string(acknowledged), std::to_string(acknowledged + 1))));
    EXPECT_EQ(IntegrityOf(file), "ok");
  });
}

TEST_F(PowerLoss, LeavesADatabaseWhoseSetUpCanBeRepeated) {
  const auto open = [](const TemporaryFolder& folder) {
    ado::CreateEmbeddedDatabase(folder.File("test.db"));
    return ConnectBy("Data Source=(embedded);Initial Catalog=" + folder.File("test.db"));
  };
  const auto partsOf = [](ado::Connection& connection) {
    return RowsOf(connection, "SELECT type, name FROM sqlite_schema ORDER BY type, name");
  };
  const TemporaryFolder folder;
  const RecordedDisk disk(folder.Path());
  const auto connection = open(folder);
  RunScript(*connection, SchemaScript());
  m_acknowledged.push_back(disk.Count());
  const auto parts = partsOf(*connection);
  LosePower(disk, Rounds(30), [&](const TemporaryFolder& after, std::ptrdiff_t acknowledged) {
    const auto again = open(after);
    if (acknowledged > 0) {
      EXPECT_EQ(partsOf(*again), parts);
    }
    RunScript(*again, SchemaScript());
    EXPECT_EQ(partsOf(*again), parts);
    EXPECT_EQ(IntegrityOf(after.File("test.db")), "ok");
  });
}

TEST_F(PowerLoss, LeavesSettingsOfOneMoment) {
  const auto openIn = [](const TemporaryFolder& folder, const auto& use) {
    const ScopedVariable variable("QUORVEL_REGISTRY", folder.File("settings.reg"));
    use(registry::Key::Create(registry::Hive::LocalMachine, modRegistry::kSettingsKey).value());
  };
  const TemporaryFolder folder;
  const RecordedDisk disk(folder.Path());
  openIn(folder, [&](const registry::Key& key) {
    for (int i = 1; i <= 5; ++i) {
      const std::string text = std::to_string(i) + std::string(2000, '.');
      ASSERT_FALSE(
          key.Assign(std::array{registry::Assignment{"Server", text}, registry::Assignment{"Password", text}}));
      m_acknowledged.push_back(disk.Count());
    }
  });
  LosePower(disk, Rounds(300), [&](const TemporaryFolder& after, std::ptrdiff_t acknowledged) {
    openIn(after, [&](const registry::Key& key) {
      const auto server = key.Query("Server").value_or(registry::StoredValue{}).text;
      EXPECT_EQ(server, key.Query("Password").value_or(registry::StoredValue{}).text);
      EXPECT_THAT(std::atoi(server.c_str()), AnyOf(acknowledged, acknowledged + 1));
    });
  });
}

}  // namespace
}  // namespace quorvel::test
