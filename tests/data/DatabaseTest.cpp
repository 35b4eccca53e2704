// modDatabase on an embedded database: reconnects, reports and the statements that it builds.

#include <filesystem>
#include <fstream>
#include <thread>

#include "data/modDatabase.h"
#include "data/modWaitCursor.h"
#include "platform/Error.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::test {
namespace {

using modDatabase::ExecSP;
using modDatabase::LoadRst;
using modDatabase::SharedConnection;
using modDatabase::UpdateField;

/// A copy, which a reconnect does not change under the test.
std::shared_ptr<ado::Connection> ConnectionNow() { return SharedConnection(); }

class DatabaseTest : public testing::Test {
 protected:
  void TearDown() override { modWaitCursor::ResetWait(); }

  PromptsGuard m_prompts;
  TestDatabase m_database{TestDatabase::Content::Schema};
};

TEST_F(DatabaseTest, LoadRstReportsTheSecondFailureAndReturnsNull) {
  const auto before = ConnectionNow();
  const std::string sql = "SELECT GroupKey FROM ttwGruop";
  EXPECT_EQ(LoadRst(sql), nullptr);
  EXPECT_NE(SharedConnection(), before);
  const std::string reason = SharedConnection()->Errors().at(0).description;
  EXPECT_THAT(reason, HasSubstr("ttwGruop"));
  ASSERT_EQ(m_prompts->shown.size(), 1U);
  const auto& box = m_prompts->shown[0];
  EXPECT_EQ(box.text, reason + "\r\nSQL=" + sql + "\r\nAdditional Information:\r\nErrMsg 0: " + reason + "\r\n");
  EXPECT_EQ(box.title, "Database Error in LoadRst");
  EXPECT_EQ(box.buttons, PromptButtons::Ok);
  EXPECT_EQ(modDatabase::LoadDisconnectedRst(sql), nullptr);
}

TEST_F(DatabaseTest, LoadRstReconnectsWhenErrorsRemain) {
  const auto before = ConnectionNow();
  EXPECT_EQ(Caught([] { UpdateField("ttwNowhere", "A", std::string("b"), "C", std::int64_t{1}); }).Number(),
            ErrorNumber::DbObjectNotFound);
  EXPECT_EQ(SharedConnection(), before);
  const auto groups = modDatabase::LoadDisconnectedRst("SELECT GroupKey FROM ttwGroup");
  EXPECT_TRUE(groups->IsOpen());
  EXPECT_EQ(groups->ActiveConnection(), nullptr);
  EXPECT_NE(SharedConnection(), before);
  EXPECT_THAT(SharedConnection()->Errors(), IsEmpty());
  EXPECT_THAT(m_prompts->shown, IsEmpty());
}

TEST_F(DatabaseTest, LoadRstPassesOnAnErrorOfTheReconnect) {
  std::filesystem::remove(m_database.DatabaseFile());
  EXPECT_EQ(Caught([] { static_cast<void>(LoadRst("SELECT 1 FROM ttwNowhere")); }).Number(),
            ErrorNumber::DbUnspecified);
  EXPECT_THAT(m_prompts->shown, IsEmpty());
  EXPECT_EQ(SharedConnection(), nullptr);
}

// The byte says which version of the file's format is needed to write to it, so the file is read-only for root too.
TEST_F(DatabaseTest, UseAfterAFailureOpensAnotherConnection) {
  const auto writeVersion = [this](char version) { std::fstream(m_database.DatabaseFile()).seekp(18).put(version); };
  const auto addGroup = [] { ExecSP("spTWCAddGroup", {{"@GroupID", std::string("Late")}}); };
  writeVersion('\x03');
  modDatabase::OpenConnection();
  EXPECT_THAT(Caught(addGroup).Description(), HasSubstr("read-only"));
  EXPECT_EQ(SharedConnection(), nullptr);
  writeVersion('\x02');

  const std::string moved = m_database.DatabaseFile() + ".moved";
  std::filesystem::rename(m_database.DatabaseFile(), moved);
  EXPECT_THAT(Caught([] { modDatabase::EnsureConnection(); }).Description(), HasSubstr("does not exist"));
  EXPECT_THAT(Caught(addGroup).Description(), HasSubstr("does not exist"));
  std::filesystem::rename(moved, m_database.DatabaseFile());
  addGroup();
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM ttwGroup WHERE GroupID = 'Late'"), "1");
}

TEST_F(DatabaseTest, ServerHasAnHourToAnswerUnlessAProgramSetsAnotherTime) {
  modDatabase::OpenConnection();
  EXPECT_EQ(modDatabase::SharedConnection()->ConnectionTimeout(), std::chrono::hours(1));
  modDatabase::SetConnectionTimeout(std::chrono::seconds(15));
  modDatabase::OpenConnection();
  EXPECT_EQ(modDatabase::SharedConnection()->ConnectionTimeout(), std::chrono::seconds(15));
  modDatabase::SetConnectionTimeout(std::chrono::hours(1));
}

TEST_F(DatabaseTest, ExecSpTakesNamedParametersInAnyOrder) {
  ExecSP("spTWCAddRemarkEntity", {{"@RemarkEntityID", std::string("Customer")}, {"", std::string("skipped")}});
  const std::string key =
      m_database.Ask("SELECT RemarkEntityKey FROM ttwRemarkEntity WHERE RemarkEntityID = 'Customer'");
  ExecSP("spTWCAddContext", {{"remarkentitykey", key}, {"@CONTEXTID", std::string("O'Brien's")}});
  EXPECT_EQ(m_database.Ask("SELECT RemarkEntityKey FROM ttwContext WHERE ContextID = 'O''Brien''s'"), key);
  const auto failureOf = [](const char* procedure, std::initializer_list<modDatabase::NamedValue> pairs) {
    return Caught([&] { ExecSP(procedure, pairs); }).Number();
  };
  const modDatabase::NamedValue pair{"", std::string()};
  EXPECT_EQ(failureOf("spTWCAddGroup", {{"@Group", std::string("A")}}), ErrorNumber::AdoItemNotFound);
  EXPECT_EQ(failureOf("spTWCAddGruop", {{"@GroupID", std::string("A")}}), ErrorNumber::DbStatement);
  EXPECT_EQ(failureOf("spTWCAddGroup", {pair, pair, pair, pair, pair, pair, pair}), ErrorNumber::InvalidCall);
}

TEST_F(DatabaseTest, UpdateFieldWritesOnlyTheRowOfItsKeys) {
  m_database.Run(
      "INSERT INTO ttwGroup (GroupID) VALUES ('G1'); INSERT INTO ttwGroup (GroupID) VALUES ('G2');"
      "INSERT INTO ttwBranch (BranchID, BranchName) VALUES ('B1', 'one'); "
      "INSERT INTO ttwBranch (BranchID, BranchName) VALUES ('B2', 'two')");
  const std::int64_t key = std::stoll(m_database.Ask("SELECT GroupKey FROM ttwGroup WHERE GroupID = 'G1'"));
  UpdateField("ttwGroup", "Caption", std::string("North"), "GroupKey", key);
  EXPECT_EQ(m_database.Ask("SELECT Caption FROM ttwGroup WHERE GroupID = 'G1'"), "North");
  EXPECT_EQ(m_database.Ask("SELECT Caption FROM ttwGroup WHERE GroupID = 'G2'"), "");
  UpdateField("ttwBranch", "WhseKey", std::int64_t{7}, "BranchID", std::string("B2"), "BranchName", std::string("two"));
  UpdateField("ttwBranch", "WhseKey", std::int64_t{8}, "BranchID", std::string("B1"), "BranchName", std::string("two"));
  EXPECT_EQ(m_database.Ask("SELECT WhseKey FROM ttwBranch WHERE BranchID = 'B2'"), "7");
  EXPECT_EQ(m_database.Ask("SELECT WhseKey FROM ttwBranch WHERE BranchID = 'B1'"), "NULL");
  EXPECT_THAT(m_prompts->pointers, ElementsAre(PointerShape::Hourglass, PointerShape::Default, PointerShape::Hourglass,
                                               PointerShape::Default, PointerShape::Hourglass, PointerShape::Default));
}

TEST_F(DatabaseTest, UpdateFieldLeavesTheWaitPendingOnAnError) {
  EXPECT_EQ(
      Caught([] { UpdateField("ttwGroup", "Caption", std::string("it's"), "GroupKey", std::int64_t{1}); }).Number(),
      ErrorNumber::DbStatement);
  EXPECT_THAT(m_prompts->pointers, ElementsAre(PointerShape::Hourglass));
  UpdateField("ttwGroup", "Caption", std::string("its"), "GroupKey", std::int64_t{1});
  EXPECT_THAT(m_prompts->pointers, ElementsAre(PointerShape::Hourglass));
  modWaitCursor::EndWait();
  EXPECT_THAT(m_prompts->pointers, ElementsAre(PointerShape::Hourglass, PointerShape::Default));
}

TEST(ModDatabase, EveryThreadStartsWithoutAConnection) {
  TestDatabase database(TestDatabase::Content::Schema);
  std::weak_ptr<ado::Connection> watched;
  std::thread([&watched] {
    EXPECT_EQ(SharedConnection(), nullptr);
    EXPECT_EQ(Caught([] { UpdateField("ttwGroup", "Caption", Value{true}, "GroupKey", Value{true}); }).Number(),
              ErrorNumber::ObjectNotSet);
    EXPECT_EQ(Caught([] { ExecSP("spTWCAddGroup"); }).Number(), ErrorNumber::AdoInvalidConnection);
    modWaitCursor::ResetWait();
    modDatabase::EnsureConnection();
    const auto connection = ConnectionNow();
    modDatabase::EnsureConnection();
    EXPECT_EQ(SharedConnection(), connection);
    watched = connection;
  }).join();
  EXPECT_TRUE(watched.expired()) << "the connection is closed when its thread ends";
}

TEST(SqlValue, QuotesTextsWithoutDoubling) {
  const std::pair<Value, const char*> cases[] = {{std::string("O'Brien"), "'O'Brien'"},
                                                 {std::string(), "''"},
                                                 {std::int64_t{-12}, "-12"},
                                                 {true, "1"},
                                                 {1.5, "1.5"}};
  for (const auto& [value, expected] : cases) EXPECT_EQ(modDatabase::SqlValue(value), expected);
  EXPECT_EQ(Caught([] { static_cast<void>(modDatabase::SqlValue(Null{})); }).Number(), ErrorNumber::InvalidUseOfNull);
}

TEST(StripChars, RemovesTheTenCharacters) {
  EXPECT_EQ(modDatabase::StripChars("a/b-c*d%e<f"), "abcdef");
  EXPECT_EQ(modDatabase::StripChars("--\t\t??\\\"\"''"), "");
  EXPECT_EQ(modDatabase::StripChars("<none> Grüße_|[]"), "none> Grüße_|[]");
}

TEST(GetNewID, AsksUntilTheIdFits) {
  PromptsGuard prompts;
  const std::string longest = std::string(29, 'x') + "ä";
  prompts->texts = {std::string(31, 'x'), "  " + longest + " "};
  std::string id = "before";
  modDatabase::GetNewID("Group", id);
  EXPECT_EQ(id, longest);
  ASSERT_EQ(prompts->shown.size(), 3U);
  EXPECT_EQ(prompts->shown[0].text, "Group ID");
  EXPECT_EQ(prompts->shown[0].title, "Create New Group");
  EXPECT_EQ(prompts->shown[1].text, "The max length for Group ID is 30. Please enter ID within 30 chars");
  EXPECT_EQ(prompts->shown[1].title, "Max Length of ID");
  EXPECT_EQ(prompts->shown[1].icon, PromptIcon::Exclamation);

  for (const std::optional<std::string>& answer : {std::optional<std::string>(), std::optional<std::string>("   ")}) {
    prompts->texts = {answer};
    id = "before";
    modDatabase::GetNewID("Group", id);
    EXPECT_EQ(id, "");
  }
}

}  // namespace
}  // namespace quorvel::test
