#include <gmock/gmock.h>

#include "data/modDatabase.h"
#include "data/modRecordsets.h"
#include "platform/Error.h"
#include "tests/support/Caught.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::modRecordsets {
namespace {

using test::Caught;

class RecordsetsTest : public testing::Test {
 protected:
  RecordsetsTest() { InitGlobalRecordsets(); }

  test::PromptsGuard m_prompts;
  test::TestDatabase m_database;
};

TEST_F(RecordsetsTest, FiltersNarrowTheirRecordsetAndAreCleared) {
  const struct {
    const SharedRecordset& (*recordset)();
    void (*filter)();
    void (*clear)();
    std::string criteria;
    std::int32_t all;
  } cases[] = {{Users, [] { FilterUser("JSMITH"); }, ClearUserFilter, "UserID='JSMITH'", 4},
               {Groups, [] { FilterGroup("Sales"); }, ClearGroupFilter, "GroupID='Sales'", 4},
               {Contexts, [] { FilterContext("CustInq"); }, ClearContextFilter, "ContextID='CustInq'", 3},
               {Rights, [] { FilterRight("Order.Enter"); }, ClearRightFilter, "RightID='Order.Enter'", 6},
               {RemarkTypes, [] { FilterRemarkType("Ord.Note"); }, ClearRemarkTypeFilter, "RemarkTypeID='Ord.Note'", 6},
               {RemarkEntities, [] { FilterEntity(2); }, ClearEntityFilter, "RemarkEntityKey='2'", 2}};
  for (const auto& each : cases) {
    each.filter();
    EXPECT_EQ(each.recordset()->Filter(), each.criteria);
    EXPECT_EQ(each.recordset()->RecordCount(), 1) << each.criteria;
    each.clear();
    EXPECT_EQ(each.recordset()->RecordCount(), each.all) << each.criteria;
  }
  EXPECT_EQ(Caught([] { FilterUser("O'Brien"); }).Number(), ErrorNumber::AdoInvalidArgument);
  EXPECT_EQ(Users()->RecordCount(), 4);
}

TEST_F(RecordsetsTest, TheRecordsetThatIsPassedIsLoadedAgain) {
  m_database.Run("INSERT INTO ttwGroup (GroupID) VALUES ('Buying') INSERT INTO ttwRight (RightID) VALUES ('Zeal')");
  const SharedRecordset former = Groups();
  InitGlobalRecordset(former);
  Groups()->MoveFirst();
  Groups()->MoveNext();
  EXPECT_EQ(ToText(Groups()->Fields("GroupID").Value()), "Buying");
  EXPECT_EQ(Rights()->RecordCount(), 6);
  for (const auto& stranger : {former, std::make_shared<ado::Recordset>()}) {
    const Error error = Caught([&] { InitGlobalRecordset(stranger); });
    EXPECT_EQ(error.Number(), -1);
    EXPECT_EQ(error.Source() + ": " + error.Description(),
              "modRecordsets.InitGlobalRecordset: Unknown recordset passed");
  }
}

TEST_F(RecordsetsTest, FailedLoadLeavesNull) {
  m_database.Run("DROP TABLE ttwBranch");
  InitGlobalRecordset(Branches());
  EXPECT_EQ(m_prompts->shown.size(), 1U);
  EXPECT_FALSE(Branches());
  m_database.Run("DROP TABLE ttwRightAssignment DROP TABLE ttwRight");
  InitGlobalRecordset(Rights());
  EXPECT_EQ(Caught([] { FilterRight("Order.Enter"); }).Number(), ErrorNumber::ObjectNotSet);
}

}  // namespace
}  // namespace quorvel::modRecordsets
