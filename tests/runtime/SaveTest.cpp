// Saving by EditBehavior, new remarks, Dispose, and the windows. ScriptedPrompts and RecordingWindows play the user.

#include <string>
#include <vector>

#include "data/modUserName.h"
#include "runtime/RemarkWindows.h"
#include "tests/runtime/SaveTest.h"

namespace quorvel::test {
namespace {

using testing::HasSubstr;

TEST_F(SaveTest, EditBehaviorDecidesUnlessForced) {
  struct Case {
    int behavior;
    bool force;
    std::vector<PromptAnswer> answers;
    bool isSaved;
  };
  int number = 0;
  for (const Case& each : {Case{0, false, {}, true}, Case{1, false, {}, false},
                           Case{2, false, {PromptAnswer::Yes}, true}, Case{2, false, {PromptAnswer::No}, false},
                           Case{77, false, {}, true}, Case{1, true, {}, true}, Case{2, true, {}, true}}) {
    const ContextHolder context("CustMaint", "C1044", "admin");
    m_prompts->shown.clear();
    m_prompts->answers.assign(each.answers.begin(), each.answers.end());
    context->SetEditBehavior(static_cast<EditBehavior>(each.behavior));
    Remark& remark = RemarkAt(context, 1);
    const std::string text = "change " + std::to_string(++number);
    remark.SetMemoText(text);
    context->Save(false);
    EXPECT_NE(m_database.TextOf(remark.MemoKey()), text) << "a change that is not marked dirty";
    remark.SetDirty(true);
    context->Save(each.force);
    EXPECT_EQ(m_database.TextOf(remark.MemoKey()) == text, each.isSaved) << number;
    EXPECT_EQ(remark.Dirty(), !each.isSaved) << number;
    EXPECT_EQ(m_prompts->shown.size(), each.answers.size()) << number;
    context->SetEditBehavior(EditBehavior::NoAutoSave);
  }
}

TEST_F(SaveTest, AsksBeforeItDeletesARemovedRemark) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  const std::int32_t key = RemarkAt(context, 1).MemoKey();
  context->RemarkList()->Remove(Number(1));
  m_prompts->answers = {PromptAnswer::No, PromptAnswer::Yes};
  m_prompts->pointers.clear();
  context->Save();
  EXPECT_NE(m_database.TextOf(key), "");
  EXPECT_TRUE(context->RemarkList()->Dirty());
  EXPECT_TRUE(m_prompts->pointers.empty());
  context->Save();
  EXPECT_EQ(m_database.TextOf(key), "");
  EXPECT_FALSE(context->RemarkList()->Dirty());
  EXPECT_EQ(m_prompts->pointers, (std::vector{PointerShape::Hourglass, PointerShape::Default})) << "while it writes";
  ASSERT_EQ(m_prompts->shown.size(), 2U);
  EXPECT_EQ(m_prompts->shown[0].text, "Save changes to these remarks?");
  EXPECT_EQ(m_prompts->shown[0].title, "Edit Remarks");
  EXPECT_EQ(m_prompts->shown[0].buttons, PromptButtons::YesNo);
  EXPECT_EQ(m_prompts->shown[0].icon, PromptIcon::Question);
}

TEST_F(SaveTest, NextLoadSavesPendingChanges) {
  const ContextHolder context("OrderEntry", "SO20001", "admin");
  context->AddRemark("ORD.NOTE", "written by the next load", "mjones");
  context->Load("CustInq", "C1044", "admin");
  EXPECT_EQ(OwnerOf("written by the next load"), "801/1");

  // This context has NoAutoSave: the change is dropped without a message.
  context->AddRemark("Cust.General", "dropped");
  context->Load("CustInq", "C1000", "admin");
  EXPECT_EQ(OwnerOf("dropped"), "");
  EXPECT_TRUE(m_prompts->shown.empty());

  // A failed save ends the load, and the remarks stay.
  context->SetEditBehavior(EditBehavior::AutoSaveOnClose);
  context->AddRemark("Cust.General", "kept", std::string(31, 'u'));
  EXPECT_THAT(Caught([&] { context->Load("CustMaint", "C1044", "jsmith"); }),
              HasNumber(ErrorNumber::AdoDataConversion));
  EXPECT_EQ(context->ContextID(), "CustInq");
  EXPECT_EQ(RemarkAt(context, 2).MemoText(), "kept");
}

// A user of 31 characters ends the load when the context and the types of another entity are read already.
TEST_F(SaveTest, FailedLoadTakesNoRemarkFromItsOwner) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  const auto remark = context->RemarkList()->Item(Number(1));
  ChangeText(*remark, "refused first");
  m_prompts->answers = {PromptAnswer::No, PromptAnswer::No, PromptAnswer::Yes};
  EXPECT_THAT(Caught([&] { context->Load("OrderEntry", "SO20001", std::string(31, 'u')); }),
              HasNumber(ErrorNumber::AdoDataConversion));
  EXPECT_EQ(context->EntityKey(), 801);
  const auto notLoaded = [](const char* source) { return IsError(-1, source, "Context has not been loaded"); };
  EXPECT_THAT(Caught([&] { context->AddRemark("Ord.Note", "for no owner"); }), notLoaded("RemarkContext.AddRemark"));
  EXPECT_THAT(Caught([&] { context->RefreshRemarkList(); }), notLoaded("RemarkContext.RefreshRemarkList"));
  EXPECT_THAT(Caught([&] { remark->Commit(); }), notLoaded("Remark.Commit"));
  EXPECT_THAT(Caught([&] { context->EditMemos(); }), notLoaded("RemarkContext.EditMemos"));
  EXPECT_THAT(Caught([&] { context->RemarkList()->Add(); }), IsError(-1, "RemarkList.Add", HasSubstr("were not read")));
  EXPECT_EQ(OwnerOf("refused first"), "");
  context->Load("OrderEntry", "SO20001", "admin");
  EXPECT_EQ(OwnerOf("refused first"), "501/45");

