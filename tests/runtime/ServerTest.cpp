// The component on a stand-in server, through the driver manager, a real driver and the network.

#include <algorithm>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "data/modDatabase.h"
#include "runtime/RemarkContext.h"
#include "tests/runtime/OnServer.h"
#include "tests/runtime/RuntimeTest.h"
#include "tests/support/FailingCall.h"

namespace quorvel::test {
namespace {

using modDatabase::ExecSP;
using modDatabase::LoadRst;
using modDatabase::SharedConnection;
using testing::Each;
using testing::Eq;
using testing::UnorderedElementsAre;

constexpr int kMemosOfOwner = 7;

using ServerTest = OnServer;

void AddRemark(const ContextHolder& context, const std::string& text) {
  context->AddRemark("Cust.General", text, "admin");
}

TEST_F(ServerTest, SendsOnlyWhatIsNeededAndNothingToWrongParameters) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  EXPECT_THAT(m_server.Requests(),
              ElementsAre(kContextTypesRights, "call spGetCustomerName", "call spTWCqvGetFilteredMemos"));
  m_server.ForgetRequests();
  AddRemark(context, "one");
  AddRemark(context, "two");
  context->Save(true);
  EXPECT_THAT(m_server.Requests(),
              ElementsAre("call sp_sproc_columns", "call spGetNextSurrogateKey", "call sp_sproc_columns",
                          "call spTWCqvAddRemark", "call spGetNextSurrogateKey", "call spTWCqvAddRemark"));
  EXPECT_EQ(m_server.Logins(), 1);

  m_file.Run(
      "ALTER PROCEDURE spTWCqvAddRemark @OwnerKey int, @MemoType varchar(30), @EntityType smallint, @MemoKey int, "
      "@MemoText nvarchar(max), @UserID varchar(30) AS "
      "INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText) "
      "VALUES (@MemoKey, @MemoType, @EntityType, @OwnerKey, GETDATE(), @UserID, @MemoText)");
  AddRemark(context, "after another order of the parameters");
  context->Save(true);
  EXPECT_EQ(m_file.Ask("SELECT OwnerKey FROM tciMemo WHERE MemoText = 'after another order of the parameters'"), "45");
}

// On Windows a handler of the host may run while the embedded engine waits. On a server each call stands for a wait.
TEST_F(ServerTest, HostMayAddRemarksOrDisposeWhileALoadWaits) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  FailingCall none(0);
  none.meanwhile = [&] {
    EXPECT_EQ(Caught([&] { AddRemark(context, "of C1044"); }).Number(), ErrorNumber::Component);
    EXPECT_EQ(Caught([&] { context->RemarkList()->Add(); }).Number(), ErrorNumber::Component);
  };
  context->SetOwnerID("C1000");
  EXPECT_EQ(context->MemoCount(), 1);
  none.meanwhile = [&] { context->Dispose(); };
  context->Load("CustMaint", "C1044", "admin");
  EXPECT_EQ(context->MemoCount(), 0);
}

TEST_F(ServerTest, LoadRstReplacesALostConnectionOnce) {
  m_server.DropConnections();
  const auto groups = LoadRst("SELECT GroupID FROM ttwGroup");
  ASSERT_TRUE(groups);
  EXPECT_FALSE(groups->EndOfFile());
  EXPECT_EQ(m_server.Logins(), 2);

  m_server.DropAmidRows(1);
  const auto memos = LoadRst("SELECT MemoKey, MemoText FROM tciMemo");
  ASSERT_TRUE(memos);
  EXPECT_EQ(std::to_string(memos->RecordCount()), kMemosOfSample);
  m_server.DropAmidRows(1);
  const auto keys = LoadRst("SELECT MemoKey FROM tciMemo");
  ASSERT_TRUE(keys);
  EXPECT_EQ(std::to_string(keys->RecordCount()), kMemosOfSample) << "rows that come in blocks";
  EXPECT_EQ(m_server.Logins(), 4);
  EXPECT_THAT(m_prompts->shown, IsEmpty());
}

