// Operations of every manager with each of their ODBC calls failing once, and with the connection cut at each request.

#include <iterator>
#include <string>
#include <vector>

#include "tests/admin/AdminTest.h"
#include "tests/support/FailingCall.h"

namespace quorvel::test {
namespace {

/// Actions of the user in a tab of a record, with the list pair of the tab.
struct Operation {
  std::string name, view, id, tab;
  void (*act)(AdminSession& s, std::size_t lists);
  std::size_t lists = 0;
};

void NewAndDelete(AdminSession& s, std::size_t /*lists*/) {
  s.New("New");
  s.Pick(s.controls.cboID->Text(1));
  s.admin.ClickDelete();
}

void Change(AdminSession& s, std::size_t /*lists*/) {
  s.Type(s.controls.txtLastName, "typed", "LastName");
  AdminSession::Choose(s.controls.cboBranch, "SOUTH");
  s.admin.ClickField("Branch");
}

void Link(AdminSession& s, std::size_t lists) {
  s.Add(lists, kPairs[lists].item);
  s.Remove(lists, s.Current(lists).at(0));
}

void CheckAndMove(AdminSession& s, std::size_t lists) {
  s.Select(lists, s.Current(lists).back());
  s.Check(kPairs[lists].firstFlag, s.controls.chkRight.at(kPairs[lists].firstFlag)->Value() == 0);
  s.admin.ClickUp();
  s.admin.ClickDown();
}

std::vector<Operation> Operations() {
  std::vector<Operation> operations = {{"Change", "Users", "jsmith", "General", Change}};
  for (const char* view : {"Users", "Groups", "Rights", "Remarks", "Contexts", "Entities"}) {
    operations.push_back({"New", view, "", "General", NewAndDelete});
  }
  for (std::size_t lists = 0; lists < std::size(kPairs); ++lists) {
    const Pair& pair = kPairs[lists];
    operations.push_back({"Link", pair.view, pair.id, pair.tab, Link, lists});
    if (pair.flags > 0) operations.push_back({"Check", pair.view, pair.id, pair.tab, CheckAndMove, lists});
  }
  return operations;
}

/// The texts in the fields and lists.
std::vector<std::string> Shown(const AdminSession& s) {
  const ManageControls& c = s.controls;
  std::vector<std::string> shown = {c.cboBranch->CurrentText(), c.txtLastName->Text(), s.ShownID()};
  for (const TextField* box : c.txtCaption) shown.push_back(box->Text());
  for (std::size_t lists = 0; lists < std::size(kPairs); ++lists) {
    std::ranges::copy(s.Current(lists), std::back_inserter(shown));
    std::ranges::copy(s.Remaining(lists), std::back_inserter(shown));
  }
  return shown;
}

#ifdef QUORVEL_SANITIZED
/// Here the sanitizers look for faults of the memory, where it takes three times as long. What is stored is the same as
/// in the release build, which compares. One call of three fails, not the same ones in each view: the operations share
/// most calls.
constexpr bool kComparesWithStored = false;
constexpr std::size_t kStride = 3;
#else
constexpr bool kComparesWithStored = true;
constexpr std::size_t kStride = 1;
#endif

using Cut = void (StandInServer::*)(int request);

struct Outcome {
  std::string failed;  ///< the call or request that failed
  bool isTold = false;
  std::vector<std::string> shown;
};

/// Does the operation with that ODBC call failing, and 0 with none; given a cut, with the connection cut at that
/// request. The window that the user comes back to shows the same as one that is loaded again.
Outcome Do(const Operation& operation, std::size_t step, Cut cut = nullptr) {
  AdminSession s(EngineKind::StandIn);
  s.admin.Load();
  s.admin.ClickView(operation.view);
  if (!operation.id.empty()) s.Pick(operation.id);
  s.Tab(operation.tab);
  s.prompts->answers.assign(3, PromptAnswer::Yes);
  Outcome outcome;
  if (cut == nullptr) {
    FailingCall failing(static_cast<int>(step));
    operation.act(s, operation.lists);
    outcome.failed = failing.failed;
  } else {
    s.server->ForgetRequests();
    (*s.server.*cut)(static_cast<int>(step));
    operation.act(s, operation.lists);
    (*s.server.*cut)(0);
    const auto requests = s.server->Requests();
    if (requests.size() >= step) outcome.failed = requests[step - 1];
  }
  SCOPED_TRACE(std::to_string(step) + " " + outcome.failed);
  outcome.isTold = testing::Matches(Contains(HasSubstr("Error in ")))(s.Prompted());
  s.admin.ClickView(operation.view);
  s.Tab(operation.tab);
  EXPECT_THAT(s.Prompted(), IsEmpty());
  EXPECT_FALSE(s.admin.IsBusy());
  outcome.shown = Shown(s);
  if (!kComparesWithStored) return outcome;
  const std::string id = s.ShownID();
  s.admin.Load();
  s.Go(operation.view, id, operation.tab);
  EXPECT_EQ(outcome.shown, Shown(s));
  return outcome;
}

class AdminFaultsTest : public testing::TestWithParam<Operation> {};
INSTANTIATE_TEST_SUITE_P(Of, AdminFaultsTest, testing::ValuesIn(Operations()), [](const auto& operation) {
  return operation.param.view + operation.param.tab + operation.param.name;
});

TEST_P(AdminFaultsTest, LeaveTheWindowUsableAndShowingWhatIsStored) {
  // Some thousand databases: on a disk, syncing them would take most of the time.
  const ScopedVariable inMemory("TMPDIR", "/dev/shm");
  const Outcome done = Do(GetParam(), 0);
  EXPECT_FALSE(done.isTold);
  const auto failEach = [&](Cut cut) {
    std::size_t step = 1 + GetParam().view.size() % kStride;
    for (Outcome outcome = Do(GetParam(), step, cut); !outcome.failed.empty(); outcome = Do(GetParam(), step, cut)) {
      EXPECT_TRUE(outcome.isTold || outcome.shown == done.shown) << step;
      step += kStride;
    }
    return step;
  };
  EXPECT_GT(failEach(nullptr), 10U);
  if (!kComparesWithStored) return;
  for (const Cut cut :
       {&StandInServer::DropAtRequest, &StandInServer::DropAfterRequest, &StandInServer::DropAmidRows}) {
    EXPECT_GT(failEach(cut), 1U);
  }
}

TEST(AdminWithoutServer, NamesNoOtherRecordThanTheManagersCurrentOne) {
  AdminSession s(EngineKind::StandIn);
  s.admin.Load();
  s.Go("Rights", "Order.Delete");
  s.Go("Users", "jsmith");
  {
    const FailingCall serverAway(1, true);
    EXPECT_FALSE(s.Type(s.controls.txtLastName, "typed", "LastName"));
    s.Pick("guest");
    EXPECT_EQ(s.ShownID(), "");
    s.admin.ClickView("Rights");
    EXPECT_EQ(s.ShownID(), "");
  }
  s.admin.ClickDelete();
  EXPECT_EQ(s.database.Ask("SELECT COUNT(*) FROM ttwRight"), "6");
  s.Tab("Groups");
  EXPECT_EQ(s.ShownID(), "Order.Delete");
}

}  // namespace
}  // namespace quorvel::test
