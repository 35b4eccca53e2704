#include "grid/GridRows.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "tests/grid/TableSource.h"
#include "tests/support/Caught.h"

namespace quorvel {
namespace {

using test::Caught;
using test::TableSource;
using testing::ElementsAre;
using testing::IsEmpty;

Value Text(const char* text) { return std::string(text); }
Value Whole(std::int64_t number) { return number; }

/// What stands on each line: row indexes, and 0 for headings.
std::vector<std::int32_t> Lines(const GridRows& rows) {
  std::vector<std::int32_t> lines;
  for (std::int32_t line = 1; line <= rows.LineCount(); ++line) lines.push_back(rows.RowIndex(line));
  return lines;
}

TableSource Remarks() {
  return TableSource({{Text("General"), Whole(3)},
                      {Text("Billing"), Whole(1)},
                      {Text("general"), Whole(9)},
                      {Text("Billing"), Whole(1)},
                      {Value(), Whole(5)},
                      {Text("GENERAL"), Whole(6)}});
}
constexpr SortKey kByType{1, true};
const std::vector<SortKey> kNewestFirst = {{2, false}};

TEST(GridRows, SortsWithoutGroupsAndKeepsTheOrderOfEquals) {
  const TableSource source = Remarks();
  GridRows rows;
  rows.Arrange(source, std::nullopt, {});
  EXPECT_THAT(Lines(rows), ElementsAre(1, 2, 3, 4, 5, 6));
  rows.Arrange(source, std::nullopt, kNewestFirst);
  EXPECT_THAT(Lines(rows), ElementsAre(3, 6, 5, 1, 2, 4));
  rows.Arrange(source, std::nullopt, {{1, true}, {2, true}});
  EXPECT_THAT(Lines(rows), ElementsAre(5, 2, 4, 1, 6, 3));
  EXPECT_EQ(rows.LineOf(6), 5);
  EXPECT_EQ(rows.HeadingOf(6), 0);
  EXPECT_FALSE(rows.IsEvenRow(1));
  EXPECT_TRUE(rows.IsEvenRow(2));
}

TEST(GridRows, GroupsCarryTheirCountAndClose) {
  const TableSource source = Remarks();
  GridRows rows;
  rows.Arrange(source, kByType, kNewestFirst);
  EXPECT_THAT(Lines(rows), ElementsAre(0, 5, 0, 2, 4, 0, 3, 6, 1));
  ASSERT_EQ(rows.Groups().size(), 3U);
  EXPECT_EQ(rows.GroupAt(6)->value, Text("General")) << "as the source has it first";
  EXPECT_EQ(rows.GroupAt(6)->count, 3);
  EXPECT_EQ(rows.GroupAt(7), nullptr);
  EXPECT_FALSE(rows.IsEvenRow(7)) << "counted from the group's first row";
  EXPECT_TRUE(rows.IsEvenRow(8));

  rows.SetOpen(3, false);
  rows.SetOpen(2, false);  // no heading
  EXPECT_THAT(Lines(rows), ElementsAre(0, 5, 0, 0, 3, 6, 1));
  EXPECT_EQ(rows.LineOf(4), 0);
  EXPECT_EQ(rows.HeadingOf(4), 3);
  EXPECT_EQ(rows.LineOf(3), 5);
  EXPECT_EQ(rows.GroupAt(4)->count, 3);
  EXPECT_EQ(rows.RowCount(), 6);

  rows.Arrange(source, SortKey{1, false}, kNewestFirst);
  EXPECT_THAT(Lines(rows), ElementsAre(0, 3, 6, 1, 0, 0, 5)) << "Billing stays closed, wherever it stands";
  rows.SetOpen(5, true);
  EXPECT_THAT(Lines(rows), ElementsAre(0, 3, 6, 1, 0, 2, 4, 0, 5));
}

TEST(GridRows, LinesAndRowsThatAreNotThere) {
  const TableSource source = Remarks();
  GridRows rows;
  EXPECT_EQ(rows.LineCount(), 0);
  rows.Arrange(source, kByType, {});
  for (const std::int32_t nowhere : {-1, 0, 10, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(rows.RowIndex(nowhere), 0) << nowhere;
    EXPECT_EQ(rows.LineOf(nowhere), 0) << nowhere;
    EXPECT_EQ(rows.GroupAt(nowhere), nullptr) << nowhere;
  }
  rows.Arrange(TableSource({}), kByType, kNewestFirst);
  EXPECT_THAT(Lines(rows), IsEmpty());
  EXPECT_THAT(rows.Groups(), IsEmpty());
}

TEST(GridRows, AnErrorOfTheSourceChangesNothing) {
  TableSource source = Remarks();
  GridRows rows;
  rows.Arrange(source, kByType, kNewestFirst);
  rows.SetOpen(3, false);
  const std::vector<std::int32_t> before = Lines(rows);
  source.fails = true;
  source.rows.pop_back();
  EXPECT_EQ(Caught([&] { rows.Arrange(source, kByType, {}); }).Number(), ErrorNumber::DbUnspecified);
  EXPECT_EQ(Caught([&] { rows.Arrange(source, std::nullopt, kNewestFirst); }).Number(), ErrorNumber::DbUnspecified);
  EXPECT_EQ(Lines(rows), before);
}

TEST(GridRows, LongTextsAreOrderedByTheirEndsToo) {
  const std::string same(500, 'x');
  const std::string accents = [] {
    std::string text;
    for (int i = 0; i < 64; ++i) text += i % 2 == 0 ? "\xC3\x89" : "\xC3\xA9";  // two letter cases of one letter
    return text;
  }();
  const TableSource source(
      {{same + "b"}, {same + "A"}, {same}, {std::string(64, 'X')}, {accents + "2"}, {accents + "1"}});
  GridRows rows;
  rows.Arrange(source, std::nullopt, {{1, true}});
  EXPECT_THAT(Lines(rows), ElementsAre(4, 3, 2, 1, 6, 5));
}

TEST(GridRows, ValuesOfEveryKindHaveOneOrder) {
  const DateTime early = kZeroDate;
  const std::vector<Value> ascending = {Value(),    Value(true), Value(-0.5),  Whole(0),
                                        Value(2.5), Whole(3),    Value(early), Value(early + std::chrono::hours(1)),
                                        Text(""),   Text("a"),   Text("B")};
  std::vector<std::vector<Value>> cells;
  cells.reserve(ascending.size());
  for (const Value& value : ascending) cells.push_back({value});
  std::shuffle(cells.begin(), cells.end(),
               std::mt19937(1));  // NOLINT(bugprone-random-generator-seed,cert-msc51-cpp): repeatable
  const TableSource source(cells);
  GridRows rows;
  rows.Arrange(source, std::nullopt, {{1, true}});
  std::vector<Value> sorted;
  for (const std::int32_t row : Lines(rows)) sorted.push_back(source.At(row, 1));
  EXPECT_EQ(sorted, ascending);

  rows.Arrange(TableSource({{Whole(5)}, {Value()}, {Whole(-7)}}), std::nullopt, {{1, true}});
  EXPECT_THAT(Lines(rows), ElementsAre(2, 3, 1)) << "nothing comes before every number";
}

TEST(GridRows, ReadsEachSortedAndGroupedColumnOnce) {
  std::vector<std::vector<Value>> cells;
  cells.reserve(1000);
  for (int i = 0; i < 1000; ++i) cells.push_back({Text(i % 3 == 0 ? "a" : "b"), Whole(i * 37 % 101)});
  const TableSource source(cells);
  GridRows rows;
  rows.Arrange(source, kByType, kNewestFirst);
  EXPECT_EQ(source.reads, 2000);
}

}  // namespace
}  // namespace quorvel
