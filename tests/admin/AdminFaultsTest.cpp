// Every operation of every manager with each of its ODBC calls failing once.

#include <iterator>
#include <string>
#include <vector>

#include "tests/admin/AdminTest.h"
#include "tests/support/FailingCall.h"

namespace quorvel::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

/// Actions of the user in a tab of a record.
struct Operation {
  std::string view, id, tab, name;
  void (*act)(AdminSession& s, const Operation& operation);
  std::size_t lists = 0;  ///< the list pair of the tab
  std::size_t check = 0;  ///< a check box of its links
};

void NewAndDelete(AdminSession& s, const Operation& /*operation*/) {
  s.New("New");
  s.Pick(s.controls.cboID->Text(1));
  s.admin.ClickDelete();
}

void Show(AdminSession& s, const Operation& operation) {
  s.Pick(s.controls.cboID->Text(1));
  s.Tab(operation.tab);
}

void Change(AdminSession& s, const Operation& /*operation*/) {
  s.Type(s.controls.txtLastName, "typed", "LastName");
  AdminSession::Choose(s.controls.cboBranch, "SOUTH");
  s.admin.ClickField("Branch");
}

void Link(AdminSession& s, const Operation& operation) {
  s.Add(operation.lists, s.Remaining(operation.lists).at(0));
  s.Remove(operation.lists, s.Current(operation.lists).at(0));
}

void Check(AdminSession& s, const Operation& operation) {
  s.Select(operation.lists, s.Current(operation.lists).at(1));
  s.Check(operation.check, s.controls.chkRight.at(operation.check)->Value() == 0);
}

void Move(AdminSession& s, const Operation& operation) {
  s.Select(operation.lists, "Credit");
  s.admin.ClickUp();
  s.admin.ClickDown();
  s.admin.ClickUp();
}

const Operation kOperations[] = {
    {"Users", "jsmith", "General", "New", NewAndDelete},
    {"Users", "jsmith", "General", "Change", Change},
    {"Users", "jsmith", "Groups", "Link", Link, 0},
    {"Users", "jsmith", "Rights", "Show", Show},
    {"Users", "jsmith", "Remarks", "Show", Show},
    {"Groups", "Sales", "General", "New", NewAndDelete},
    {"Groups", "Sales", "Users", "Link", Link, 1},
    {"Groups", "Sales", "Rights", "Link", Link, 2},
    {"Groups", "Sales", "Remarks", "Link", Link, 3},
    {"Groups", "Sales", "Remarks", "Check", Check, 3, 0},
    {"Rights", "Order.Enter", "General", "New", NewAndDelete},
    {"Rights", "Order.Enter", "Groups", "Link", Link, 4},
    {"Rights", "Order.Enter", "Users", "Show", Show},
    {"Remarks", "Cust.Credit", "General", "New", NewAndDelete},
    {"Remarks", "Cust.Credit", "Groups", "Link", Link, 5},
    {"Remarks", "Cust.Credit", "Groups", "Check", Check, 5, 7},
    {"Remarks", "Cust.Credit", "Contexts", "Link", Link, 6},
    {"Remarks", "Cust.General", "Contexts", "Check", Check, 6, 8},
    {"Contexts", "CustMaint", "General", "New", NewAndDelete},
    {"Contexts", "CustInq", "Remarks", "Link", Link, 7},
    {"Contexts", "CustMaint", "Remarks", "Check", Check, 7, 9},
    {"Contexts", "CustMaint", "Remarks", "Move", Move, 7},
    {"Entities", "Order", "General", "New", NewAndDelete},
    {"Entities", "Order", "Remarks", "Show", Show},
};

/// The texts in the fields and lists of a tab that the user comes to.
std::vector<std::string> Shown(const AdminSession& s) {
  const ManageControls& c = s.controls;
  std::vector<std::string> shown = {c.cboBranch->CurrentText()};
  for (const TextField* box : {c.txtLastName, c.txtRowHeight, c.txtEntity}) shown.push_back(box->Text());
  for (const TextField* box : c.txtCaption) shown.push_back(box->Text());
  std::vector<const ItemList*> lists(c.lstCurrent.begin(), c.lstCurrent.end());
  lists.insert(lists.end(), c.lstRemaining.begin(), c.lstRemaining.end());
  lists.push_back(c.cboID);
  for (const ItemList* list : lists) {
    for (const std::string& text : AdminSession::Texts(list)) shown.push_back(text);
  }
  shown.push_back(s.ShownID());
  return shown;
}

struct Outcome {
  std::string failed;  ///< the call that failed
  bool isTold;
  std::vector<std::string> shown;
};

/// Does the operation with that ODBC call failing, and 0 with none, and checks the window against one that is opened
/// after it.
Outcome Do(const Operation& operation, int call) {
  AdminSession s(EngineKind::StandIn);
  s.admin.Load();
  s.Go(operation.view, operation.id, operation.tab);
  s.prompts->answers.assign(3, PromptAnswer::Yes);
  Outcome outcome;
  {
    FailingCall failing(call);
    operation.act(s, operation);
    outcome.failed = failing.failed;
  }
  SCOPED_TRACE(std::to_string(call) + " " + outcome.failed);
  outcome.isTold = testing::Matches(Contains(HasSubstr("Error in ")))(s.Prompted());
  s.admin.ClickView(operation.view);
  s.Tab(operation.tab);
  EXPECT_THAT(s.Prompted(), IsEmpty());
  EXPECT_FALSE(s.admin.IsBusy());
  outcome.shown = Shown(s);
  const std::string id = s.ShownID();
  s.admin.Load();
  s.Go(operation.view, id, operation.tab);
  EXPECT_EQ(outcome.shown, Shown(s));
  return outcome;
}

class AdminFaultsTest : public testing::TestWithParam<std::size_t> {};
INSTANTIATE_TEST_SUITE_P(Of, AdminFaultsTest, testing::Range(std::size_t{0}, std::size(kOperations)),
                         [](const auto& index) {
                           return kOperations[index.param].view + kOperations[index.param].tab +
                                  kOperations[index.param].name;
                         });

TEST_P(AdminFaultsTest, LeaveTheWindowUsableAndShowingWhatIsStored) {
  // Some thousand databases: on a disk, syncing them would take most of the time.
  const ScopedVariable inMemory("TMPDIR", "/dev/shm");
  const Operation& operation = kOperations[GetParam()];
  const Outcome done = Do(operation, 0);
  EXPECT_FALSE(done.isTold);
  int call = 1;
  for (Outcome outcome = Do(operation, call); !outcome.failed.empty(); outcome = Do(operation, ++call)) {
    EXPECT_TRUE(outcome.isTold || outcome.shown == done.shown) << call;
  }
  EXPECT_GT(call, 10);
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
  EXPECT_EQ(s.Ask("SELECT COUNT(*) FROM ttwRight"), "6");
  s.Tab("Groups");
  EXPECT_EQ(s.ShownID(), "Order.Delete");
}

}  // namespace
}  // namespace quorvel::test
