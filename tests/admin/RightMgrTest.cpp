#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class RightMgrTest : public AdminTest {};
INSTANTIATE_TEST_SUITE_P(Engines, RightMgrTest, kBothEngines, NameOfParam);

TEST_P(RightMgrTest, GroupsHoldRightsAndPassThemToTheirUsers) {
  Run("INSERT INTO ttwGroupMember (GroupKey, UserKey) VALUES (3, 1)");
  Open();
  window.View("Rights");
  window.Pick("Order.Enter");
  EXPECT_TRUE(window.Type(window.txtCaption[1], "50% 'off'", "Caption"));
  EXPECT_EQ(window.txtCaption[1].text, "50 off");
  EXPECT_EQ(Ask("SELECT Caption FROM ttwRight WHERE RightID = 'Order.Enter'"), "50 off");
  window.Tab("Users");
  EXPECT_THAT(Shown(window.grdForm[2], 0, 3), ElementsAre("admin|NORTH", "jsmith|NORTH", "mjones|SOUTH"));
  window.Tab("Groups");
  window.Remove(4, "Default");
  EXPECT_EQ(window.lstRemaining[4].Texts().back(), "Default");
  Delete(PromptAnswer::No);
  EXPECT_THAT(Prompted(), ElementsAre("Confirm Delete User|Order.Enter is a right assigned to 2 group(s).\r\n"
                                      "Are you sure you want to PERMANENTLY delete Order.Enter?"));
  window.Add(4, "Default");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwRightAssignment WHERE RightKey = 5"), "3");
}

TEST_P(RightMgrTest, NewRightIsHeldByNoGroupAndDeletedWithoutAQuestion) {
  Open();
  window.View("Rights");
  New("Night's work");
  EXPECT_THAT(Prompted(), ElementsAre("Create New Right|Right ID", StartsWith("Error in ")));
  New("order.ENTER");
  EXPECT_EQ(Prompted().back(), "Right Already Defined|order.ENTER is already defined as a Right");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwRight"), "6");
  New("Alarm.Reset");
  EXPECT_EQ(window.cboID.CurrentText(), "Alarm.Reset");
  static_cast<void>(Prompted());
  Delete();
  EXPECT_THAT(Prompted(), IsEmpty());
  EXPECT_EQ(window.cboID.CurrentText(), "CreditHold.Release");
  EXPECT_EQ(window.txtCaption[1].text, "Release credit holds");
}

}  // namespace
}  // namespace quorvel::test