TEST_F(ServerTest, NextSaveAfterALossWritesEverythingOnce) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  AddRemark(context, "its answer gets lost");
  AddRemark(context, "not sent before");
  const auto former = ConnectionNow();
  // Two discoveries and the key come before the remark.
  m_server.DropAfterRequest(4);
  EXPECT_NE(Caught([&] { context->Save(true); }).Number(), 0);
  EXPECT_EQ(former->Errors().at(0).sqlState, "08S01");
  EXPECT_EQ(SharedConnection(), nullptr);
  EXPECT_EQ(MemoCount(), "2043");
  context->Save(true);
  EXPECT_FALSE(context->RemarkList()->Dirty());
  EXPECT_EQ(MemoCount(), "2044");
  EXPECT_EQ(m_server.Logins(), 2);

  m_server.DropConnections();
  EXPECT_EQ(Caught([&] {
              ExecSP("spTWCAddGroup", {{"@GroupID", std::string("Late")}});
            }).Number(),
            ErrorNumber::DbUnspecified);
  modDatabase::UpdateField("ttwGroup", "Caption", std::string("Of the next connection"), "GroupID",
                           std::string("Default"));
  m_server.DropAmidRows(1);
  EXPECT_NE(Caught([&] { context->Load("CustMaint", "C1044", "admin"); }).Number(), 0) << "half a result";
  context->Load("CustMaint", "C1044", "admin");
  EXPECT_EQ(m_server.Logins(), 4);

  const auto connection = ConnectionNow();
  m_server.DropConnections();
  EXPECT_THAT(Caught([&] { connection->Execute("SELECT 1"); }).Description(),
              HasSubstr("is lost. It is not known whether the statement was carried out."));
  EXPECT_EQ(connection->Errors().at(0).sqlState, "08S01");
}

// A host may write a memo of its own under the key that the insert has not used.
TEST_F(ServerTest, CharacterThatTheServerLacksFailsNoOtherCall) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  const ContextHolder other;
  AddRemark(context, "typed");
  for (const bool isOwner : {true, false}) {
    EXPECT_NE(
        Caught([&] { other->Load(isOwner ? "CustMaint" : "日本", isOwner ? "日本" : "C1000", "admin"); }).Number(), 0);
    context->Save(true);
    EXPECT_EQ(m_file.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'typed'"), "1");
    RemarkAt(context, 1).SetDirty(true);
  }
}

