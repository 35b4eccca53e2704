// The order of a load, the loaded values, and the values that remain after an error. In the sample database customer
// C1044 has seven remarks of four types.

#include <string>
#include <tuple>
#include <vector>

#include "data/modUserName.h"
#include "platform/Environment.h"
#include "tests/runtime/RuntimeTest.h"

namespace quorvel::test {
namespace {

class LoadTest : public testing::Test {
 protected:
  TestDatabase m_database;
  PromptsGuard m_prompts;
};

TEST_F(LoadTest, UserSeesRemarksOfReadableTypes) {
  const std::tuple<const char*, const char*, const char*, int, int, int> cases[] = {
      {"CustMaint", "C1044", "jsmith", 6, 3, 2},     {"CustMaint", "C1044", "mjones", 4, 1, 2},
      {"CustMaint", "C1044", "admin", 7, 3, 4},      {"CustMaint", "C1044", "guest", 0, 0, 0},
      {"CustInq", "C1044", "jsmith", 5, 2, 2},       {"OrderEntry", "SO20001", "mjones", 2, 1, 2},
      {"CustMaint", "C1007", "admin", 2000, 1000, 4}};
  for (const auto& [contextID, owner, user, memos, popups, createable] : cases) {
    const ContextHolder context(contextID, owner, user);
    EXPECT_EQ(context->MemoCount(), memos) << contextID << " " << owner << " " << user;
    EXPECT_EQ(context->PopupCount(), popups) << contextID << " " << owner << " " << user;
    EXPECT_EQ(context->CreateableTypes(), createable) << contextID << " " << owner << " " << user;
  }
}

TEST_F(LoadTest, LetterCaseOfIdentifiersDoesNotCount) {
  m_database.Run("UPDATE ttwRemarkRight SET CanUpdate = 2 * CanUpdate, CanDelete = 3 * CanDelete");
  const ContextHolder context;
  // The database replaces the value that the host has set.
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  context->Load("custmaint", "c1044", "JSMITH");

  EXPECT_TRUE(context->GroupByType());
  EXPECT_TRUE(context->AllowRowSizing());
  EXPECT_EQ(context->RowHeight(), 2);
  EXPECT_EQ(context->EditBehavior(), EditBehavior::PromptForSave);
  EXPECT_EQ(context->Server(), "(embedded)");

  EXPECT_EQ(context->Item(Number(1))->CanUpdate(), 2);
  EXPECT_EQ(context->Item(Number(1))->CanDelete(), 3);
  EXPECT_EQ(context->Item("CUST.GENERAL"), context->Item(Number(3)));
  EXPECT_EQ(context->Item(Number(4))->TypeID(), "Cust.Internal");
  EXPECT_EQ(context->Item(Number(4))->CanRead(), 0) << "a type without a right";
  for (const Value& missing : {Number(0), Number(5), Value("Cust"), Value(""), Value(Null{}), Value("1")}) {
    EXPECT_EQ(context->Item(missing), nullptr);
  }

  const Remark& first = RemarkAt(context, 1);
  EXPECT_EQ(first.UserID(), "jsmith");
  EXPECT_EQ(FormatDateTime(first.DateStamp()), "2024-03-11 13:30:00.000");
  EXPECT_EQ(first.EntityKey(), 501);
  EXPECT_EQ(first.OwnerKey(), 45);
  EXPECT_FALSE(context->RemarkList()->Dirty());
}

TEST_F(LoadTest, PopupTypesComeFirstThenNewerRemarks) {
  // Any number but 0 makes a type pop up.
  m_database.Run("UPDATE ttwRemarkContext SET Priority = -Priority");
  m_database.Run(
      "UPDATE tciMemo SET DateStamp = '20240304 08:45:00' WHERE OwnerKey = 45 AND MemoType = 'Cust.General'");
  const ContextHolder context("CustMaint", "C1044", "admin");
  std::vector<std::int32_t> keys;
  for (const auto& remark : *context->RemarkList()->Items()) keys.push_back(remark->MemoKey());
  EXPECT_THAT(keys, ElementsAre(7, 4, 3, 6, 2, 1, 5));
}

TEST_F(LoadTest, RemarksHaveTheRightsOfTheirTypes) {
  {
    const ContextHolder context("CustMaint", "C1044", "jsmith");
    EXPECT_TRUE(context->CanUpdate(1) && context->CanDelete(1) && context->CanCreate(1));
    EXPECT_FALSE(context->CanUpdate(3) || context->CanDelete(3) || context->CanCreate(3));
    context->RemarkList()->Add();
    EXPECT_FALSE(context->CanUpdate(0) || context->CanUpdate(7)) << "no remark, and a remark without a type";
  }
  // A negative right counts as granted here, but neither for showing a remark nor for offering a type.
  m_database.Run(
      "UPDATE ttwRemarkRight SET CanCreate = -1, CanUpdate = -1, CanDelete = -1 WHERE RemarkTypeKey = "
      "(SELECT RemarkTypeKey FROM ttwRemarkType WHERE RemarkTypeID = 'Cust.AR.Coll')");
  {
    const ContextHolder context("CustMaint", "C1044", "jsmith");
    EXPECT_EQ(context->CreateableTypes(), 1);
    EXPECT_TRUE(context->CanUpdate(1) && context->CanDelete(1) && context->CanCreate(1));
  }
  m_database.Run("UPDATE ttwRemarkRight SET CanRead = -1");
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  EXPECT_EQ(context->MemoCount(), 0);
}

TEST_F(LoadTest, UnknownContextOrOwnerEndsTheLoad) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  EXPECT_THAT(Caught([&] { context->Load("Nowhere", "C1000", "mjones"); }),
              IsError(-1, "RemarkContext.LoadContext", "ContextID [Nowhere] not found"));
  EXPECT_EQ(context->ContextID() + " " + context->Caption(), "Nowhere Customer Maintenance");
  EXPECT_EQ(context->UserID() + " " + context->OwnerID(), "jsmith C1044");
  EXPECT_EQ(context->MemoCount(), 6);

