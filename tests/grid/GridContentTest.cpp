// The rows of a grid and their texts, without a window.
#include "grid/GridContent.h"

#include <limits>
#include <string>
#include <tuple>
#include <vector>

#include "grid/GridRows.h"
#include "grid/RowSearch.h"
#include "tests/grid/TableSource.h"
#include "tests/support/Matchers.h"

namespace quorvel::test {
namespace {

Value Text(const char* text) { return std::string(text); }
Value Whole(std::int64_t number) { return number; }

/// The row index on each line, 0 for headings.
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
std::vector<std::int32_t> Sorted(const TableSource& source, const std::vector<SortKey>& keys) {
  GridRows rows;
  rows.Arrange(source, std::nullopt, keys);
  return Lines(rows);
}

constexpr SortKey kByType{1, true};
const std::vector<SortKey> kNewestFirst = {{2, false}};

TEST(GridRows, SortIsStable) {
  EXPECT_THAT(Sorted(Remarks(), {}), ElementsAre(1, 2, 3, 4, 5, 6));
  EXPECT_THAT(Sorted(Remarks(), kNewestFirst), ElementsAre(3, 6, 5, 1, 2, 4));
  GridRows rows;
  rows.Arrange(Remarks(), std::nullopt, {{1, true}, {2, true}});
  EXPECT_THAT(Lines(rows), ElementsAre(5, 2, 4, 1, 6, 3));
  EXPECT_EQ(rows.LineOf(6), 5);
  EXPECT_EQ(rows.HeadingOf(6), 0);
}

TEST(GridRows, GroupsAreCountedAndStayClosed) {
  const TableSource source = Remarks();
  GridRows rows;
  rows.Arrange(source, kByType, kNewestFirst);
  EXPECT_EQ(source.reads, 12) << "each sorted or grouped column of each row is read once";
  EXPECT_THAT(Lines(rows), ElementsAre(0, 5, 0, 2, 4, 0, 3, 6, 1));
  ASSERT_EQ(rows.Groups().size(), 3U);
  EXPECT_EQ(rows.GroupAt(6)->value, Text("General")) << "as in the first row of the source";
  EXPECT_EQ(rows.GroupAt(6)->count, 3);
  EXPECT_EQ(rows.GroupAt(7), nullptr);
  EXPECT_FALSE(rows.IsEvenRow(7)) << "counted from the group's first row";
  EXPECT_TRUE(rows.IsEvenRow(8));

  rows.SetOpen(3, false);
  rows.SetOpen(2, false);  // no heading
  EXPECT_THAT(Lines(rows), ElementsAre(0, 5, 0, 0, 3, 6, 1));
  EXPECT_EQ(rows.LineOf(4), 0);

  rows.Arrange(source, SortKey{1, false}, kNewestFirst);
  EXPECT_THAT(Lines(rows), ElementsAre(0, 3, 6, 1, 0, 0, 5)) << "Billing stays closed in its new place";
}

TEST(GridRows, MissingLinesAndRowsAreEmpty) {
  GridRows rows;
  rows.Arrange(TableSource({}), kByType, kNewestFirst);
  EXPECT_EQ(rows.LineCount(), 0);
  rows.Arrange(Remarks(), kByType, {});
  for (const std::int32_t missing : {-1, 0, 10, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(rows.RowIndex(missing), 0) << missing;
    EXPECT_EQ(rows.LineOf(missing), 0) << missing;
    EXPECT_EQ(rows.GroupAt(missing), nullptr) << missing;
  }
}

TEST(GridRows, LongTextsAreOrderedByTheirEnds) {
  const std::string same(500, 'x');
  const std::string accents = [] {
    std::string text;
    for (int i = 0; i < 64; ++i) text += i % 2 == 0 ? "\xC3\x89" : "\xC3\xA9";  // two letter cases of one letter
    return text;
  }();
  const TableSource source(
      {{same + "b"}, {same + "A"}, {same}, {std::string(64, 'X')}, {accents + "2"}, {accents + "1"}});
  EXPECT_THAT(Sorted(source, {{1, true}}), ElementsAre(4, 3, 2, 1, 6, 5));
}

TEST(GridRows, ValuesOfAllKindsHaveOneOrder) {
  const DateTime early = kZeroDate;
  const std::vector<Value> ascending = {Value(),    Value(true), Value(-0.5),  Whole(0),
                                        Value(2.5), Whole(3),    Value(early), Value(early + std::chrono::hours(1)),
                                        Text(""),   Text("a"),   Text("B")};
  std::vector<std::vector<Value>> cells;
  cells.reserve(ascending.size());
  for (std::size_t i = 0; i < ascending.size(); ++i) cells.push_back({ascending[i * 7 % ascending.size()]});
  const TableSource source(cells);
  std::vector<Value> sorted;
  for (const std::int32_t row : Sorted(source, {{1, true}})) sorted.push_back(source.At(row, 1));
  EXPECT_EQ(sorted, ascending);

  EXPECT_THAT(Sorted(TableSource({{Whole(5)}, {Value()}, {Whole(-7)}}), {{1, true}}), ElementsAre(2, 3, 1))
      << "null comes before every number";
}

TEST(GridContent, FlagsTellOneZeroAndNullApart) {
  const TableSource source({{Text("one"), std::int64_t{1}},
                            {Text("zero"), std::int64_t{0}},
                            {Text("none"), Value()},
                            {Text("half"), 0.5},
                            {Text("odd"), Text("maybe")}});
  GridContent content({{"Name", "Name", 100}, {"CanRead", "Can read", 50, true, CellFormat::Flag}}, {2, 1});
  content.SetSource(&source);
  content.SortBy({{2, true}});
  content.Arrange();
  using Case = std::tuple<bool, const char*, const char*, const char*>;
  std::int32_t line = 0;
  for (const auto& [isChecked, shown, copied, spoken] :
       {Case{false, "", "\tnone", "Can read not set, none"}, Case{false, "", "0\tzero", "Can read not checked, zero"},
        Case{true, "", "0.5\thalf", "Can read checked, half"}, Case{true, "", "1\tone", "Can read checked, one"},
        Case{false, "maybe", "maybe\todd", "maybe, odd"}}) {
    ++line;
    EXPECT_EQ(content.Cell(line, 0).isChecked, isChecked) << spoken;
    EXPECT_EQ(content.Cell(line, 0).text, shown) << spoken;
    EXPECT_EQ(content.CopiedLine(line), copied);
    EXPECT_EQ(content.SpokenLine(line), spoken);
  }
}

TEST(RowSearch, GoesRoundInTheOrderOfTheGrid) {
  const TableSource source({{Text("General"), Text("alpha Straße")},
                            {Text("Billing"), Text("beta")},
                            {Text("General"), Text("Alphabet")},
                            {Text("Billing"), Text("gamma")}});
  GridContent content({{"Type", "Type", 50, false}, {"Text", "Text", 50}}, {1, 2});
  content.SetSource(&source);
  EXPECT_EQ(FindRow(content, 0, "a", SearchFrom::Here), 0) << "no rows yet";
  content.GroupBy(kByType);
  content.Arrange();
  content.SetOpen(4, false);  // lines: Billing, row 2, row 4, General with rows 1 and 3
  using Case = std::tuple<std::int32_t, const char*, SearchFrom, std::int32_t>;
  using enum SearchFrom;
  for (const auto& [line, text, from, found] :
       {Case{0, "ALPHA", Here, 1}, Case{2, "a", Here, 2}, Case{2, "a", Next, 4}, Case{3, "a", Next, 1},
        Case{2, "a", Previous, 3}, Case{1, "a", Here, 2}, Case{4, "a", Here, 1}, Case{4, "a", Previous, 4},
        Case{2, "beta", Next, 2}, Case{2, "STRAßE", Next, 1}, Case{2, "general", Here, 0}, Case{2, "", Here, 0}}) {
    EXPECT_EQ(FindRow(content, line, text, from), found) << line << text;
  }
}

TEST(GridContent, OnlyADateHasMoreToTell) {
  const TableSource source({{*ParseDateTime("2024-03-11 13:30:00"), Text("a")}});
  GridContent content({{"Date", "Date", 50, true, CellFormat::ShortDate}, {"Text", "Text", 50}}, {1, 2});
  content.SetSource(&source);
  content.Arrange();
  EXPECT_THAT(content.CellTip(1, 0), StartsWith(content.CellText(1, 0) + " "));
  EXPECT_THAT(content.CellTip(1, 0), HasSubstr("30:00"));
  EXPECT_EQ(content.CellTip(1, 1), "");
}

TEST(GridContent, SpokenValuesAreCutBetweenCharacters) {
  const std::string most(200, 'x');
  const TableSource source({{most}, {most + "y"}, {std::string(199, 'x') + "\xC3\xA9"}});
  GridContent content({{"Text", "Text", 100}}, {1});
  content.SetSource(&source);
  content.Arrange();
  EXPECT_EQ(content.SpokenLine(1), most);
  EXPECT_EQ(content.SpokenLine(2), most);
  EXPECT_EQ(content.SpokenLine(3), std::string(199, 'x'));
  EXPECT_EQ(content.CopiedLine(2), most + "y");
}

}  // namespace
}  // namespace quorvel::test