TEST_F(ServerTest, RemovedRemarkWithoutAnAnswerDeletesNoForeignMemo) {
  for (const bool isStored : {false, true}) {
    const ContextHolder context("CustMaint", "C1044", "admin");
    AddRemark(context, "removed");
    // Two discoveries and the key come before the remark.
    isStored ? m_server.DropAfterRequest(4) : m_server.DropAtRequest(4);
    EXPECT_NE(Caught([&] { context->Save(true); }).Number(), 0);
    EXPECT_EQ(m_file.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'removed'"), isStored ? "1" : "0");
    if (!isStored) m_file.StoreMemo(2043, "of another owner", "Cust.General", 3);
    context->RemarkList()->Remove(std::int64_t{context->MemoCount()});
    context->Save(true);
    EXPECT_EQ(MemoCount(), "2043");
    EXPECT_EQ(m_file.Ask("SELECT OwnerKey FROM tciMemo WHERE MemoKey = 2043"), "3");
  }
}

// The memos of the host belong to the same owner; the context shows those of one type only.
TEST_F(ServerTest, KeyThatAHostTakesAfterALostAnswerIsLeftToTheHost) {
  for (const std::string type : {"Cust.General", "Ord.Note", ""}) {
    for (const bool isRemoved : {false, true}) {
      modDatabase::OpenConnection();
      const ContextHolder context("CustMaint", "C1044", "admin");
      context->SetEditBehavior(EditBehavior::NoAutoSave);
      AddRemark(context, "typed");
      const auto remark = context->RemarkList()->Item(std::int64_t{context->MemoCount()});
      // Two discoveries and the key come before the remark.
      type.empty() ? m_server.DropAfterRequest(4) : m_server.DropAtRequest(4);
      EXPECT_NE(Caught([&] { context->Save(true); }).Number(), 0);
      const std::int32_t key = remark->MemoKey();
      if (!type.empty()) m_file.StoreMemo(key, "of the host", type);
      remark->SetMemoText("typed on");
      if (isRemoved) context->RemarkList()->Remove(std::int64_t{context->MemoCount()});
      if (type == "Ord.Note" && !isRemoved) {
        EXPECT_EQ(Caught([&] { context->Save(true); }).Number(), ErrorNumber::DbIntegrity);
      }
      context->Save(true);
      EXPECT_EQ(m_file.TextOf(key), !type.empty() ? "of the host" : isRemoved ? "" : "typed on") << type;
      EXPECT_EQ(m_file.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText = 'typed on'"), isRemoved ? "0" : "1") << type;
      m_file.Run("DELETE FROM tciMemo WHERE MemoText = 'typed on'");
    }
  }
  for (const bool isDeleted : {true, false}) {
    modDatabase::OpenConnection();
    const ContextHolder context("CustMaint", "C1044", "admin");
    const std::int32_t key = RemarkAt(context, 1).MemoKey();
    RemarkAt(context, 1).SetMemoText("changed before it was removed");
    context->RemarkList()->Remove(std::int64_t{1});
    // One discovery comes before the delete.
    isDeleted ? m_server.DropAfterRequest(2) : m_server.DropAtRequest(2);
    EXPECT_NE(Caught([&] { context->Save(true); }).Number(), 0);
    EXPECT_EQ(m_file.TextOf(key).empty(), isDeleted);
    if (isDeleted) {
      m_file.StoreMemo(key, "of the host");
      EXPECT_EQ(Caught([&] { context->Save(true); }).Number(), ErrorNumber::Component) << "told once";
      EXPECT_TRUE(context->RemarkList()->Dirty());
    }
    context->Save(true);
    EXPECT_EQ(m_file.TextOf(key), isDeleted ? "of the host" : "");
    if (isDeleted) m_file.Run("DELETE FROM tciMemo WHERE UserID = 'host'");
  }
}

TEST_F(ServerTest, ParametersThatNoLongerFitAreAskedAgain) {
  modDatabase::EnsureConnection();
  const modDatabase::KeptParameters parameters;
  const auto add = [](const char* parameter, const std::string& id) { ExecSP("spTWCAddGroup", {{parameter, id}}); };
  add("@GroupID", "first");
  const std::string text(31, 'w');
  const auto refused = [&] { return Caught([&] { add("@GroupID", text); }).Number(); };
  EXPECT_EQ(refused(), ErrorNumber::AdoDataConversion);
  m_file.Run(
      "ALTER PROCEDURE spTWCAddGroup @GroupID varchar(40) AS INSERT INTO ttwGroup (GroupID) VALUES "
      "(LEFT(@GroupID, 30))");
  add("@GroupID", text);
  m_file.Run(
      "ALTER PROCEDURE spTWCAddGroup @Caption varchar(40), @GroupID varchar(40) AS INSERT INTO ttwGroup "
      "(GroupID, Caption) VALUES (@GroupID, @Caption)");
  ExecSP("spTWCAddGroup", {{"@GroupID", std::string("second")}, {"@Caption", std::string("new")}});
  m_file.Run(
      "ALTER PROCEDURE spTWCAddGroup @GroupID varchar(40) AS INSERT INTO ttwGroup (GroupID, Caption) VALUES "
      "(@GroupID, 'one')");
  add("@GroupID", "third");
  EXPECT_EQ(m_file.Ask("SELECT COUNT(*) FROM ttwGroup WHERE Caption IN ('new', 'one') OR GroupID LIKE 'www%'"), "3");
  EXPECT_EQ(m_server.Logins(), 1);
}

TEST_F(ServerTest, EveryRecordOfABatchIsKeptAndShown) {
  const std::string sql = "EXEC Many";
  const Part rowCount{Part::Kind::RowCount, {}, 3, {}, {}};
  m_server.AnswerWith(sql, {Message("a word"), OneRow(), Failure("first"), rowCount, Failure("second"), OneRow(),
                            Failure("third"), Message("a late word")});
  EXPECT_EQ(Caught([&] { SharedConnection()->Execute(sql); }).Description(), "first");
  std::vector<std::string> records;
  for (const auto& record : SharedConnection()->Errors()) records.push_back(record.description);
  EXPECT_THAT(records, UnorderedElementsAre("a word", "first", "second", "third", "a late word"));

  EXPECT_EQ(LoadRst(sql), nullptr);
  ASSERT_THAT(m_prompts->shown, SizeIs(1));
  const std::string& report = m_prompts->shown[0].text;
  EXPECT_THAT(report, StartsWith("first\r\nSQL=EXEC Many\r\nAdditional Information:\r\n"));
  for (const std::string& record : records) EXPECT_THAT(report, HasSubstr("ErrMsg 0: " + record + "\r\n"));
}

TEST_F(ServerTest, LoadRstTreatsAWarningAsAFailure) {
  m_server.AnswerWith("SELECT 1", {Message("mind this"), OneRow(), Message("and this")});
  EXPECT_EQ(LoadRst("SELECT 1"), nullptr);
  ASSERT_THAT(m_prompts->shown, SizeIs(1));
  EXPECT_EQ(m_prompts->shown[0].text,
            "Unknown error in LoadRst\r\nAdditional Information:\r\nErrMsg 0: mind this\r\n"
            "ErrMsg 0: and this\r\n");
}

TEST_F(ServerTest, SlowStatementIsATimeout) {
  SharedConnection()->SetCommandTimeout(std::chrono::seconds(1));
  m_server.DelayAnswers(std::chrono::seconds(5));
  EXPECT_EQ(Caught([] { SharedConnection()->Execute("SELECT GroupID FROM ttwGroup"); }).Number(),
            ErrorNumber::DbTimeout);
}

/// Connects, loads, changes one remark and adds one. Returns the error, if any.
std::optional<Error> LoadAndSave(int& loaded) {
  const ContextHolder context;
  try {
    modDatabase::OpenConnection();
    context->Load("CustMaint", "C1044", "admin");
    loaded = context->RemarkList()->Count();
    ChangeText(RemarkAt(context, 1), "changed");
    AddRemark(context, "added");
    context->Save(true);
    return std::nullopt;
  } catch (const Error& error) {
    return error;
  }
}

/// Both ends of each connection are in this process.
std::ptrdiff_t CountSockets() {
  return std::count_if(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator(),
                       [](const std::filesystem::directory_entry& file) {
                         std::error_code gone;
                         return std::filesystem::read_symlink(file.path(), gone).string().starts_with("socket:");
                       });
}

TEST_F(ServerTest, AnyFailedCallIsAnErrorAndNothingIsHalfDone) {
  std::vector<std::string> silent;
  const std::ptrdiff_t sockets = CountSockets();
  int number = 0;
  for (std::string failed = "the first"; !failed.empty();) {
    m_file.Run("DELETE FROM tciMemo WHERE MemoText = 'added'");
    int loaded = 0;
    std::optional<Error> error;
    {
      FailingCall failing(++number);
      error = LoadAndSave(loaded);
      failed = failing.failed;
      // Each new connection replaces an open one.
      EXPECT_TRUE(!failed.empty() || failing.handles == 0) << failing.handles;
    }
    ASSERT_TRUE(loaded == 0 || loaded == kMemosOfOwner) << loaded << ", call " << number << " " << failed;
    const bool isAdded = MemoCount() != kMemosOfSample;
    if (error) {
      // Failures of the owner procedure have one description.
      EXPECT_THAT(error->Description(), AnyOf(HasSubstr(failed), Eq("Context has not been loaded"))) << number;
    } else {
      EXPECT_TRUE(isAdded) << number << failed;
      silent.push_back(failed);
    }
  }
  EXPECT_GT(number, 100);
  // A failed connect must close its connection. The server closes its ends in other threads.
  for (int i = 0; i < 100 && CountSockets() > sockets; ++i) std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_LE(CountSockets(), sockets);
  // Only releasing a handle and reading a diagnostic field may fail without an error.
  EXPECT_THAT(silent, Each(AnyOf("SQLFreeHandle", "SQLDisconnect", "SQLGetDiagField", "SQLGetDiagRec", "")));
}

}  // namespace
}  // namespace quorvel::test