  EXPECT_THAT(Caught([&] { context->Load("CustInq", "C9999", "mjones"); }),
              IsError(-1, "RemarkContext.LoadMemos", "OwnerID [C9999] not found"));
  EXPECT_EQ(context->UserID(), "mjones");
  EXPECT_EQ(context->TypeCount(), 2);
  EXPECT_EQ(context->OwnerKey(), 0);
  EXPECT_EQ(context->OwnerName(), "");
  EXPECT_EQ(context->RemarkList()->Count(), 0);
  EXPECT_THAT(Caught([&] { context->EditMemos(); }), IsError(-1, "RemarkContext.EditMemos", HasSubstr("owner")));
}

TEST_F(LoadTest, EveryFailureToCallTheOwnerProcedureHasOneDescription) {
  const auto notLoaded = IsError(-1, "RemarkContext.LoadMemos", "Context has not been loaded");
  const ContextHolder fresh;
  EXPECT_THAT(Caught([&] { fresh->SetOwnerID("C1044"); }), notLoaded);
  EXPECT_EQ(fresh->OwnerID(), "C1044");

  const ContextHolder context("CustMaint", "C1044", "jsmith");
  EXPECT_THAT(Caught([&] { context->SetOwnerID(std::string(31, 'C')); }), notLoaded);
  for (const std::string procedure : {"", "spNoSuchProcedure"}) {
    m_database.Run("UPDATE ttwRemarkEntity SET spGetOwnerName = '" + procedure + "'");
    EXPECT_THAT(Caught([&] { context->Load("CustMaint", "C1044", "jsmith"); }), notLoaded) << procedure;
  }
  // A procedure that runs but returns no owner is another failure.
  m_database.Run("UPDATE ttwRemarkEntity SET spGetOwnerName = 'spTWCqvGetContext'");
  EXPECT_THAT(Caught([&] { context->Load("CustMaint", "CustMaint", "jsmith"); }),
              HasNumber(ErrorNumber::AdoItemNotFound));
}

// An administrator may name any procedure as a lookup, and every user's load would run it.
TEST_F(LoadTest, ProceduresOfLoadMustNotWrite) {
  m_database.Run(
      "CREATE PROCEDURE spEmpty @OwnerID varchar(30) AS DELETE FROM tciMemo SELECT 45 AS OwnerKey, 'Acme' AS "
      "OwnerName");
  m_database.Run("UPDATE ttwRemarkEntity SET spGetOwnerName = 'spEmpty'");
  std::string logged;
  RedirectWarnings([&](std::string_view line) { logged = line; });
  const ContextHolder context;
  EXPECT_THAT(Caught([&] { context->Load("CustMaint", "C1044", "jsmith"); }),
              IsError(-1, "RemarkContext.LoadMemos", "Context has not been loaded"));
  RedirectWarnings({});
  EXPECT_THAT(logged, HasSubstr("spEmpty was called to read and may not change tciMemo"));
  EXPECT_NE(m_database.Ask("SELECT COUNT(*) FROM tciMemo"), "0");
}

TEST_F(LoadTest, LoadsWithoutOwnerOrUser) {
  const ContextHolder context("CustMaint", "", "");
  EXPECT_EQ(context->UserID(), modUserName::GetUserName());
  EXPECT_EQ(context->TypeCount(), 4);
  EXPECT_EQ(context->OwnerKey(), 0);
  ASSERT_NE(context->RemarkList(), nullptr);
  EXPECT_EQ(context->MemoCount(), 0);

  // Without an owner a refresh neither prompts nor replaces the list.
  context->AddRemark(Number(1), "kept");
  context->RefreshRemarkList();
  EXPECT_EQ(context->MemoCount(), 1);
}

TEST_F(LoadTest, NewOwnerIDLoadsThatOwner) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  const auto list = context->RemarkList();
  RemarkAt(context, 1).SetDirty(true);
  context->SetOwnerID("c1044");
  EXPECT_EQ(context->RemarkList(), list);
  EXPECT_EQ(context->OwnerID(), "C1044");

