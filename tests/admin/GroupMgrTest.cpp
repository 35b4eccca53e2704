#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class GroupMgrTest : public AdminTest {
 protected:
  void OpenTab(const std::string& group, const std::string& tab) {
    window.View("Groups");
    window.Pick(group);
    window.Tab(tab);
  }
};
INSTANTIATE_TEST_SUITE_P(Engines, GroupMgrTest, kBothEngines, NameOfParam);

TEST_P(GroupMgrTest, EachTabLinksRecordsOfItsKind) {
  Open();
  window.View("Groups");
  EXPECT_EQ(window.cboID.CurrentText(), "Default");
  OpenTab("Sales", "Users");
  window.Add(1, "guest");
  window.Remove(1, "mjones");
  EXPECT_EQ(Ask("SELECT MIN(UserKey) * 10 + MAX(UserKey) FROM ttwGroupMember WHERE GroupKey = 3"), "44");
  window.Tab("Rights");
  window.Add(2, "Order.Delete");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwRightAssignment WHERE GroupKey = 3 AND RightKey = 4"), "1");
  window.Tab("Remarks");
  window.Add(3, "General");
  window.SelectCurrent(3, "General");
  const std::string row = " FROM ttwRemarkRight WHERE GroupKey = 3 AND RemarkTypeKey = 3";
  const char* const columns[] = {"CanCreate", "CanUpdate", "CanRead", "CanDelete"};
  for (std::size_t i = 0; i < 4; ++i) {
    window.Check(i, true);
    EXPECT_EQ(Ask(std::string("SELECT ") + columns[i] + row), "1") << i;
  }
  OpenTab("Collections", "Remarks");
  EXPECT_FALSE(window.chkRight[2].enabled);
  window.SelectCurrent(3, "Credit");
  std::string shown;
  for (std::size_t i = 0; i < 4; ++i) shown += std::to_string(window.chkRight.at(i).value);
  EXPECT_EQ(shown, "0010") << "the group may only read";
}

TEST_P(GroupMgrTest, ListsShowWhatAnotherAdministratorHasDoneMeanwhile) {
  Run("INSERT INTO ttwGroup (GroupID) VALUES ('Team')");
  Open();
  OpenTab("Team", "General");
  Run("DELETE FROM ttwGroup WHERE GroupKey = 5 INSERT INTO ttwGroup (GroupID) VALUES ('Team')");
  EXPECT_FALSE(window.Type(window.txtCaption[0], "of the former one", "Caption"));
  EXPECT_THAT(Prompted(), ElementsAre(HasSubstr("\"Team\" is no longer there")));
  EXPECT_TRUE(window.Type(window.txtCaption[0], "of the new one", "Caption"));

  OpenTab("Sales", "Users");
  Run("INSERT INTO ttwGroupMember (GroupKey, UserKey) VALUES (3, 4)");
  window.Add(1, "guest");
  EXPECT_THAT(Prompted(), ElementsAre(StartsWith("Error in ")));
  EXPECT_THAT(window.lstCurrent[1].Texts(), ElementsAre("mjones", "guest"));

  window.Tab("Remarks");
  window.SelectCurrent(3, "Credit");
  Run("DELETE FROM ttwRemarkRight WHERE GroupKey = 3 AND RemarkTypeKey = 2");
  window.Check(3, true);
  EXPECT_THAT(Prompted(), ElementsAre(HasSubstr("somebody else has removed it")));
  EXPECT_THAT(window.lstCurrent[3].Texts(), ElementsAre("Shipping"));
  EXPECT_FALSE(window.chkRight[3].enabled);
  window.SelectCurrent(3, "Shipping");
  Run("DROP TABLE ttwRemarkRight");
  window.Check(3, false);
  EXPECT_EQ(window.chkRight[3].value, 1) << "a refused click is taken back";
}

TEST_P(GroupMgrTest, DeletingAsksWithTheNumbersOfLinks) {
  Run("INSERT INTO ttwGroup (GroupID) VALUES ('Team') UPDATE ttwGroup SET GroupID = 'dEFAULT' WHERE GroupKey = 1");
  Open();
  OpenTab("Team", "Users");
  const std::pair<const char*, std::string> cases[] = {
      {"INSERT INTO ttwRightAssignment (GroupKey, RightKey) VALUES (5, 1)", " and 1 Right(s)"},
      {"INSERT INTO ttwGroupMember (GroupKey, UserKey) VALUES (5, 1), (5, 2)", " and 2 User(s)  and 1 Right(s)"},
      {"INSERT INTO ttwRemarkRight (GroupKey, RemarkTypeKey) VALUES (5, 1) DELETE FROM ttwRightAssignment",
       "1 Remark Type(s) and 2 User(s) "}};
  for (const auto& [change, relation] : cases) {
    Run(change);
    Delete(PromptAnswer::No);
    EXPECT_THAT(Prompted(), ElementsAre("Confirm Delete Entity|Team is a group related to " + relation +
                                        "\r\n. Are you sure you want to PERMANENTLY delete Team?"));
  }
  Delete(PromptAnswer::Yes);
  EXPECT_EQ(window.cboID.CurrentText(), "Admin");
  window.Add(1, "guest");
  EXPECT_EQ(Ask("SELECT GroupKey FROM ttwGroupMember WHERE UserKey = 4"), "4") << "the lists are this group's";
  window.Pick("dEFAULT");
  Delete();
  EXPECT_EQ(Prompted().back(), "Cannot Delete Group|The Default group may not be deleted");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwGroup"), "4");

  OpenTab("Sales", "Rights");
  Run("DROP PROCEDURE spTWCDeleteGroup");
  Delete(PromptAnswer::Yes);
  window.Add(2, "Order.Delete");
  EXPECT_EQ(Ask("SELECT GroupKey FROM ttwRightAssignment WHERE RightKey = 4"), "3") << "the tab is still the rights'";
}

}  // namespace
}  // namespace quorvel::test
