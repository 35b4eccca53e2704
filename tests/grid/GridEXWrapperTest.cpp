#include "grid/GridEXWrapper.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "ado/Recordset.h"
#include "platform/Error.h"
#include "tests/support/Caught.h"

namespace quorvel {
namespace {

using test::Caught;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A grid of four lines: a heading and three rows, each its recordset's next but one.
class FakeGrid : public WatchedGrid {
 public:
  [[nodiscard]] std::int32_t CurrentRow() const override { return current; }
  [[nodiscard]] std::int32_t RowIndex(std::int32_t row) const override {
    if (fails) throw Error(ErrorNumber::DbUnspecified, "", "no rows now");
    return row == 99 ? -1 : std::max(row - 1, 0);
  }
  [[nodiscard]] std::int32_t Bookmark(std::int32_t rowIndex) const override { return rowIndex * 2; }
  [[nodiscard]] ado::Recordset* BoundRecordset() const override { return recordset; }
  [[nodiscard]] GridArea HitTest(double x, double y) const override {
    hit = {x, y};
    return area;
  }
  void Watch(GridEvents* watcher) override { events = watcher; }

  std::int32_t current = 2;
  ado::Recordset* recordset = nullptr;
  GridArea area = GridArea::Cell;
  bool fails = false;
  GridEvents* events = nullptr;
  mutable std::pair<double, double> hit;
};

class GridEXWrapperTest : public testing::Test {
 protected:
  GridEXWrapperTest() : m_wrapper([this](std::string_view keys) { m_keys.emplace_back(keys); }) {
    m_wrapper.SetGrid(&m_grid);
    m_wrapper.RowChosen = [this] { ++m_chosen; };
  }
  /// What is left of the key for the grid.
  std::int16_t Press(std::int16_t keyCode, std::int16_t shift = 0) {
    m_grid.events->KeyDown(keyCode, shift);
    return keyCode;
  }
  int Chosen() { return std::exchange(m_chosen, 0); }

  FakeGrid m_grid;
  std::vector<std::string> m_keys;
  GridEXWrapper m_wrapper;

 private:
  int m_chosen = 0;
};

TEST_F(GridEXWrapperTest, KeysThatItTakesAndKeysThatItLeaves) {
  struct Case {
    std::int32_t line;
    std::int16_t key, shift, left;
    int chosen;
  };
  for (const Case& each : {Case{2, 13, 0, 0, 1}, Case{2, 13, 2, 0, 1}, Case{1, 13, 0, 13, 0}, Case{0, 13, 0, 13, 0},
                           Case{99, 13, 0, 0, 1}, Case{2, 27, 0, 27, 0}, Case{2, 9, 1, 9, 0}, Case{2, 9, 2, 9, 0}}) {
    m_grid.current = each.line;
    EXPECT_EQ(Press(each.key, each.shift), each.left) << each.line << " " << each.key;
    EXPECT_EQ(Chosen(), each.chosen) << each.line << " " << each.key;
  }
  EXPECT_THAT(m_keys, IsEmpty());
  EXPECT_EQ(Press(9), 9);
  m_grid.current = 0;
  EXPECT_EQ(Press(9), 9);
  EXPECT_THAT(m_keys, ElementsAre("^{TAB}", "^{TAB}"));
}

TEST_F(GridEXWrapperTest, DoubleClickOnDataChoosesWhereTheMouseWasPressed) {
  m_grid.events->MouseDown(2, 5, 10.4, -3.6);
  EXPECT_EQ(m_wrapper.Button(), 2);
  EXPECT_EQ(m_wrapper.Shift(), 5);
  EXPECT_EQ(m_wrapper.X(), 10);
  EXPECT_EQ(m_wrapper.Y(), -4);
  for (int area = 0; area <= 9; ++area) {
    m_grid.area = static_cast<GridArea>(area);
    m_grid.events->DoubleClick();
    const bool isData = area != 1 && area != 2 && area != 4 && area != 7;
    EXPECT_EQ(Chosen(), isData ? 1 : 0) << area;
  }
  EXPECT_EQ(m_grid.hit, std::make_pair(10.0, -4.0));
  m_grid.area = GridArea::Cell;
  m_grid.current = 1;
  m_grid.events->DoubleClick();
  EXPECT_EQ(Chosen(), 0) << "no row is current";
}

TEST_F(GridEXWrapperTest, KeepsABoundRecordsetOnTheCurrentRow) {
  ado::RowSet rows({{"Name", ado::DataType::VarChar}});
  for (const char* name : {"a", "b", "c", "d"}) rows.AppendText(name);
  ado::Recordset recordset(nullptr, std::move(rows));
  EXPECT_EQ(m_wrapper.Value("Name"), Value()) << "nothing is bound";
  m_grid.recordset = &recordset;
  m_grid.current = 3;
  EXPECT_EQ(m_wrapper.Value("NAME"), Value(std::string("d")));
  EXPECT_EQ(recordset.Bookmark(), 4);
  EXPECT_EQ(m_wrapper.Value("Nobody"), Value());

  for (const std::int32_t noRow : {0, 1, 99}) {
    m_grid.current = noRow;
    EXPECT_EQ(m_wrapper.Value("Name"), Value()) << noRow;
  }
  m_grid.current = 4;  // a bookmark that is not there
  m_wrapper.SyncRecordset();
  EXPECT_EQ(recordset.Bookmark(), 4) << "nothing moved";
}

TEST_F(GridEXWrapperTest, TrapsItsErrorsOrTellsWhereTheyPassed) {
  m_grid.fails = true;
  m_wrapper.SyncRecordset();
  EXPECT_EQ(m_wrapper.Value("Name"), Value());
  const Error error = Caught([&] { static_cast<void>(m_wrapper.RowIndex()); });
  EXPECT_EQ(error.Number(), ErrorNumber::DbUnspecified);
  EXPECT_EQ(error.Description(), "no rows now");
  EXPECT_THAT(error.Source(), HasSubstr("Quorvel.GridEXWrapper.RowIndex@"));
  EXPECT_THAT(Caught([&] { Press(13); }).Source(), HasSubstr(".GridEXWrapper."));
}

TEST_F(GridEXWrapperTest, WatchesOneGrid) {
  FakeGrid other;
  m_wrapper.SetGrid(&other);
  EXPECT_EQ(m_grid.events, nullptr);
  EXPECT_NE(other.events, nullptr);
  m_wrapper.SetGrid(nullptr);
  EXPECT_EQ(other.events, nullptr);
  EXPECT_EQ(Caught([&] { static_cast<void>(m_wrapper.RowIndex()); }).Number(), ErrorNumber::ObjectNotSet);
  EXPECT_EQ(m_wrapper.Value("Name"), Value());
}

}  // namespace
}  // namespace quorvel