  m_prompts->answers = {PromptAnswer::No};
  context->SetOwnerID("C1000");
  EXPECT_EQ(context->OwnerName(), "Alder Creek Hardware");
  EXPECT_EQ(context->MemoCount(), 1);
  EXPECT_EQ(m_prompts->shown.size(), 1U);
}

TEST_F(LoadTest, NewOwnerKeyOnlyEmptiesTheList) {
  const ContextHolder context;
  EXPECT_THAT(Caught([&] { context->SetOwnerKey(7); }), HasNumber(ErrorNumber::ObjectNotSet));
  EXPECT_EQ(context->OwnerKey(), 7);

  context->Load("CustMaint", "C1044", "admin");
  const auto list = context->RemarkList();
  RemarkAt(context, 1).SetDirty(true);
  context->SetOwnerKey(46);
  EXPECT_EQ(context->RemarkList(), list);
  EXPECT_EQ(list->Count(), 0);
  EXPECT_FALSE(list->Dirty());
  EXPECT_EQ(context->OwnerName(), "Acme Tools");
}

TEST_F(LoadTest, DatabaseErrorsPassUnchanged) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  EXPECT_THAT(Caught([&] { context->Load(std::string(31, 'X'), "C1044", "admin"); }),
              HasNumber(ErrorNumber::AdoDataConversion));

  m_database.Run("UPDATE ttwRemarkEntity SET AcuityEntityKey = 40000 WHERE RemarkEntityID = 'Customer'");
  EXPECT_THAT(Caught([&] { context->Load("CustMaint", "C1044", "admin"); }), HasNumber(ErrorNumber::Overflow));
  EXPECT_EQ(context->EntityKey(), 40000);
  EXPECT_EQ(context->OwnerName(), "Acme Tools");
  EXPECT_EQ(context->MemoCount(), 0);

  m_database.Run("DROP PROCEDURE spTWCqvGetUserRights");
  EXPECT_THAT(Caught([&] { context->Load("CustMaint", "C1044", "mjones"); }), HasNumber(ErrorNumber::DbStatement));
  EXPECT_EQ(context->UserID(), "mjones");
}

TEST_F(LoadTest, FailedRowsKeepWhatWasReadBefore) {
  const ContextHolder context;
  // Letter case does not matter for rights and remarks, so two types that differ only in case are refused.
  m_database.Run(
      "ALTER PROCEDURE spTWCqvGetRemarkTypes @ContextID varchar(30) AS SELECT 'CUST.CREDIT' AS TypeID, 'Credit' AS "
      "Caption, -1 AS Priority");
  context->Load("CustMaint", "C1044", "admin");
  EXPECT_EQ(context->MemoCount(), 1);
  EXPECT_EQ(context->PopupCount(), 1);
  m_database.Run(
      "ALTER PROCEDURE spTWCqvGetRemarkTypes @ContextID varchar(30) AS SELECT 'A' AS TypeID, 'First' AS Caption, 0 AS "
      "Priority UNION ALL SELECT 'a', 'Second', 0");
  EXPECT_THAT(Caught([&] { context->Load("CustMaint", "C1044", "admin"); }), HasNumber(ErrorNumber::DuplicateKey));
  EXPECT_EQ(context->TypeCount(), 1);

  m_database.Run(
      "ALTER PROCEDURE spTWCqvGetContext @ContextID varchar(30) AS SELECT 'New' AS Caption, 501 AS EntityKey, NULL AS "
      "EntityName, 'spGetCustomerName' AS spGetOwnerName, 1 AS GroupByType, 1 AS AllowRowSizing, 9 AS RowHeight, 0 AS "
      "EditBehavior");
  EXPECT_THAT(Caught([&] { context->Load("CustMaint", "C1044", "admin"); }), HasNumber(ErrorNumber::InvalidUseOfNull));
  EXPECT_EQ(context->Caption(), "New");
  EXPECT_EQ(context->RowHeight(), 2);
}

