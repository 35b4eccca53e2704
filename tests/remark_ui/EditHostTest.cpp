// The editor while a timer of the host changes the context and its list.

#include <algorithm>
#include <functional>
#include <string>

#include <wx/listbox.h>

#include "tests/remark_ui/EditTest.h"

namespace quorvel::test {
namespace {

constexpr const char* kCountGenerals = "SELECT COUNT(*) FROM tciMemo WHERE OwnerKey = 45 AND MemoType = 'Cust.General'";

// A timer of the host runs while a window of the component is open.
TEST_F(EditTest, HostMayDisposeOfTheContextInTheMiddle) {
  const auto typeAndClose = [&](const ContextHolder& context, const std::function<void()>& before) {
    ViewAndClose(context, [&] {
      Go(1);
      Type("typed before the host let go");
      before();
    });
  };
  {
    const ContextHolder context("CustMaint", "C1044", "admin");
    m_prompts->answers = {PromptAnswer::Yes};
    m_prompts->meanwhile = [&] { context->Dispose(); };
    typeAndClose(context, [] {});
  }
  const ContextHolder context("CustMaint", "C1044", "admin");
  const auto chooseWithoutContext = [&] {
    ClickNew([&](frmChooseType& dialog) {
      context->Dispose();
      Press(dialog, "cmdOK");
    });
  };
  typeAndClose(context, chooseWithoutContext);
  context->Load("CustMaint", "C1044", "admin");
  EXPECT_THAT(Caught([&] { typeAndClose(context, [&] { context->Dispose(); }); }), HasNumber(ErrorNumber::ObjectNotSet))
      << "the host is told that the text has no remark any more";
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText LIKE 'typed before%'"), "0");
}

/// A change that a timer of the host makes to the list while the editor is open.
struct ListChange {
  std::string name;
  void (*make)(RemarkContext& context, const TestDatabase& database);
};

void InsertFirst(RemarkContext& context, const TestDatabase& database) {
  database.StoreMemo(3000, "of another user just now", "Cust.AR.Coll");
  context.RefreshRemarkList();
}

const ListChange kListChanges[] = {
    {"refresh", InsertFirst},
    {"remove another", [](RemarkContext& context, const TestDatabase&) { context.RemarkList()->Remove(Number(1)); }},
    {"restore", [](RemarkContext& context, const TestDatabase&) { context.RemarkList()->Restore(); }},
    {"add", [](RemarkContext& context, const TestDatabase&) { context.AddRemark("Cust.AR.Coll", "by the host"); }},
    {"remove", [](RemarkContext& context, const TestDatabase&) { context.RemarkList()->Remove(Number(kGeneral)); }},
    {"clear", [](RemarkContext& context, const TestDatabase&) { context.RemarkList()->Clear(); }},
    {"clear", [](RemarkContext& context, const TestDatabase&) { context.RemarkList()->Clear(false); }},
    {"refresh and remove",
     [](RemarkContext& context, const TestDatabase&) {
       context.RefreshRemarkList();
       context.RemarkList()->Remove(Number(kGeneral));
     }},
};

// The user goes to the row after the change or before it, and the window may have noticed the change or not.
TEST_F(EditTest, DeleteRemovesTheRemarkThatIsSeenWhateverTheHostDoesToTheList) {
  for (const ListChange& change : kListChanges) {
    for (const std::string when : {"before", "after", "noticed"}) {
      const TestDatabase database;
      const ContextHolder context("CustMaint", "C1044", "admin");
      context->SetEditBehavior(EditBehavior::NoAutoSave);
      context->RemarkList()->Backup();
      const std::string key = std::to_string(RemarkAt(context, kGeneral).MemoKey());
      ViewAndClose(context, [&] {
        if (when != "before") Go(kGeneral);
        change.make(*context, database);
        if (when == "before") Go(kGeneral);
        if (when == "noticed") HandleEvents();
        if (CanPress("cmdDelete")) Click("cmdDelete");
        HandleEvents();
        EXPECT_EQ(Position(), 0);
        EXPECT_FALSE(CanPress("cmdDelete")) << change.name;
      });
      context->Save(true);
      const bool isForgotten = change.name == "clear";
      const std::string left = isForgotten ? "1" : "0";
      EXPECT_EQ(database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoKey = " + key), left) << change.name << when;
      EXPECT_EQ(database.Ask(kCountGenerals), isForgotten ? "3" : "2") << change.name << when;
    }
  }
}

TEST_F(EditTest, TypedTextGoesToItsOwnMemoOnceWhateverTheHostDoesToTheList) {
  for (const ListChange& change : kListChanges) {
    for (const std::string ending : {"cmdSave", "cmdClose", "another row", "cmdNew", "cmdSave of a new one"}) {
      SCOPED_TRACE(change.name + (", " + ending));
      const bool isNew = ending.ends_with("new one");
      const TestDatabase database;
      const ContextHolder context("CustMaint", "C1044", "admin");
      context->SetEditBehavior(EditBehavior::NoAutoSave);
      context->RemarkList()->Backup();
      const std::string key = std::to_string(RemarkAt(context, kGeneral).MemoKey());
      ViewAndClose(context, [&] {
        isNew ? ClickNew("General") : Go(kGeneral);
        Type("typed");
        change.make(*context, database);
        if (ending != "cmdClose") HandleEvents();
        EXPECT_EQ(Text(), "typed");
        if (ending == "another row") Grid().SelectLine(2);
        if (ending.starts_with("cmdSave")) Click("cmdSave");
        if (ending == "cmdNew") ClickNew("General");
      });
      context->Save(true);
      const std::string typed = database.Ask("SELECT MemoKey FROM tciMemo WHERE MemoText = 'typed'");
      EXPECT_EQ(typed != key, isNew);
      const std::int32_t removed = isNew && change.name.ends_with("remove") ? 1 : 0;
      EXPECT_EQ(database.Ask(kCountGenerals), std::to_string(isNew ? 4 - removed : 3));
      const auto& items = *context->RemarkList()->Items();
      EXPECT_EQ(std::ranges::count(items, typed, [](const auto& each) { return std::to_string(each->MemoKey()); }), 1);
    }
  }
}

TEST_F(EditTest, HostThatReadsTheListAgainScrollsNothingAway) {
  const ContextHolder context("CustMaint", "C1044", "admin");
  for (int i = 0; i < 100; ++i) context->AddRemark("Cust.General", "one of many");
  context->Save(true);
  ViewAndClose(context, [&] {
    HandleEvents();
    Grid().Scroll(0, 30);
    HandleEvents();
    const wxPoint view = Grid().GetViewStart();
    EXPECT_GT(view.y, 0);
    InsertFirst(*context, m_database);
    HandleEvents();
    EXPECT_EQ(Grid().GetViewStart(), view);
    EXPECT_EQ(RemarkAt(context, Position()).MemoKey(), 7) << "the row that was selected";
  });
}

}  // namespace
}  // namespace quorvel::test
