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
  window.Pick("jsmith");
  EXPECT_EQ(window.cboBranch.CurrentText(), "NORTH");
  window.Pick("guest");
  EXPECT_EQ(window.cboBranch.CurrentText(), "") << "the branch is gone, and jsmith's is not the guest's";
  EXPECT_TRUE(window.Type(window.txtLastName, "O'Neill-\"Ray\"", "LastName"));
  EXPECT_FALSE(window.Type(window.txtLastName, std::string(61, 'x'), "LastName"));
  EXPECT_EQ(window.txtLastName.text, "ONeillRay");
  EXPECT_THAT(Prompted(), ElementsAre(StartsWith("Error in "))) << "61 characters are too many";
  window.chkUserActive.value = 0;
  window.cboBranch.Pick("<none>");
  for (const char* field : {"Active", "Branch"}) window.admin.ClickField(field);
  EXPECT_EQ(Ask("SELECT UserID + LastName + BranchID FROM ttwUser WHERE IsActive = 0"), "guestONeillRay");

  window.Pick("jsmith");
  Run("DELETE FROM ttwGroupMember WHERE UserKey = 1 DELETE FROM ttwUser WHERE UserKey = 1");
  EXPECT_FALSE(window.Type(window.txtFirstName, "Janet", "FirstName"));
  EXPECT_THAT(Prompted(), ElementsAre(HasSubstr("\"jsmith\" is no longer there")));
  EXPECT_EQ(window.cboID.CurrentText() + window.txtFirstName.text, "adminAnna");
}

TEST_P(UserMgrTest, FirstUserWithAQuoteDoesNotKeepTheWindowFromOpening) {
  Run("INSERT INTO ttwUser (UserID) VALUES ('''t Hooft')");
  Open();
  EXPECT_THAT(Prompted(), ElementsAre(StartsWith("Error in ")));
  EXPECT_EQ(window.txtLastName.text, "");
  window.Pick("jsmith");
  EXPECT_EQ(window.txtLastName.text, "Smith");
}

TEST_P(UserMgrTest, RightsAreThoseOfTheGroups) {
  Open();
  window.Pick("jsmith");
  window.Tab("Groups");
  window.Add(0, "Sales");
  const auto explained = [](const MemoryRows& grid) {
    auto rows = Shown(grid, grid.rows->FieldCount() == 4 ? 1 : 0, 3);
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] += "|" + grid.explanation(static_cast<std::int32_t>(i + 1));
    return rows;
  };
  window.Tab("Rights");
  EXPECT_EQ(window.grdForm[0].rows->RecordCount(), 6);
  EXPECT_THAT(explained(window.grdForm[0]), Contains("Order.Enter|1|Through: Default, Sales"));
  EXPECT_THAT(explained(window.grdForm[0]), Contains("Order.Delete|NULL|Through no group"));
  window.Tab("Remarks");
  EXPECT_THAT(explained(window.grdForm[1]), Contains("Cust.Credit|1|Collections: read\nSales: create, read, update"));
  EXPECT_THAT(explained(window.grdForm[1]), Contains("Cust.Internal|NULL|Through no group"));
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
  New(" nwood ");
  EXPECT_EQ(window.cboID.CurrentText(), "nwood");
  EXPECT_EQ(Ask("SELECT SUM(GroupKey) FROM ttwGroupMember WHERE UserKey > 4"), "1") << "of all the new ones";

  window.Pick(self);
  Delete();
  EXPECT_EQ(Prompted().back(), "Cannot Delete User|You are not permitted to delete your own userid");
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
  EXPECT_THAT(Prompted(), IsEmpty()) << "a user in no group";
  EXPECT_EQ(window.cboID.CurrentText() + window.txtFirstName.text, "adminAnna");
}

}  // namespace
}  // namespace quorvel::test