// A host's columns and the fields of its screens may have a fixed width.
TEST_F(LoadTest, BlanksAroundIdentifiersDoNotCount) {
  m_database.Run(
      "ALTER PROCEDURE spTWCqvGetRemarkTypes @ContextID varchar(30) AS SELECT 'Cust.Credit     ' AS TypeID, 'Credit' "
      "AS Caption, 1 AS Priority");
  m_database.Run(
      "ALTER PROCEDURE spTWCqvGetUserRights @UserID varchar(30) AS SELECT NULL AS TypeID, 1 AS CanCreate, 1 AS "
      "CanRead, 1 AS CanUpdate, 1 AS CanDelete UNION ALL SELECT 'Cust.Credit ', 1, 1, 1, 1");
  m_database.Run("UPDATE tciMemo SET UserID = 'jsmith' + SPACE(20)");
  const std::string blanks(40, ' ');
  const ContextHolder context("CustMaint" + blanks, " C1044" + blanks, "admin" + blanks);
  ASSERT_NE(context->Item("cust.credit"), nullptr);
  EXPECT_EQ(context->Item(Number(1))->CanRead(), 1);
  ASSERT_EQ(context->MemoCount(), 1);
  EXPECT_EQ(RemarkAt(context, 1).UserID(), "jsmith");
}

TEST_F(LoadTest, FailedRefreshKeepsWhatItRead) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  m_database.Run(
      "ALTER PROCEDURE spTWCqvGetFilteredMemos @ContextID varchar(30), @EntityType smallint, @OwnerKey int AS "
      "SELECT MemoType AS TypeID, MemoKey, CASE WHEN MemoKey = 2 THEN NULL ELSE DateStamp END AS DateStamp, UserID, "
      "CASE WHEN MemoKey = 3 THEN NULL ELSE MemoText END AS MemoText FROM tciMemo WHERE OwnerKey = @OwnerKey AND "
      "EntityType = @EntityType ORDER BY MemoKey");
  EXPECT_THAT(Caught([&] { context->RefreshRemarkList(); }),
              IsError(ErrorNumber::InvalidUseOfNull, "Quorvel", "Invalid use of Null (MemoKey 3)"));
  ASSERT_EQ(context->MemoCount(), 3);
  EXPECT_EQ(RemarkAt(context, 2).MemoKey(), 2);
  EXPECT_EQ(RemarkAt(context, 2).DateStamp(), kZeroDate);
  EXPECT_EQ(RemarkAt(context, 3).MemoText(), "");
  EXPECT_EQ(RemarkAt(context, 3).MemoKey(), 3) << "a text typed there belongs to its memo";

  const auto unread = context->RemarkList()->Item(Number(3));
  context->Load("OrderEntry", "SO20001", "admin");
  EXPECT_THAT(Caught([&] { unread->Commit(); }), IsError(-1, "Remark.Commit", HasSubstr("another record")));
}

// Another program can write to the database's file without the engine's conversions.
TEST_F(LoadTest, InvalidDateHidesNoRemark) {
  m_database.Run(
      "INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText) "
      "SELECT 9001, 'Cust.General', 501, 45, GETDATE(), 'admin', 'good' UNION ALL "
      "SELECT 9002, 'Cust.General', 501, 45, '2026-99-99 00:00:00.000', 'admin', 'bad'");
  const ContextHolder context("CustMaint", "C1044", "admin");
  ASSERT_EQ(context->MemoCount(), 9);
  const Remark& bad = RemarkAt(context, 4);
  EXPECT_EQ(bad.MemoText() + " " + FormatDateTime(bad.DateStamp()), "bad 1899-12-30 00:00:00.000");
}

}  // namespace
}  // namespace quorvel::test
