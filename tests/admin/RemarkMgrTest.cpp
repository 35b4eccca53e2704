#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

class RemarkMgrTest : public AdminTest {};
INSTANTIATE_TEST_SUITE_P(Engines, RemarkMgrTest, kBothEngines, NameOfParam);

TEST_P(RemarkMgrTest, TypesFollowTheOthersOfAContextAndLeaveNoGap) {
  Open();
  window.View("Remarks");
  window.Pick("Cust.Credit");
  window.Tab("Contexts");
  EXPECT_THAT(window.lstRemaining[6].Texts(), ElementsAre("CustInq")) << "not those of another entity";
  window.Add(6, "CustInq");
  EXPECT_THAT(TypesOf(2), ElementsAre("Cust.AR.Coll|0", "Cust.General|1", "Cust.Credit|2"));
  window.SelectCurrent(6, "CustInq");
  window.Check(8, true);
  EXPECT_EQ(Ask("SELECT Priority FROM ttwRemarkContext WHERE ContextKey = 2 AND RemarkTypeKey = 2"), "1");
  window.Pick("Cust.AR.Coll");
  window.Remove(6, "CustInq");
  EXPECT_THAT(TypesOf(2), ElementsAre("Cust.General|0", "Cust.Credit|1"));
  Run("DELETE FROM ttwRemarkContext WHERE ContextKey = 2");
  window.Add(6, "CustInq");
  EXPECT_THAT(TypesOf(2), ElementsAre("Cust.AR.Coll|0"));

  window.Tab("Groups");
  window.Add(5, "Default");
  window.SelectCurrent(5, "Default");
  EXPECT_FALSE(window.chkRight[8].enabled);
  window.Check(5, true);
  EXPECT_EQ(Ask("SELECT CanUpdate FROM ttwRemarkRight WHERE GroupKey = 1 AND RemarkTypeKey = 1"), "1");
}

TEST_P(RemarkMgrTest, NewTypeBelongsToTheChosenEntity) {
  Open();
  window.View("Remarks");
  window.newItems = {{"Night's", 2}, {"", 2}, {"cust.GENERAL", 2}};
  while (!window.newItems.empty()) window.admin.ClickNew();
  EXPECT_THAT(Prompted(), ElementsAre(StartsWith("Error in "),
                                      "Remark Type Already Defined|cust.GENERAL is already defined as a remark type."));
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwRemarkType"), "6");
  window.newItems = {{"Ord.Bill", 2}};
  window.admin.ClickNew();
  EXPECT_EQ(window.cboID.CurrentText() + " " + window.txtCaption[8].text, "Ord.Bill Order");
  EXPECT_TRUE(window.Type(window.txtCaption[2], "Bills & 'more'", "caption"));
  EXPECT_EQ(Ask("SELECT Caption FROM ttwRemarkType WHERE RemarkTypeID = 'Ord.Bill'"), "Bills & more");
  Delete();

  window.Pick("Cust.General");
  for (const std::string relation : {"2 Context(s) and 2 Group(s) ", " and 2 Group(s) "}) {
    Delete(PromptAnswer::No);
    EXPECT_THAT(Prompted(), ElementsAre("Confirm Delete Entity|Cust.General is a remark type related to " + relation +
                                        "\r\n. Are you sure you want to PERMANENTLY delete Cust.General?"));
    Run("DELETE FROM ttwRemarkContext WHERE RemarkTypeKey = 3");
  }
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwRemarkType"), "6");
}

}  // namespace
}  // namespace quorvel::test
