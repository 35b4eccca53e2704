#include "grid/GridContent.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/grid/TableSource.h"

namespace quorvel {
namespace {

using test::TableSource;

Value Text(const char* text) { return std::string(text); }

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
  struct Case {
    bool isChecked;
    const char *shown, *copied, *spoken;
  };
  std::int32_t line = 0;
  for (const Case& each :
       {Case{false, "", "\tnone", "Can read not set, none"}, Case{false, "", "0\tzero", "Can read not checked, zero"},
        Case{true, "", "0.5\thalf", "Can read checked, half"}, Case{true, "", "1\tone", "Can read checked, one"},
        Case{false, "maybe", "maybe\todd", "maybe, odd"}}) {
    ++line;
    EXPECT_EQ(content.Cell(line, 0).isChecked, each.isChecked) << each.spoken;
    EXPECT_EQ(content.Cell(line, 0).text, each.shown) << each.spoken;
    EXPECT_EQ(content.CopiedLine(line), each.copied);
    EXPECT_EQ(content.SpokenLine(line), each.spoken);
  }
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
}  // namespace quorvel