  // The host still has the remark.
  remark->SetMemoText("taken along");
  remark->SetMemoKey(remark->MemoKey());
  EXPECT_THAT(Caught([&] { remark->Commit(); }), IsError(-1, "Remark.Commit", HasSubstr("another record")));
  EXPECT_EQ(OwnerOf("taken along"), "");

  // An assigned key does not say of which entity it is.
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  context->AddRemark("Ord.Note", "restored");
  context->RemarkList()->Backup();
  EXPECT_THAT(Caught([&] { context->Load("CustMaint", "C1044", std::string(31, 'u')); }),
              HasNumber(ErrorNumber::AdoDataConversion));
  context->SetOwnerKey(45);
  context->RemarkList()->Restore();
  EXPECT_THAT(Caught([&] { context->Save(true); }), IsError(-1, "RemarkList.Save", HasSubstr("is not known")));
  EXPECT_EQ(OwnerOf("restored"), "");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  EXPECT_THAT(Caught([&] { context->SetOwnerID(""); }), notLoaded("RemarkContext.LoadMemos"));
  EXPECT_THAT(Caught([&] { context->RemarkList()->Add(); }), IsError(-1, "RemarkList.Add", HasSubstr("were not read")));
  EXPECT_FALSE(context->RemarkList()->Origin().owner);

  m_database.Run("DROP PROCEDURE spTWCqvGetFilteredMemos");
  EXPECT_THAT(Caught([&] { context->Load("CustMaint", "C1000", "admin"); }), HasNumber(ErrorNumber::DbStatement));
  EXPECT_THAT(Caught([&] { context->AddRemark("Cust.General", "for the record still shown"); }),
              notLoaded("RemarkContext.AddRemark"));

  const ContextHolder first;
  EXPECT_THAT(Caught([&] { first->Load("nowhere"); }), HasNumber(ErrorNumber::Component));
  EXPECT_THAT(Caught([&] { first->EditMemos(); }), notLoaded("RemarkContext.EditMemos"));
}

