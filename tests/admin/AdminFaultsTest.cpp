// Every operation of every manager with each of its ODBC calls failing once.

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/admin/AdminTest.h"
#include "tests/support/FailingCall.h"

namespace quorvel::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;

using Act = void (*)(AdminSession& session);

/// An action of the user in a tab of a record.
struct Operation {
  const char* view;
  const char* id;
  const char* tab;
  const char* name;
  Act act;
  std::optional<std::size_t> lists = std::nullopt;  ///< the list pair of the tab

  [[nodiscard]] std::string FullName() const { return std::string(view) + tab + name; }
  // Without it the test's name would hold addresses.
  friend void PrintTo(const Operation& operation, std::ostream* stream) { *stream << operation.FullName(); }
};

const Act kNewAndDelete = [](AdminSession& s) {
  s.window.newItems = {{"New", 1}};
  s.New("New");
  s.window.Pick(s.window.cboID.Text(1));
  s.window.admin.ClickDelete();
};

template <std::size_t kLists>
const Act kAddAndRemove = [](AdminSession& s) {
  s.window.Add(kLists, s.window.lstRemaining.at(kLists).Text(0));
  s.window.Remove(kLists, s.window.lstCurrent.at(kLists).Text(0));
};

template <std::size_t kLists, std::size_t kCheck>
const Act kSelectAndCheck = [](AdminSession& s) {
  s.window.SelectCurrent(kLists, s.window.lstCurrent.at(kLists).Text(1));
  s.window.Check(kCheck, s.window.chkRight.at(kCheck).value == 0);
};

const Act kShowUser = [](AdminSession& s) {
  s.window.Pick("jsmith");
  for (const char* tab : {"Rights", "Remarks"}) s.window.Tab(tab);
};

const Act kChangeUser = [](AdminSession& s) {
  s.window.Type(s.window.txtLastName, "typed", "LastName");
  s.window.cboBranch.Pick("SOUTH");
  s.window.admin.ClickField("Branch");
};

const Act kMoveType = [](AdminSession& s) {
  s.window.SelectCurrent(7, "Credit");
  s.window.admin.ClickUp();
  s.window.admin.ClickDown();
  s.window.admin.ClickUp();
};

const Act kChangeRowHeight = [](AdminSession& s) {
  s.window.udRowHeight.value = 5;
  s.window.admin.ChangeRowHeight();
};

const Operation kOperations[] = {
    {"Users", "jsmith", "General", "NewAndDelete", kNewAndDelete},
    {"Users", "admin", "General", "Show", kShowUser},
    {"Users", "jsmith", "General", "Change", kChangeUser},
    {"Users", "jsmith", "Groups", "Link", kAddAndRemove<0>, 0},
    {"Groups", "Sales", "General", "NewAndDelete", kNewAndDelete},
    {"Groups", "Sales", "Users", "Link", kAddAndRemove<1>, 1},
    {"Groups", "Sales", "Rights", "Link", kAddAndRemove<2>, 2},
    {"Groups", "Sales", "Remarks", "Link", kAddAndRemove<3>, 3},
    {"Groups", "Sales", "Remarks", "Check", kSelectAndCheck<3, 0>, 3},
    {"Rights", "Order.Enter", "General", "NewAndDelete", kNewAndDelete},
    {"Rights", "Order.Enter", "Groups", "Link", kAddAndRemove<4>, 4},
    {"Rights", "Order.Enter", "General", "Show", [](AdminSession& s) { s.window.Tab("Users"); }},
    {"Remarks", "Cust.Credit", "General", "NewAndDelete", kNewAndDelete},
    {"Remarks", "Cust.Credit", "Groups", "Link", kAddAndRemove<5>, 5},
    {"Remarks", "Cust.Credit", "Groups", "Check", kSelectAndCheck<5, 7>, 5},
    {"Remarks", "Cust.Credit", "Contexts", "Link", kAddAndRemove<6>, 6},
    {"Remarks", "Cust.General", "Contexts", "Check", kSelectAndCheck<6, 8>, 6},
    {"Contexts", "CustMaint", "General", "NewAndDelete", kNewAndDelete},
    {"Contexts", "CustInq", "Remarks", "Link", kAddAndRemove<7>, 7},
    {"Contexts", "CustMaint", "Remarks", "Check", kSelectAndCheck<7, 9>, 7},
    {"Contexts", "CustMaint", "Remarks", "Move", kMoveType, 7},
    {"Contexts", "CustMaint", "General", "Change", kChangeRowHeight},
    {"Entities", "Order", "General", "NewAndDelete", kNewAndDelete},
    {"Entities", "Order", "Contexts", "Show", [](AdminSession& s) { s.window.Tab("Remarks"); }},
    {"Entities", "Order", "General", "Change",
     [](AdminSession& s) { s.window.Type(s.window.txtEntity, "802", "EntityKey"); }},
};

