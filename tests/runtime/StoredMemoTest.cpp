// Remarks whose memo was deleted, restored, or replaced with its database: no write reaches another memo, and none is
// stored twice.

#include <filesystem>
#include <string>
#include <vector>

#include "tests/runtime/SaveTest.h"

namespace quorvel::test {
namespace {

using testing::HasSubstr;
using StoredMemoTest = SaveTest;

TEST_F(StoredMemoTest, ReplacedDatabaseFileTakesTheTextAndKeepsAMemoThatIsNotTheRemoved) {
  const std::string file = m_database.DatabaseFile();
  const auto replace = [&](const std::string& change) {
    std::filesystem::rename(file, file + ".old");
    std::filesystem::copy_file(file + ".old", file);
    m_database.Run(change + " WHERE MemoKey = 7");
  };
  const ContextHolder context("CustMaint", "C1044", "admin");
  const auto failToSave = [&](const std::string& why) {
    EXPECT_THAT(Caught([&] { context->Save(true); }).Description(), HasSubstr(why));
  };
  context->AddRemark("Cust.General", "typed", "admin");
  context->RemarkList()->Remove(Number(1));
  replace("UPDATE tciMemo SET OwnerKey = 3, MemoText = 'of another owner'");
  failToSave("was deleted or replaced");
  EXPECT_EQ(context->MemoCount(), 7);
  failToSave("was changed meanwhile");
  context->Save(true);
  EXPECT_EQ(MemoCount(), "2043");
  EXPECT_EQ(OwnerOf("of another owner"), "501/3");
  EXPECT_EQ(OwnerOf("typed"), "501/45");

  m_database.Run("UPDATE tciMemo SET OwnerKey = 45 WHERE MemoKey = 7");
  context->RefreshRemarkList();
  context->RemarkList()->Remove(Number(1));
  replace("UPDATE tciMemo SET MemoText = 'older text'");
  EXPECT_ANY_THROW(context->RemarkList()->Save());
  failToSave("was changed meanwhile");
  EXPECT_EQ(m_database.TextOf(7), "older text");
}

// The older copy gives the key of the first remark to the second one.
TEST_F(StoredMemoTest, TextUnderAKeyThatAnOlderDatabaseFileGivesAgainOverwritesNoOther) {
  const std::string file = m_database.DatabaseFile();
  std::filesystem::copy_file(file, file + ".older");
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->AddRemark("Cust.General", "first", "admin");
  context->Save(true);
  std::filesystem::rename(file + ".older", file);
  for (const char* suffix : {"-wal", "-shm"}) std::filesystem::remove(file + suffix);
  context->AddRemark("Cust.General", "second", "admin");
  EXPECT_ANY_THROW(context->Save(true));
  context->Save(true);
  const std::int32_t first = context->MemoCount() - 1;
  ASSERT_EQ(RemarkAt(context, first).MemoKey(), RemarkAt(context, first + 1).MemoKey());
  ChangeText(RemarkAt(context, first), "first, typed on");
  context->Save(true);
  EXPECT_EQ(OwnerOf("first, typed on"), "501/45");
  EXPECT_EQ(OwnerOf("second"), "501/45");
}

// A host may give the key of a deleted memo to one of its own.
TEST_F(StoredMemoTest, DeletedRemarkLeavesTheNextMemoWithItsKeyAlone) {
  const std::string deletes = "ALTER PROCEDURE spTWCqvDeleteRemark @MemoKey int AS ";
  const std::string byKey = "DELETE FROM tciMemo WHERE MemoKey = @MemoKey";
  const ContextHolder context("CustMaint", "C1044", "admin");
  context->AddRemark("Cust.General", "deleted first", "admin");
  context->Save(true);
  const auto removed = context->RemarkList()->Item(Number(8));
  context->RemarkList()->Remove(Number(8));
  context->RemarkList()->Remove(Number(1));
  m_database.Run(deletes + "IF @MemoKey < 2043 RAISERROR ('kept', 16, 1) ELSE " + byKey);
  EXPECT_EQ(Caught([&] { context->Save(true); }).Description(), "kept");
  m_database.Run(deletes + byKey);
  m_database.StoreMemo(2043, "of the host");
  context->Save(true);
  removed->SetMemoText("written again");
  removed->Commit();
  removed->Delete();
  EXPECT_EQ(m_database.TextOf(2043), "of the host");
  EXPECT_EQ(MemoCount(), kMemosOfSample);
}

// The backup is older than the deletion, and a host's own memo has the key meanwhile.
TEST_F(StoredMemoTest, RestoredRemarkOfADeletedMemoIsNewAndLeavesTheMemoWithItsKeyAlone) {
  for (const std::string deletion : {"before", "after", "after, and added again"}) {
    const bool isRemovedBefore = deletion == "before";
    const TestDatabase database;
    const ContextHolder context("CustMaint", "C1044", "admin");
    const auto& list = context->RemarkList();
    if (isRemovedBefore) list->Remove(Number(1));
    list->Backup();
    const auto removed = list->Item(Number(1));
    if (!isRemovedBefore) list->Remove(Number(1));
    context->Save(true);
    if (deletion == "after, and added again") {
      list->Keep(removed)->SetDirty(true);
      context->Save(true);
    }
    database.StoreMemo(7, "of the host");
    list->Restore();
    EXPECT_TRUE(list->Dirty()) << "the database no longer has the text " << deletion;
    if (!isRemovedBefore) RemarkAt(context, 1).SetMemoText("restored");
    context->Save(true);
    EXPECT_EQ(database.TextOf(7), "of the host");
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoKey > 2042 AND MemoText = 'restored'"),
              isRemovedBefore ? "0" : "1");
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo"), isRemovedBefore ? "2042" : "2043") << deletion;
    EXPECT_FALSE(list->Dirty());
  }
}

// An editor holds the remark in which its user types, and stores it when the host has restored the list.
TEST_F(StoredMemoTest, RestoreUnderTypedTextStoresNoRemarkTwice) {
  struct Case {
    std::vector<std::string> steps;
    bool isNew;
  };
  const Case cases[] = {{{"backup", "restore", "backup"}, true},
                        {{"backup", "restore", "backup", "restore"}, true},
                        {{"fail to save", "backup", "restore"}, true},
                        {{"backup", "restore", "save", "refresh"}, true},
                        {{"backup", "remove", "save", "restore"}, false},
                        {{"backup", "restore", "backup", "remove", "save", "restore"}, false}};
  for (const Case& each : cases) {
    SCOPED_TRACE(testing::PrintToString(each.steps));
    const TestDatabase database;
    const ContextHolder context("CustMaint", "C1044", "admin");
    if (each.isNew) context->AddRemark("Cust.General", "before");
    const auto position = Number(each.isNew ? 8 : 1);
    const auto shown = context->RemarkList()->Item(position);
    for (const std::string& step : each.steps) {
      const auto& list = context->RemarkList();
      if (step == "backup") list->Backup();
      if (step == "restore") list->Restore();
      if (step == "remove") list->Remove(position);
      if (step == "save") context->Save(true);
      if (step == "refresh") context->RefreshRemarkList();
      if (step != "fail to save") continue;
      shown->SetUserID(std::string(31, 'u'));
      EXPECT_THAT(Caught([&] { context->Save(true); }), HasNumber(ErrorNumber::AdoDataConversion));
      shown->SetUserID("");
    }
    const auto kept = context->RemarkList()->Keep(shown);
    ChangeText(*kept, "typed");
    context->Save(true);
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo"), each.isNew ? "2043" : "2042");
    EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'typed'"), "1");
  }
}

}  // namespace
}  // namespace quorvel::test