// The host still shows the former record.
TEST_F(SaveTest, OwnerWhoseRemarksCouldNotBeReadTakesNoneUntilTheyAre) {
  const std::string head =
      "ALTER PROCEDURE spTWCqvGetFilteredMemos @ContextID varchar(30), @EntityType smallint, @OwnerKey int AS ";
  const ContextHolder context("CustMaint", "C1044", "admin");
  m_database.Run(head + "SELECT Missing = 1");
  const auto fails = [&](const std::string& source, const auto& call) {
    EXPECT_THAT(Caught(call), IsError(-1, source, HasSubstr("were not read"))) << source;
  };
  EXPECT_THAT(Caught([&] { context->SetOwnerID("C1007"); }), HasNumber(ErrorNumber::AdoItemNotFound));
  EXPECT_THAT(Caught([&] { context->RefreshRemarkList(); }), HasNumber(ErrorNumber::AdoItemNotFound));
  fails("RemarkContext.AddRemark", [&] { context->AddRemark("Cust.General", "for the record still shown"); });
  fails("RemarkList.Add", [&] { context->RemarkList()->Add(); });
  fails("RemarkContext.EditMemos", [&] { context->EditMemos(); });
  Remark alone;
  alone.SetRemarkType(context->Item("Cust.General"));
  fails("Remark.Commit", [&] { alone.Commit(); });
  m_database.Run(head +
                 "SELECT TypeID = MemoType, MemoKey, DateStamp, UserID, MemoText FROM tciMemo "
                 "WHERE EntityType = @EntityType AND OwnerKey = @OwnerKey");
  context->RefreshRemarkList();
  context->AddRemark("Cust.General", "for the record shown again", "admin");
  context->Save(true);
  EXPECT_EQ(OwnerOf("for the record shown again"), "501/8");

  m_database.Run(head + "SELECT Missing = 1");
  EXPECT_THAT(Caught([&] { context->SetOwnerID("C1044"); }), HasNumber(ErrorNumber::AdoItemNotFound));
  context->SetOwnerKey(3);
  context->AddRemark("Cust.General", "for the chosen owner", "admin");
  context->Save(true);
  EXPECT_EQ(OwnerOf("for the chosen owner"), "501/3");
}

TEST_F(SaveTest, FormerRemarksKeepOwnerAndAuthorAfterAnotherLoad) {
  const ContextHolder context("CustMaint", "C1044", "jsmith");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  context->AddRemark("Cust.General", "new for C1044", "jsmith");
  const auto added = context->RemarkList()->Item(Number(context->MemoCount()));
  ChangeText(RemarkAt(context, 1), "without author");
  context->RemarkList()->Backup();
  context->RemarkList()->Restore();
  EXPECT_THAT(Caught([&] { context->Load("CustMaint", "C1007", std::string(31, 'u')); }),
              HasNumber(ErrorNumber::AdoDataConversion));
  context->Save(true);
  EXPECT_EQ(m_database.Ask("SELECT UserID FROM tciMemo WHERE MemoText = 'without author'"), "jsmith");
  context->Load("CustMaint", "C1007", "jsmith");
  EXPECT_THAT(Caught([&] { added->Commit(); }), IsError(-1, "Remark.Commit", HasSubstr("another record")));
}

TEST_F(SaveTest, RemarkIsSavedForTheOwnerThatTheHostChose) {
  const ContextHolder context("OrderEntry", "SO20001", "admin");
  const auto list = context->RemarkList();
  context->AddRemark("Ord.Note", "of the former owner");
  context->SetEditBehavior(EditBehavior::NoAutoSave);
  EXPECT_THAT(Caught([&] { context->SetOwnerID("nowhere"); }), HasNumber(ErrorNumber::Component));
  EXPECT_THAT(Caught([&] { context->AddRemark("Ord.Note", "for no owner"); }),
              IsError(-1, "RemarkContext.AddRemark", HasSubstr("owner of these remarks is not known")));
  const auto lost = context->RemarkList()->Add();
  lost->SetUserID("admin");
  lost->SetDirty(true);
  EXPECT_THAT(Caught([&] { context->Save(true); }), HasNumber(ErrorNumber::Component));
  EXPECT_EQ(MemoCount(), kMemosOfSample);

  context->SetOwnerKey(3);
  context->AddRemark("Ord.Note", "of the chosen owner");
  context->Save(true);
  list->Save();
  EXPECT_EQ(OwnerOf("of the chosen owner"), "801/3");
  EXPECT_EQ(OwnerOf("of the former owner"), "801/1");
}

