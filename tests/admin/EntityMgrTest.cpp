#include "tests/admin/AdminTest.h"

namespace quorvel::test {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

class EntityMgrTest : public AdminTest {};
INSTANTIATE_TEST_SUITE_P(Engines, EntityMgrTest, kBothEngines, NameOfParam);

TEST_P(EntityMgrTest, FieldsAndTabsShowTheEntity) {
  Open();
  window.View("Entities");
  EXPECT_EQ(window.cboID.CurrentText() + window.txtEntity.text, "Customer501");
  EXPECT_FALSE(window.Type(window.txtEntity, "many", "EntityKey"));
  EXPECT_EQ(window.txtEntity.text, "501");
  EXPECT_TRUE(window.Type(window.txtEntity, "-7/0", "EntityKey"));
  EXPECT_TRUE(window.Type(window.txtProcedure, "sp-Get", "Procedure"));
  EXPECT_EQ(window.txtEntity.text + window.txtProcedure.text, "70spGet");
  window.Tab("Contexts");
  EXPECT_THAT(Shown(window.grdForm[3], 0, 1), ElementsAre("CustMaint|1", "CustInq|2"));
  window.Pick("Order");
  window.Tab("Remarks");
  EXPECT_THAT(Shown(window.grdForm[4], 0, 1), ElementsAre("Ord.Ship|5", "Ord.Note|6"));
}

TEST_P(EntityMgrTest, QuestionBeforeADeletionNamesWhatGoesWithIt) {
  Run("INSERT INTO ttwRemarkEntity (RemarkEntityID) VALUES ('Contexts'), ('Nothing'), ('Types')");
  Run("INSERT INTO ttwContext (ContextID, RemarkEntityKey) SELECT 'One', RemarkEntityKey FROM ttwRemarkEntity "
      "WHERE RemarkEntityID = 'Contexts'");
  Run("INSERT INTO ttwRemarkType (RemarkTypeID, RemarkEntityKey) SELECT 'One', RemarkEntityKey FROM ttwRemarkEntity "
      "WHERE RemarkEntityID = 'Types'");
  Open();
  window.View("Entities");
  const std::pair<const char*, const char*> cases[] = {
      {"Order", "2 Remark Type(s) and 1 Context(s) "}, {"Contexts", "1 Context(s) "}, {"Types", "1 Remark Type(s)"}};
  for (const auto& [id, relations] : cases) {
    window.Pick(id);
    Delete(PromptAnswer::Yes);
    EXPECT_THAT(Prompted(), ElementsAre(std::string("Confirm Delete Entity|") + id + " is a entity related to " +
                                        relations + "\r\n. Are you sure you want to PERMANENTLY delete " + id + "?"));
  }
  window.Pick("Nothing");
  Delete();
  EXPECT_THAT(Prompted(), IsEmpty());
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM ttwRemarkType WHERE RemarkEntityKey <> 1"), "0");
  EXPECT_EQ(window.cboID.CurrentText(), "Customer");
  Delete(PromptAnswer::Yes);
  EXPECT_EQ(window.cboID.CurrentText() + window.txtCaption[4].text, "") << "the table is empty";
  New("cust");
  New("CUST");
  EXPECT_EQ(Prompted().back(), "Entity Already Defined|CUST is already defined as a Entity");
  New("Men's wear");
  EXPECT_EQ(window.cboID.CurrentText(), "Men's wear") << "the filter is by key, so a quote does no harm";
}

TEST_P(EntityMgrTest, KeyAbove16BitsIsAnOverflow) {
  Run("INSERT INTO ttwRemarkEntity (RemarkEntityKey, RemarkEntityID, Caption) "
      "VALUES (32767, 'Last', 'last'), (32768, 'Over', 'over')");
  Open();
  window.View("Entities");
  window.Pick("Last");
  EXPECT_EQ(window.txtCaption[4].text, "last");
  window.Pick("Over");
  EXPECT_THAT(Prompted(), ElementsAre(EndsWith("|Overflow")));
  EXPECT_EQ(window.txtCaption[4].text, "") << "the other entity's caption must not be edited as this one's";
  EXPECT_FALSE(window.Type(window.txtCaption[4], "typed", "Caption"));
  EXPECT_EQ(Ask("SELECT Caption FROM ttwRemarkEntity WHERE RemarkEntityKey = 32768"), "over");
}

}  // namespace
}  // namespace quorvel::test
