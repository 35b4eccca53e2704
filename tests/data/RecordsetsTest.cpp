#include "data/modRecordsets.h"
#include "platform/Error.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::modRecordsets {
namespace {

using test::Caught;

TEST(Recordsets, AreFilteredAndLoadedAgainEachOnItsOwn) {
  const test::PromptsGuard prompts;
  const test::TestDatabase database;
  InitGlobalRecordsets();
  const struct {
    const SharedRecordset& (*recordset)();
    void (*filter)();
    void (*clear)();
    std::string criteria;
  } cases[] = {{Users, [] { FilterUser("JSMITH"); }, ClearUserFilter, "UserID='JSMITH'"},
               {Groups, [] { FilterGroup("Sales"); }, ClearGroupFilter, "GroupID='Sales'"},
               {Contexts, [] { FilterContext("CustInq"); }, ClearContextFilter, "ContextID='CustInq'"},
               {Rights, [] { FilterRight("Order.Enter"); }, ClearRightFilter, "RightID='Order.Enter'"},
               {RemarkTypes, [] { FilterRemarkType("Ord.Note"); }, ClearRemarkTypeFilter, "RemarkTypeID='Ord.Note'"},
               {RemarkEntities, [] { FilterEntity(2); }, ClearEntityFilter, "RemarkEntityKey='2'"}};
  for (const auto& each : cases) {
    each.filter();
    EXPECT_EQ(each.recordset()->Filter(), each.criteria);
    EXPECT_EQ(each.recordset()->RecordCount(), 1) << each.criteria;
    each.clear();
    EXPECT_GT(each.recordset()->RecordCount(), 1) << each.criteria;
  }
  EXPECT_EQ(Caught([] { FilterUser("O'Brien"); }).Number(), ErrorNumber::AdoInvalidArgument);

  database.Run("INSERT INTO ttwGroup (GroupID) VALUES ('Buying') INSERT INTO ttwRight (RightID) VALUES ('Zeal')");
  SharedRecordset former;
  former = Groups();
  InitGlobalRecordset(former);
  EXPECT_EQ(Groups()->RecordCount() * 10 + Rights()->RecordCount(), 56) << "only the groups";
  EXPECT_THAT(Caught([&] { InitGlobalRecordset(former); }),
              test::IsError(-1, "modRecordsets.InitGlobalRecordset", "Unknown recordset passed"));

  database.Run("DROP TABLE ttwRightAssignment DROP TABLE ttwRight");
  InitGlobalRecordset(Rights());
  EXPECT_EQ(prompts->shown.size(), 1U);
  EXPECT_EQ(Caught([] { FilterRight("Order.Enter"); }).Number(), ErrorNumber::ObjectNotSet);
}

}  // namespace
}  // namespace quorvel::modRecordsets