TEST_F(SaveTest, HostMayChangeEverythingWhileTheUserIsAsked) {
  struct Case {
    const char* text;
    void (*act)(RemarkContext& context);
    std::string owner;
  };
  const Case cases[] = {{"disposed", [](RemarkContext& context) { context.Dispose(); }, ""},
                        {"cleared", [](RemarkContext& context) { context.RemarkList()->Clear(false); }, ""},
                        {"replaced",
                         [](RemarkContext& context) {
                           const auto expectRefusal = [](const auto& call) {
                             EXPECT_THAT(Caught(call).Description(), HasSubstr("is being asked"));
                           };
                           expectRefusal([&] { context.Load("OrderEntry", "SO20001", "admin"); });
                           expectRefusal([&] { context.SetOwnerID("C1007"); });
                           expectRefusal([&] { context.SetOwnerKey(3); });
                           expectRefusal([&] { context.RefreshRemarkList(); });
                         },
                         "501/45"}};
  for (const Case& each : cases) {
    for (const bool byRefresh : {false, true}) {
      const std::string text = std::string(each.text) + (byRefresh ? " by a refresh" : "");
      const ContextHolder context("CustMaint", "C1044", "admin");
      ChangeText(RemarkAt(context, 1), text);
      m_prompts->answers = {PromptAnswer::Yes};
      m_prompts->meanwhile = [&] { each.act(*context); };
      byRefresh ? context->RefreshRemarkList() : context->Save();
      EXPECT_EQ(OwnerOf(text), each.owner) << text;
      EXPECT_TRUE(m_prompts->answers.empty()) << text;
    }
  }
}

// On Windows a handler of the host may run while a statement waits for another program's lock.
TEST_F(SaveTest, HostMayChangeTheListWhileASaveWaits) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  const auto list = context->RemarkList();
  const auto writer = m_database.Connect();
  const auto saveDuring = [&](const auto& change) {
    writer->Execute("BEGIN TRANSACTION");
    m_prompts->meanwhile = [&] {
      change();
      writer->Execute("COMMIT");
    };
    list->Save();
  };
  list->Remove(Number(1));
  saveDuring([&] { list->Remove(Number(1)); });
  EXPECT_TRUE(list->Dirty());
  list->Save();
  EXPECT_FALSE(list->Dirty());
  EXPECT_EQ(MemoCount(), "2040");
  context->AddRemark("Cust.General", "for its own owner", "admin");
  saveDuring([&] {
    EXPECT_THAT(Caught([&] { RemarkAt(context, 1).Commit(); }).Description(), HasSubstr("waits for another program"));
    for (int i = 0; i < 100; ++i) list->Add();
    context->SetOwnerKey(3);
    context->Dispose();
  });
  EXPECT_EQ(OwnerOf("for its own owner"), "501/45");
}

// The older copy of the database has another owner's memo under the key, or another text.
TEST_F(SaveTest, AddRemarkWorksInMemoryUntilSaved) {
  const ContextHolder context("CustMaint", "C1044", "guest");
  // Rights do not matter here; the author is the logon name, not the user of the context.
  context->AddRemark("cust.internal", "  spaced  ");
  context->AddRemark(Number(1), "by another", " mjones ");
  EXPECT_EQ(RemarkAt(context, 1).UserID(), modUserName::GetUserName());
  EXPECT_EQ(RemarkAt(context, 1).MemoKey(), 0);
  EXPECT_TRUE(RemarkAt(context, 1).Dirty());
  EXPECT_EQ(MemoCount(), kMemosOfSample);

  context->Save(true);
  EXPECT_EQ(RemarkAt(context, 1).MemoKey(), 2043);
  EXPECT_EQ(RemarkAt(context, 1).MemoText(), "  spaced  ");
  EXPECT_EQ(m_database.Ask("SELECT '[' + MemoText + '] ' + UserID FROM tciMemo WHERE MemoKey = 2044"),
            "[by another] mjones");
  EXPECT_EQ(m_database.TextOf(2043), "spaced");
  EXPECT_EQ(m_database.Ask("SELECT OwnerKey FROM tciMemo WHERE MemoKey = 2043"), "45");
}

