#include <vector>

#include "data/modControls.h"
#include "data/modDatabase.h"
#include "platform/Error.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/MemoryControls.h"
#include "tests/support/TestDatabase.h"

namespace quorvel::test {
namespace {

TEST(Controls, SelectByKeyOrTextFindsTheFirstItem) {
  using Select = void (*)(MemoryChoice&, bool selectFirst);
  struct Case {
    const char* name;
    Select select;
    std::vector<std::int32_t> sets;            ///< the indexes set after the first one, 1
    std::vector<std::int32_t> setSelectFirst;  ///< the same with selectFirst
  };
  const Case cases[] = {
      {"key", [](MemoryChoice& box, bool first) { modControls::SelectByKey(box, 7, first); }, {2}, {2}},
      {"no such key", [](MemoryChoice& box, bool first) { modControls::SelectByKey(box, 9, first); }, {1}, {0}},
      {"text", [](MemoryChoice& box, bool first) { modControls::SelectByText(box, "SOUTH", first); }, {2}, {2}},
      {"no such text", [](MemoryChoice& box, bool first) { modControls::SelectByText(box, "West", first); }, {1}, {0}},
      {"blanks", [](MemoryChoice& box, bool first) { modControls::SelectByText(box, " South", first); }, {1}, {0}},
      {"shown text", [](MemoryChoice& box, bool first) { modControls::SelectByText(box, "eaST", first); }, {}, {}},
      {"list text", [](MemoryChoice& box, bool) { modControls::SelectListText(box, "South"); }, {3}, {3}},
      {"no such list text", [](MemoryChoice& box, bool) { modControls::SelectListText(box, "West"); }, {}, {}}};
  for (const Case& each : cases) {
    for (const bool selectFirst : {false, true}) {
      MemoryChoice box;
      box.items = {{"North", 3}, {"East", 5}, {" South ", 7}, {"South", 7}};
      box.sets = {1};
      each.select(box, selectFirst);
      std::vector<std::int32_t> expected = selectFirst ? each.setSelectFirst : each.sets;
      expected.insert(expected.begin(), 1);
      EXPECT_EQ(box.sets, expected) << each.name << ", selectFirst " << selectFirst;
    }
  }
}

TEST(Controls, FillingTakesTextAndKeyOfEachRowAndMovesBack) {
  const TestDatabase database;
  modDatabase::EnsureConnection();
  const auto groups = modDatabase::LoadDisconnectedRst(
      "SELECT '  ' + GroupID + ' ' AS Shown, GroupKey, NULL AS Nothing FROM ttwGroup WHERE GroupKey < 3");
  MemoryChoice box;
  box.items = {{"former", 99}};
  modDatabase::FillList(box, groups->RecordCount(), "shown", "groupkey", groups);
  EXPECT_THAT(box.items, ElementsAre(std::pair("Default", 1), std::pair("Collections", 2)));
  EXPECT_EQ(modDatabase::FieldText(groups->Fields("GroupKey")), "1");
  EXPECT_EQ(modDatabase::FieldText(groups->Fields("Nothing")), "");

  modControls::FillCombo(box, 1, "Shown", "", groups);
  EXPECT_THAT(box.items, ElementsAre(std::pair("<none>", 0), std::pair("Default", 0)));
  modControls::FillCombo(box, 1, "Shown", "GroupKey", groups, false);
  EXPECT_THAT(box.items, ElementsAre(std::pair("Default", 1)));
  EXPECT_EQ(Caught([&] { modDatabase::FillList(box, 1, "Nothing", "GroupKey", groups); }).Number(),
            ErrorNumber::InvalidUseOfNull);

  EXPECT_EQ(Caught([&] { modDatabase::FillList(box, 1, "Shown", "GroupKey", nullptr); }).Number(),
            ErrorNumber::ObjectNotSet);

  groups->SetFilter("GroupKey = 99");
  modDatabase::FillList(box, groups->RecordCount(), "Shown", "GroupKey", groups);
  EXPECT_EQ(box.Count(), 0);
}

}  // namespace
}  // namespace quorvel::test
