#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class RightMgrTest : public AdminTest {};
INSTANTIATE_TEST_SUITE_P(Engines, RightMgrTest, kBothEngines, NameOfParam);

TEST_P(RightMgrTest, GroupsHoldRightsAndPassThemToTheirUsers) {
  Run("INSERT INTO ttwGroupMember (GroupKey, UserKey) VALUES (3, 1)");
  Open();
  window.View("Rights");
  window.Pick("Order.Enter");
  EXPECT_TRUE(window.Type(window.txtComment[1], "50% 'off'", "Comment"));
  EXPECT_EQ(window.txtComment[1].text, "50 off");
  window.Tab("Users");
  EXPECT_THAT(Shown(window.grdForm[2], 0, 3), ElementsAre("admin|NORTH", "jsmith|NORTH", "mjones|SOUTH"));
  window.Tab("Groups");
  window.Remove(4, "Default");
  Delete(PromptAnswer::No);
  EXPECT_THAT(Prompted(), ElementsAre("Confirm Delete User|Order.Enter is a right assigned to 2 group(s).\r\n"
                                      "Are you sure you want to PERMANENTLY delete Order.Enter?"));
  window.Add(4, "Default");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwRightAssignment WHERE RightKey = 5"), "3");

  New("Night's work");
  EXPECT_THAT(Prompted(), ElementsAre("Create New Right|Right ID", StartsWith("Error in ")));
  New("order.ENTER");
  EXPECT_EQ(Prompted().back(), "Right Already Defined|order.ENTER is already defined as a Right");
  New("Alarm.Reset");
  EXPECT_EQ(window.cboID.CurrentText(), "Alarm.Reset");
  Delete();
  EXPECT_THAT(Prompted(), ElementsAre("Create New Right|Right ID")) << "no question";
  EXPECT_EQ(window.cboID.CurrentText() + window.txtCaption[1].text, "CreditHold.ReleaseRelease credit holds");
}

}  // namespace
}  // namespace quorvel::test
