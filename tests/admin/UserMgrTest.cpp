#include <fmt/format.h>

#include "data/modUserName.h"
#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class UserMgrTest : public AdminTest {};
INSTANTIATE_TEST_SUITE_P(Engines, UserMgrTest, kBothEngines, NameOfParam);

TEST_P(UserMgrTest, FieldsShowWhatIsStored) {
  Run("UPDATE ttwUser SET BranchID = 'EAST' WHERE UserID = 'guest'");
  Open();
  EXPECT_THAT(window.cboBranch.Texts(), ElementsAre("<none>", "NORTH", "SOUTH"));
  window.Pick("jsmith");
  EXPECT_EQ(window.cboBranch.CurrentText(), "NORTH");
  EXPECT_EQ(window.chkUserActive.value, 1);
  window.Pick("guest");
  EXPECT_EQ(window.cboBranch.CurrentText(), "") << "the branch is gone, and jsmith's is not the guest's";

  EXPECT_TRUE(window.Type(window.txtLastName, "O'Neill-\"Ray\"", "LastName"));
  EXPECT_EQ(window.txtLastName.text, "ONeillRay");
  EXPECT_FALSE(window.Type(window.txtLastName, std::string(61, 'x'), "LastName"));
  EXPECT_EQ(window.txtLastName.text, "ONeillRay");
  EXPECT_THAT(Prompted(), ElementsAre(StartsWith("Error in ")));
  window.chkUserActive.value = 0;
  window.cboBranch.Pick("<none>");
  for (const char* field : {"Active", "Branch"}) window.admin.ClickField(field);
  EXPECT_EQ(Ask("SELECT UserID + LastName + BranchID FROM ttwUser WHERE IsActive = 0"), "guestONeillRay");
  EXPECT_EQ(window.cboBranch.CurrentText(), "<none>");

  window.Pick("jsmith");
  Run("DELETE FROM ttwGroupMember WHERE UserKey = 1 DELETE FROM ttwUser WHERE UserKey = 1");
  EXPECT_FALSE(window.Type(window.txtFirstName, "Janet", "FirstName"));
  EXPECT_THAT(Prompted(), ElementsAre(HasSubstr("\"jsmith\" is no longer there")));
  EXPECT_EQ(window.cboID.CurrentText() + window.txtFirstName.text, "adminAnna");
}

TEST_P(UserMgrTest, RightsAreThoseOfTheGroups) {
  Open();
  window.Pick("jsmith");
  window.Tab("Groups");
  EXPECT_THAT(window.lstRemaining[0].Texts(), ElementsAre("Sales", "Admin"));
  window.Add(0, "Sales");
  window.Tab("Rights");
  EXPECT_THAT(Shown(window.grdForm[0], 1, 3),
              testing::UnorderedElementsAre("CreditHold.Release|1", "CreditLimit.Change|NULL", "Invoice.WriteOff|1",
                                            "Order.Delete|NULL", "Order.Enter|1", "Price.Override|1"));
  const auto explained = [](const MemoryRows& grid, std::size_t id) {
    std::vector<std::string> texts;
    for (std::int32_t row = 1; row <= grid.rows->RecordCount(); ++row) {
      texts.push_back(ToText(grid.rows->At(row, id)) + " - " + grid.explanation(row));
    }
    return texts;
  };
  EXPECT_THAT(explained(window.grdForm[0], 1), Contains("Order.Enter - Through: Default, Sales"));
  EXPECT_THAT(explained(window.grdForm[0], 1), Contains("Order.Delete - Through no group"));
  window.Tab("Remarks");
  EXPECT_THAT(Shown(window.grdForm[1], 0, 3), Contains("Cust.Credit|1"));
  EXPECT_THAT(explained(window.grdForm[1], 0),
              Contains("Cust.Credit - Collections: read\nSales: create, read, update"));
  EXPECT_THAT(explained(window.grdForm[1], 0), Contains("Cust.Internal - Through no group"));
  window.Tab("Groups");
  window.Remove(0, "Default");
  EXPECT_EQ(Ask("SELECT SUM(GroupKey) FROM ttwGroupMember WHERE UserKey = 1"), "5");
}

TEST_P(UserMgrTest, NewUsersJoinGroup1AndTheOwnUserCannotBeDeleted) {
  const std::string self = modUserName::GetUserName();
  Run(fmt::format("INSERT INTO ttwUser (UserID) VALUES ('{}')", self));
  Open();
  New("O'Brien");
  EXPECT_THAT(Prompted(), ElementsAre("Create New User|User ID", StartsWith("Error in ")));
  New("JSmith");
  EXPECT_EQ(Prompted().back(), "User Already Defined|JSmith is already defined as a user.");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwUser"), "5");
  New(" nwood ");
  EXPECT_EQ(window.cboID.CurrentText(), "nwood");
  EXPECT_EQ(Ask("SELECT m.GroupKey FROM ttwUser u, ttwGroupMember m WHERE u.UserKey = m.UserKey AND UserID = 'nwood'"),
            "1");
  window.Pick(self);
  static_cast<void>(Prompted());
  Delete();
  EXPECT_THAT(Prompted(), ElementsAre("Cannot Delete User|You are not permitted to delete your own userid"));
  window.Pick("jsmith");
  Delete(PromptAnswer::No);
  EXPECT_EQ(window.cboID.CurrentText(), "jsmith");
  Delete(PromptAnswer::Yes);
  EXPECT_EQ(Prompted().back(),
            "Confirm Delete User|jsmith is a member of 2 group(s).\r\n"
            "Are you sure you want to PERMANENTLY delete jsmith?");
  EXPECT_EQ(window.cboID.CurrentText(), self);
  Run(fmt::format("DELETE FROM ttwUser WHERE UserID = '{}'", self));
  window.Pick("guest");
  Delete();
  EXPECT_THAT(Prompted(), IsEmpty());
  EXPECT_EQ(window.cboID.CurrentText() + window.txtFirstName.text, "adminAnna");
}

}  // namespace
}  // namespace quorvel::test