/// The texts in the view's fields and in one of its list pairs.
std::vector<std::string> Shown(const AdminWindow& window, const Operation& operation) {
  std::vector<std::string> shown = window.cboID.Texts();
  for (const MemoryText& box : window.txtCaption) shown.push_back(box.text);
  for (const std::string& text : {window.cboID.CurrentText(), window.txtLastName.text, window.cboBranch.CurrentText(),
                                  window.txtRowHeight.text, window.txtEntity.text}) {
    shown.push_back(text);
  }
  if (!operation.lists) return shown;
  for (const auto* lists : {&window.lstCurrent, &window.lstRemaining}) {
    for (const std::string& text : lists->at(*operation.lists).Texts()) shown.push_back(text);
  }
  return shown;
}

class AdminFaultsTest : public testing::TestWithParam<Operation> {};
INSTANTIATE_TEST_SUITE_P(Operations, AdminFaultsTest, testing::ValuesIn(kOperations),
                         [](const auto& operation) { return operation.param.FullName(); });

TEST_P(AdminFaultsTest, LeaveTheWindowUsableAndShowingWhatIsStored) {
  // Some thousand databases: on a disk, syncing them would take most of the time.
  const ScopedVariable inMemory("TMPDIR", "/dev/shm");
  const Operation& operation = GetParam();
  std::vector<std::string> done;  // shown after the operation without a failing call
  std::string failed;
  int number = 0;
  do {
    AdminSession session(EngineKind::StandIn);
    AdminWindow& window = session.window;
    session.Open();
    window.View(operation.view);
    window.Pick(operation.id);
    window.Tab(operation.tab);
    session.prompts->answers.assign(3, PromptAnswer::Yes);
    {
      FailingCall failing(number);
      operation.act(session);
      failed = failing.failed;
    }
    SCOPED_TRACE(std::to_string(number) + " " + failed);
    const bool isTold = testing::Matches(Contains(HasSubstr("Error in ")))(session.Prompted());
    window.View(operation.view);
    window.Tab(operation.tab);
    EXPECT_THAT(session.Prompted(), IsEmpty());
    EXPECT_FALSE(window.admin.IsBusy());
    const auto shown = Shown(window, operation);
    AdminWindow fresh;
    fresh.admin.Load();
    fresh.View(operation.view);
    fresh.Pick(window.cboID.CurrentText());
    fresh.Tab(operation.tab);
    EXPECT_EQ(shown, Shown(fresh, operation));
    if (number == 0) done = shown;
    EXPECT_TRUE(isTold ? number > 0 : shown == done);
  } while (number++ == 0 || !failed.empty());
  EXPECT_GT(number, 10);
}

/// The server answers no call.
class ServerAway : public ado::odbc::CallObserver {
 public:
  ServerAway() : m_before(ado::odbc::Observe(this)) {}
  ~ServerAway() override { ado::odbc::Observe(m_before); }
  ServerAway(const ServerAway&) = delete;
  ServerAway& operator=(const ServerAway&) = delete;

  bool Allows(std::string_view /*function*/) override { return false; }

 private:
  ado::odbc::CallObserver* m_before;
};

TEST(AdminWithoutServer, NamesNoOtherRecordThanTheManagersCurrentOne) {
  AdminSession session(EngineKind::StandIn);
  AdminWindow& window = session.window;
  session.Open();
  window.View("Rights");
  window.Pick("Order.Delete");
  window.View("Users");
  window.Pick("jsmith");
  {
    const ServerAway away;
    EXPECT_FALSE(window.Type(window.txtLastName, "typed", "LastName"));
    window.Pick("guest");
    EXPECT_EQ(window.cboID.CurrentText(), "");
    window.View("Rights");
    EXPECT_EQ(window.cboID.CurrentText(), "");
  }
  window.admin.ClickDelete();
  EXPECT_EQ(session.Ask("SELECT COUNT(*) FROM ttwRight"), "6");
  window.Tab("Groups");
  EXPECT_EQ(window.cboID.CurrentText(), "Order.Delete");
}

}  // namespace
}  // namespace quorvel::test
