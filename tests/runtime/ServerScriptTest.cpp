// The scripts on a server, and the component on the database that they make.

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <future>
#include <set>
#include <vector>

#include "ado/ConnectionString.h"
#include "data/Schema.h"
#include "data/modDatabase.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/EngineUnderTest.h"
#include "tests/support/TestSettings.h"

namespace quorvel::test {
namespace {

std::string Quoted(const std::string& value) { return value.empty() ? value : fmt::format("\"{}\"", value); }

/// The scripts use fixed names, so on a real server they run in a scratch database.
class ServerScriptTest : public testing::TestWithParam<EngineKind> {
 protected:
  void SetUp() override {
    if (const std::string reason = WhyNot(GetParam()); !reason.empty()) GTEST_SKIP() << reason;
    m_engine = std::make_unique<EngineUnderTest>(GetParam());
    m_database = ado::ParseConnectionString(m_engine->ConnectionString()).initialCatalog;
    if (GetParam() == EngineKind::SqlServer && !MakeScratchDatabase()) {
      GTEST_SKIP() << "the login may not create a database";
    }
    Connect(m_scratch.empty() ? m_database : m_scratch);
  }

  void TearDown() override {
    if (m_scratch.empty()) return;
    Connect(m_database);
    modDatabase::SharedConnection()->Execute("DROP DATABASE " + m_scratch);
  }

 private:
  bool MakeScratchDatabase() {
    const std::string name = EngineUnderTest::UniqueName("Scratch");
    try {
      m_engine->Connect()->Execute("CREATE DATABASE " + name);
    } catch (const Error&) {
      return false;
    }
    m_scratch = name;
    return true;
  }

  void Connect(const std::string& database) {
    const ado::ConnectOptions options = ado::ParseConnectionString(m_engine->ConnectionString());
    const std::string catalog = fmt::format("{}; Driver={}; Encrypt={}; TrustServerCertificate={}", database,
                                            options.driver, options.encrypt, options.trustServerCertificate);
    UseSettings(options.dataSource, catalog, Quoted(options.userId), Quoted(options.password));
  }

  TemporaryFolder m_folder;
  ScopedVariable m_registry{"QUORVEL_REGISTRY", m_folder.File("settings.reg")};
  std::unique_ptr<EngineUnderTest> m_engine;
  std::string m_database;
  std::string m_scratch;
};

INSTANTIATE_TEST_SUITE_P(Servers, ServerScriptTest, testing::Values(EngineKind::StandIn, EngineKind::SqlServer),
                         [](const auto& each) { return NameOf(each.param); });

/// The keys that four callers draw at the same time, each on another connection and every other one under snapshot
/// isolation.
std::set<std::int32_t> DrawKeys(int keys) {
  const auto draw = [keys](const char* level) {
    modDatabase::OpenConnection();
    modDatabase::SharedConnection()->Execute(fmt::format("SET TRANSACTION ISOLATION LEVEL {}", level));
    std::set<std::int32_t> drawn;
    for (int i = 0; i < keys; ++i) drawn.insert(modDatabase::GetNextSurrogateKey("tciMemo"));
    return drawn;
  };
  std::vector<std::future<std::set<std::int32_t>>> callers;
  for (const char* level : {"SNAPSHOT", "READ COMMITTED", "SNAPSHOT", "READ COMMITTED"}) {
    callers.push_back(std::async(std::launch::async, draw, level));
  }
  std::set<std::int32_t> all;
  for (auto& caller : callers) all.merge(caller.get());
  return all;
}

/// Four users change the same deleted memo at the same time.
void ChangeDeletedMemo(std::int64_t key) {
  modDatabase::ExecSP("spTWCqvDeleteRemark", {{"@MemoKey", key}});
  const auto change = [key](const char* user) {
    modDatabase::OpenConnection();
    modDatabase::ExecSP("spTWCqvUpdateRemark", {{"@MemoKey", key},
                                                {"@MemoType", "Cust.General"},
                                                {"@EntityType", std::int64_t{501}},
                                                {"@OwnerKey", std::int64_t{45}},
                                                {"@MemoText", "typed meanwhile"},
                                                {"@UserID", user}});
  };
  std::vector<std::future<void>> users;
  for (const char* user : {"admin", "guest", "jsmith", "mjones"}) {
    users.push_back(std::async(std::launch::async, change, user));
  }
  for (auto& user : users) EXPECT_NO_THROW(user.get());
}

TEST_P(ServerScriptTest, ScriptsMakeADatabaseOnWhichTheComponentWorks) {
  for (const std::string_view script : {SchemaScript(), SampleScript(), SchemaScript(), SampleScript()}) {
    RunScript(*modDatabase::SharedConnection(), script);
  }
  {
    const ContextHolder context("CustMaint", "C1044", "admin");
    const std::int32_t before = context->MemoCount();
    EXPECT_GT(before, 0);
    context->AddRemark("Cust.General", "  O'Brien: \U0001F600 " + std::string(5000, 'x') + "  ", "admin");
    ChangeText(RemarkAt(context, 1), "changed");
    context->Save(true);

    const ContextHolder again("CustMaint", "C1044", "admin");
    EXPECT_EQ(again->MemoCount(), before + 1);
    std::set<std::string> texts;
    for (std::int32_t i = 1; i <= again->MemoCount(); ++i) texts.insert(RemarkAt(again, i).MemoText());
    EXPECT_TRUE(texts.contains("changed"));
    EXPECT_TRUE(texts.contains("O'Brien: \U0001F600 " + std::string(5000, 'x')));
  }
  EXPECT_EQ(Caught([] { const ContextHolder nowhere("NoSuchPlace", "C1044", "admin"); }).Description(),
            "ContextID [NoSuchPlace] not found");

  EXPECT_EQ(DrawKeys(25).size(), 100U);
  for (int i = 0; i < 10; ++i) ChangeDeletedMemo(1);
}

}  // namespace
}  // namespace quorvel::test