TEST_F(SaveTest, DisposeForgetsWithoutSaving) {
  std::weak_ptr<RemarkContext> watched;
  {
    const auto context = RemarkContext::Create();
    watched = context;
    context->Load("OrderEntry", "SO20001", "admin");
    const auto list = context->RemarkList();
    const auto remark = list->Item(Number(1));
    context->AddRemark("Ord.Note", "never written");
    context->Dispose();
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(context->TypeCount() + context->MemoCount() + context->PopupCount() + context->CreateableTypes(), 0);
    EXPECT_EQ(context->Item(Number(1)), nullptr);
    EXPECT_EQ(context->RemarkList(), nullptr);
    EXPECT_FALSE(context->CanUpdate(1));
    EXPECT_EQ(MemoCount(), kMemosOfSample);
    // A remark that the host still holds has lost its owner and must not be written.
    EXPECT_EQ(remark->OwnerKey(), 0);
    EXPECT_THAT(Caught([&] { remark->Commit(); }), HasNumber(ErrorNumber::ObjectNotSet));

    context->Load("CustMaint", "C1044", "admin");
    EXPECT_EQ(context->MemoCount(), 7);
    context->Dispose();
  }
  EXPECT_TRUE(watched.expired());
}

/// Records its calls. While its editor is open, a timer of the host tries to change the owner.
struct RecordingWindows : RemarkWindows {
  void ViewPopup(RemarkContext& context) override { calls += "popup " + std::to_string(context.MemoCount()) + ";"; }
  void ViewEdit(RemarkContext& context) override {
    calls += "edit " + std::to_string(context.MemoCount()) + ";";
    EXPECT_THAT(Caught([&] { context.Load("OrderEntry", "SO20003", "admin"); }),
                IsError(-1, "RemarkContext.Load", HasSubstr("editor")));
    EXPECT_THAT(Caught([&] { context.SetOwnerID("C1000"); }),
                IsError(-1, "RemarkContext.OwnerID", HasSubstr("editor")));
    EXPECT_THAT(Caught([&] { context.SetOwnerKey(3); }), IsError(-1, "RemarkContext.OwnerKey", HasSubstr("editor")));
    context.Save(true);
  }
  void ViewManager(std::int32_t modal) override { calls += "manager " + std::to_string(modal) + ";"; }

  std::string calls;
};

TEST_F(SaveTest, WindowsGetTheLoadedContextAndTheEditorKeepsItsOwner) {
  const ContextHolder context;
  context->Popup("CustMaint", "C1006", "jsmith");
  EXPECT_EQ(context->PopupCount(), 0) << "without windows only a pop-up of nothing succeeds";

  const auto windows = std::make_shared<RecordingWindows>();
  ExchangeRemarkWindows(windows);
  context->Popup("CustMaint", "C1044", "jsmith");
  context->Edit("CustMaint", "C1044", "mjones");
  m_database.Run("DELETE FROM tciMemo WHERE OwnerKey = 45 AND MemoType = 'Cust.Credit'");
  context->PopupMemos();
  context->PopupMemos(true);
  ChangeText(RemarkAt(context, 1), "stays with its owner");
  context->EditMemos();
  context->ViewManager();
  EXPECT_EQ(ExchangeRemarkWindows(nullptr), windows);
  EXPECT_EQ(windows->calls, "popup 6;edit 4;popup 4;popup 3;edit 3;manager 0;");
  EXPECT_EQ(m_database.Ask("SELECT OwnerKey FROM tciMemo WHERE MemoText = 'stays with its owner'"), "45");
  context->SetOwnerID("C1000");
  EXPECT_EQ(context->OwnerID(), "C1000");
}

}  // namespace
}  // namespace quorvel::test
