#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class ContextMgrTest : public AdminTest {
 protected:
  void OpenTab(const std::string& tab) {
    Open();
    window.View("Contexts");
    window.Pick("CustMaint");
    window.Tab(tab);
  }
};
INSTANTIATE_TEST_SUITE_P(Engines, ContextMgrTest, kBothEngines, NameOfParam);

TEST_P(ContextMgrTest, SettingsAreThoseOfTheCurrentContext) {
  Run("UPDATE ttwContext SET EditBehavior = 7 WHERE ContextID = 'OrderEntry'");
  OpenTab("General");
  EXPECT_EQ(window.txtCaption[7].text + window.txtRowHeight.text + window.cboEditBehavior.CurrentText(),
            "Customer2PromptSave");
  window.udRowHeight.value = 5;
  window.admin.ChangeRowHeight();
  window.chkGroupByType.value = 0;
  window.admin.ClickField("chkGroupByType");
  window.cboEditBehavior.Pick("NoAutoSave");
  window.admin.ClickField("EditBehavior");
  EXPECT_TRUE(window.Type(window.txtCaption[3], "ignored", "caption")) << "letter case counts";
  EXPECT_EQ(Ask("SELECT MAX(Caption) FROM ttwContext WHERE RowHeight = 5 AND GroupByType = 0 AND AllowRowSizing = 1 "
                "AND EditBehavior = 1"),
            "Customer Maintenance");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwContext WHERE RowHeight = 5"), "1");
  window.Pick("OrderEntry");
  EXPECT_EQ(window.cboEditBehavior.CurrentText(), "") << "an unknown behaviour is not the former context's";
}

TEST_P(ContextMgrTest, RemarkTypesAreInTheOrderOfTheirPositions) {
  OpenTab("Remarks");
  window.SelectCurrent(7, "Collections");
  EXPECT_FALSE(window.cmdUp.enabled);
  window.admin.ClickUp();
  window.admin.ClickDown();
  window.admin.ClickDown();
  EXPECT_EQ(window.lstCurrent[7].CurrentText(), "Collections");
  EXPECT_THAT(window.lstCurrent[7].Texts(), ElementsAre("Credit", "General", "Collections", "Internal"));
  EXPECT_TRUE(window.cmdUp.enabled);
  window.Remove(7, "General");
  EXPECT_THAT(TypesOf(1), ElementsAre("Cust.Credit|0", "Cust.AR.Coll|1", "Cust.Internal|2"));
  Run("UPDATE ttwRemarkContext SET DisplaySeq = 9 WHERE RemarkTypeKey = 4");
  window.Add(7, "General");
  EXPECT_THAT(TypesOf(1), Contains("Cust.General|10"));
}

TEST_P(ContextMgrTest, FailedExchangeShowsTheListAsItIsAndLeavesTheWindowBusy) {
  OpenTab("Remarks");
  window.SelectCurrent(7, "General");
  Run("DELETE FROM ttwRemarkContext WHERE RemarkTypeKey = 4");
  window.admin.ClickDown();
  EXPECT_THAT(Prompted(), ElementsAre(HasSubstr("somebody else has removed it")));
  EXPECT_THAT(window.lstCurrent[7].Texts(), ElementsAre("Collections", "Credit", "General"));
  const char* const priority = "SELECT Priority FROM ttwRemarkContext WHERE ContextKey = 1 AND RemarkTypeKey = 3";
  window.Check(9, true);
  EXPECT_EQ(Ask(priority), "0");
  window.Tab("Remarks");
  window.SelectCurrent(7, "General");
  window.Check(9, true);
  EXPECT_EQ(Ask(priority), "1");
  if (!server) return;
  server->DropAtRequest(4);
  window.admin.ClickUp();
  EXPECT_THAT(TypesOf(1), ElementsAre("Cust.AR.Coll|0", "Cust.Credit|1", "Cust.General|1"));
  EXPECT_THAT(server->Requests().back(), HasSubstr("WHERE rc.ContextKey = 1ORDER BY rc.DisplaySeq"));
}

TEST_P(ContextMgrTest, DeletingAsksWhenThereAreRemarkTypes) {
  OpenTab("Remarks");
  Delete(PromptAnswer::No);
  Delete(PromptAnswer::Yes);
  EXPECT_EQ(Prompted().back(),
            "Confirm Delete Context|CustMaint is associated with 4 remark type(s).\r\n"
            "Are you sure you want to PERMANENTLY delete CustMaint?");
  EXPECT_EQ(window.cboID.CurrentText(), "CustInq");
  EXPECT_THAT(window.lstCurrent[7].Texts(), ElementsAre("Collections", "General"));
  window.newItems = {{"custinq", 1}, {"Dock", 2}};
  window.admin.ClickNew();
  EXPECT_EQ(Prompted().back(), "Context Already Defined|custinq is already defined as a context.");
  window.admin.ClickNew();
  Delete();
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwContext"), "2");
}

}  // namespace
}  // namespace quorvel::test
