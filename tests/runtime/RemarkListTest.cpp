// RemarkList in memory, then Remark::Commit and RemarkList::Save against the sample database.

#include "runtime/RemarkList.h"

#include <string>

#include "tests/runtime/RuntimeTest.h"

namespace quorvel::test {
namespace {

std::shared_ptr<Remark> AddText(RemarkList& list, const std::string& text) {
  auto remark = list.Add();
  remark->SetMemoText(text);
  return remark;
}

TEST(RemarkListTest, ItemReturnsNullWhereRemoveRaises) {
  RemarkList list;
  const auto first = AddText(list, "first");
  const auto second = AddText(list, "second");
  EXPECT_EQ(list.Item(Number(2)), second);
  EXPECT_EQ(list.Item(1.5), second);
  for (const Value& index :
       {Number(3), Number(0), Number(-1), Number(5'000'000'000), Value("X"), Value("1"), Value("")})
    EXPECT_EQ(list.Item(index), nullptr);
  EXPECT_EQ(list.Index(second), 2);
  EXPECT_EQ(list.Index(second->Copy()), 0);

  EXPECT_THAT(Caught([&] { list.Remove(Number(3)); }), HasNumber(ErrorNumber::SubscriptOutOfRange));
  EXPECT_THAT(Caught([&] { list.Remove(Number(0)); }), HasNumber(ErrorNumber::SubscriptOutOfRange));
  EXPECT_THAT(Caught([&] { list.Remove("first"); }), HasNumber(ErrorNumber::InvalidCall));
  EXPECT_FALSE(list.Dirty());
  list.Remove(Number(1));
  EXPECT_EQ(list.Item(Number(1)), second);
  EXPECT_EQ(list.Index(first), 0);
  EXPECT_TRUE(list.Dirty());
}

TEST(RemarkListTest, RestoreSharesItsCollectionsWithTheBackup) {
  RemarkList list;
  const auto remark = AddText(list, "before");
  remark->SetUserID("jsmith");
  remark->SetMemoKey(12);
  remark->SetDirty(true);
  list.Backup();
  remark->SetMemoText("edited");
  list.Remove(Number(1));
  list.Restore();

  ASSERT_EQ(list.Count(), 1);
  const auto copy = list.Item(Number(1));
  EXPECT_NE(copy, remark);
  EXPECT_EQ(copy->MemoText(), "before");
  EXPECT_EQ(copy->MemoKey(), 12);
  EXPECT_TRUE(copy->Dirty());
  EXPECT_EQ(copy->UserID(), "");

  // The backup is live now, so a second restore changes nothing.
  copy->SetMemoText("edited again");
  AddText(list, "added");
  list.Restore();
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(list.Item(Number(1))->MemoText(), "edited again");

  const auto unwritten = list.Item(Number(2));
  list.Backup();
  list.Restore();
  EXPECT_EQ(list.Keep(unwritten), list.Item(Number(2))) << "the copy, and nothing is appended";
  EXPECT_EQ(list.Count(), 2);
}

TEST(RemarkListTest, WithoutCollectionsItIsEmptyAndRefusesRemarks) {
  for (const bool byRestore : {true, false}) {
    RemarkList list;
    AddText(list, "gone")->SetDirty(true);
    if (byRestore) {
      list.Restore();
    } else {
      list.Clear(false);
    }
    EXPECT_EQ(list.Count() + list.PopupCount(), 0);
    EXPECT_EQ(list.Item(Number(1)), nullptr);
    EXPECT_FALSE(list.Dirty());
    EXPECT_EQ(list.Items(), nullptr);
    list.Save();
    EXPECT_THAT(Caught([&] { list.Add(); }), HasNumber(ErrorNumber::ObjectNotSet));
    EXPECT_THAT(Caught([&] { list.Remove(Number(1)); }), HasNumber(ErrorNumber::ObjectNotSet));
    list.Clear();
    AddText(list, "usable again");
    EXPECT_EQ(list.Count(), 1);
  }
}

/// It does not look whether a memo has the key already.
constexpr const char* kGeneratorThatOnlyCounts =
    "ALTER PROCEDURE spGetNextSurrogateKey @iTableName varchar(128), @oNewKey int OUTPUT AS "
    "UPDATE ttwSurrogateKey SET LastKey = LastKey + 1 WHERE TableName = @iTableName "
    "SELECT @oNewKey = LastKey FROM ttwSurrogateKey WHERE TableName = @iTableName";

class RemarkCommitTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Row(std::int32_t key) const {
    return m_database.Ask(
        "SELECT MemoType + '|' + CAST(EntityType AS varchar(6)) + '|' + CAST(OwnerKey AS varchar(9)) + '|' + UserID + "
        "'|' + MemoText FROM tciMemo WHERE MemoKey = " +
        std::to_string(key));
  }

  TestDatabase m_database;
  ContextHolder m_context{"CustMaint", "C1044", "admin"};
};

TEST_F(RemarkCommitTest, WritesTrimmedTextAndTheUserOfTheContext) {
  Remark& remark = RemarkAt(m_context, 1);
  const DateTime before = Now();
  remark.SetMemoText("  two  words \t ");
  remark.SetUserID("");
  remark.SetRemarkType(m_context->Item("Cust.Credit"));
  remark.SetDirty(true);
  m_context->RemarkList()->Save();
  EXPECT_EQ(Row(7), "Cust.Credit|501|45|admin|two  words \t");
  EXPECT_EQ(remark.MemoText(), "  two  words \t ");
  EXPECT_FALSE(remark.Dirty());
  EXPECT_GE(remark.DateStamp(), before);
  EXPECT_NE(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoKey = 7 AND DateStamp > '20240601'"), "0");
}

// A host may write memos of its own under the next key.
TEST_F(RemarkCommitTest, RefusedInsertTouchesNoMemoThatGetsItsKey) {
  const auto remark = m_context->RemarkList()->Add();
  remark->SetRemarkType(m_context->Item(Number(3)));
  remark->SetMemoText("not lost");
  remark->SetUserID(std::string(31, 'x'));
  remark->SetDirty(true);
  EXPECT_THAT(Caught([&] { m_context->RemarkList()->Save(); }), HasNumber(ErrorNumber::AdoDataConversion));
  EXPECT_EQ(remark->MemoKey(), 2043);
  EXPECT_TRUE(remark->Dirty());

  m_database.StoreMemo(2043, "of the host");
  const std::string others = Row(2043);
  remark->Delete();
  remark->SetUserID("jsmith");
  m_context->RemarkList()->Save();
  EXPECT_FALSE(remark->Dirty());
  EXPECT_EQ(Row(2043), others);
  EXPECT_EQ(Row(2044), "Cust.General|501|45|jsmith|not lost");
}

// Such a procedure may raise any error, before it has stored the memo or afterwards.
TEST_F(RemarkCommitTest, InsertThatFailsInTheHostsProcedureIsNeitherRepeatedNorTakenForAnotherMemo) {
  m_database.Run(
      "ALTER PROCEDURE spTWCqvAddRemark @MemoKey int, @MemoType varchar(30), @EntityType smallint, @OwnerKey int, "
      "@MemoText nvarchar(max), @UserID varchar(30) AS "
      "IF EXISTS (SELECT MemoKey FROM tciMemo WHERE MemoKey = @MemoKey) RAISERROR('the key is in use', 16, 1) "
      "INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText) "
      "SELECT @MemoKey, @MemoType, @EntityType, @OwnerKey, GETDATE(), @UserID, @MemoText "
      "IF @UserID = 'mail' RAISERROR('the mail was not sent', 16, 1) "
      "IF @UserID = 'log' INSERT INTO ttwUser (UserKey, UserID) SELECT UserKey, UserID FROM ttwUser");
  const auto storeOnce = [&](std::int32_t error) {
    EXPECT_THAT(Caught([&] { m_context->Save(true); }), HasNumber(error));
    Remark& remark = RemarkAt(m_context, m_context->MemoCount());
    remark.SetMemoText("once");
    m_context->Save(true);
    EXPECT_EQ(Row(remark.MemoKey()), remark.TypeID() + "|501|45|" + remark.UserID() + "|once");
  };
  m_context->AddRemark("Cust.General", "stored", "mail");
  storeOnce(ErrorNumber::DbStatement);
  m_context->Item("Cust.General")->SetCanRead(0);
  m_context->AddRemark("Cust.General", "stored", "log");
  storeOnce(ErrorNumber::DbIntegrity);
  m_context->SetEditBehavior(EditBehavior::NoAutoSave);
  m_context->AddRemark("Cust.General", "stored", "mail");
  EXPECT_THAT(Caught([&] { m_context->Load("OrderEntry", "SO20001", std::string(31, 'u')); }),
              HasNumber(ErrorNumber::AdoDataConversion));
  storeOnce(ErrorNumber::DbStatement);
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'stored'"), "0");

  m_context->Load("CustMaint", "C1044", "admin");
  const auto alone = std::make_shared<Remark>();
  alone->SetRemarkType(m_context->Item("Cust.General"));
  alone->SetMemoText("of the owner that was loaded");
  alone->SetUserID("mail");
  EXPECT_THAT(Caught([&] { alone->Commit(); }), HasNumber(ErrorNumber::DbStatement));
  m_context->Load("CustMaint", "C1000", "admin");
  EXPECT_THAT(Caught([&] { alone->Commit(); }), HasNumber(ErrorNumber::Component));
  m_context->Load("CustMaint", "C1044", "admin");

  m_database.Run(kGeneratorThatOnlyCounts);
  m_database.Run("UPDATE ttwSurrogateKey SET LastKey = LastKey - 1 WHERE TableName = 'tciMemo'");
  m_context->AddRemark("Cust.General", "of the same owner", "jsmith");
  EXPECT_THAT(Caught([&] { m_context->Save(true); }), HasNumber(ErrorNumber::DbStatement));
  m_context->Save(true);
  EXPECT_EQ(Row(2046), "Cust.General|501|45|mail|of the owner that was loaded");
  EXPECT_EQ(Row(2047), "Cust.General|501|45|jsmith|of the same owner");

  m_context->RemarkList()->Add()->SetUserID("mail");
  RemarkAt(m_context, m_context->MemoCount()).SetDirty(true);
  storeOnce(ErrorNumber::DbStatement);

  m_context->AddRemark("Cust.General", "deleted from elsewhere", "mail");
  EXPECT_THAT(Caught([&] { m_context->Save(true); }), HasNumber(ErrorNumber::DbStatement));
  const auto open = m_context->RemarkList()->Item(Number(m_context->MemoCount()));
  m_context->SetEditBehavior(EditBehavior::NoAutoSave);
  m_context->Load("OrderEntry", "SO20001", "admin");
  EXPECT_NE(Row(open->MemoKey()), "");
  open->Delete();
  EXPECT_EQ(Row(open->MemoKey()), "") << "the context that is loaded now does not show the memo";
}

// The generator of a host may give a key that a memo has already.
TEST_F(RemarkCommitTest, KeyOfAnotherMemoIsNeitherWrittenNorDeleted) {
  m_database.Run(kGeneratorThatOnlyCounts);
  const std::string others = Row(2042);
  auto& list = *m_context->RemarkList();
  const auto failToAdd = [&](const std::string& text) {
    m_database.Run("UPDATE ttwSurrogateKey SET LastKey = 2041 WHERE TableName = 'tciMemo'");
    m_context->AddRemark("Cust.General", text, "admin");
    EXPECT_THAT(Caught([&] { list.Save(); }), HasNumber(ErrorNumber::DbIntegrity));
    EXPECT_EQ(RemarkAt(m_context, 8).MemoKey(), 2042);
  };
  failToAdd("removed again");
  list.Remove(Number(8));
  list.Save();
  failToAdd("under its own key");
  list.Backup();
  list.Restore();
  list.Save();
  EXPECT_EQ(Row(2043), "Cust.General|501|45|admin|under its own key");

  // Whether the first insert succeeded may be unknown; then the second try is an update.
  m_database.Run("UPDATE ttwSurrogateKey SET LastKey = 2043 WHERE TableName = 'tciMemo'");
  m_context->AddRemark("Cust.General", "after a lost answer", "admin");
  RemarkAt(m_context, 9).SetMemoKey(2042);
  EXPECT_THAT(Caught([&] { list.Save(); }), HasNumber(ErrorNumber::DbIntegrity));
  list.Save();
  EXPECT_EQ(Row(2044), "Cust.General|501|45|admin|after a lost answer");
  EXPECT_EQ(Row(2042), others);

  // The same when the memo was deleted and another owner's has its key now.
  m_database.Run("UPDATE tciMemo SET OwnerKey = 3, MemoText = 'of another owner' WHERE MemoKey = 2044");
  ChangeText(RemarkAt(m_context, 9), "typed on");
  list.Backup();
  EXPECT_THAT(Caught([&] { list.Save(); }), HasNumber(ErrorNumber::DbIntegrity));
  list.Restore();
  list.Save();
  EXPECT_EQ(Row(2045), "Cust.General|501|45|admin|typed on");
  EXPECT_EQ(Row(2044), "Cust.General|501|3|admin|of another owner");
}

TEST_F(RemarkCommitTest, ErrorEndsTheSaveAndForgetsNothing) {
  auto& list = *m_context->RemarkList();
  const auto good = list.Item(Number(1));
  const auto bad = list.Item(Number(2));
  const auto never = list.Item(Number(3));
  for (const auto& remark : {good, bad, never}) {
    ChangeText(*remark, "changed");
  }
  bad->SetUserID(std::string(31, 'x'));
  list.Remove(Number(7));
  EXPECT_THAT(Caught([&] { list.Save(); }), HasNumber(ErrorNumber::AdoDataConversion));
  EXPECT_FALSE(good->Dirty());
  EXPECT_TRUE(bad->Dirty() && never->Dirty());
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'changed'"), "1");
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE OwnerKey = 45 AND EntityType = 501"), "7");

  bad->SetUserID("admin");
  list.Save();
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'changed'"), "3");
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE OwnerKey = 45 AND EntityType = 501"), "6");
  EXPECT_FALSE(list.Dirty());
}

TEST_F(RemarkCommitTest, DeletesOnlyStoredRemarks) {
  auto& list = *m_context->RemarkList();
  // The host may have a row with key 0; removing an unstored remark must not delete it.
  m_database.Run("UPDATE tciMemo SET MemoKey = 0 WHERE MemoKey = 8");
  AddText(list, "never stored");
  list.Remove(Number(8));
  list.Save();
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo"), "2042");
  const auto removed = list.Item(Number(1));
  list.Remove(Number(1));
  list.Save();
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo"), "2041");
  EXPECT_EQ(removed->MemoKey(), 7);
}

}  // namespace
}  // namespace quorvel::test
