// The wrapper on a real grid: which keys and clicks choose a row, and how a bound recordset follows the grid.
#include "grid/GridEXWrapper.h"

#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "ado/Recordset.h"
#include "tests/grid/GridWindow.h"

namespace quorvel::test {
namespace {

class GridEXWrapperTest : public GridWindow {
 protected:
  GridEXWrapperTest() {
    m_wrapper.SetGrid(m_grid);
    m_wrapper.RowChosen = [this] { ++m_chosen; };
  }
  ~GridEXWrapperTest() override { m_wrapper.SetGrid(nullptr); }
  int Chosen() { return std::exchange(m_chosen, 0); }

  std::vector<std::string> m_keys;
  GridEXWrapper m_wrapper{[this](std::string_view keys) { m_keys.emplace_back(keys); }};

 private:
  int m_chosen = 0;
};

TEST_F(GridEXWrapperTest, EnterChoosesRowsAndPlainTabIsSentOn) {
  m_grid->SelectLine(4);
  Press(WXK_RETURN);
  Press(WXK_NUMPAD_ENTER, wxMOD_CONTROL);
  EXPECT_EQ(Chosen(), 2);
  m_grid->SelectLine(3);
  Press(WXK_RETURN);
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0)) << "the grid handles Enter on a heading";
  m_grid->SelectNone();
  Press(WXK_RETURN);
  for (const int key : {WXK_ESCAPE, WXK_SPACE, WXK_DELETE}) Press(key);
  Press(WXK_TAB, wxMOD_SHIFT);
  Press(WXK_TAB, wxMOD_CONTROL);
  EXPECT_EQ(Chosen(), 0);
  EXPECT_THAT(m_keys, IsEmpty());
  Press(WXK_TAB);
  EXPECT_THAT(m_keys, ElementsAre("^{TAB}"));
}

TEST_F(GridEXWrapperTest, DoubleClickChoosesOnlyOnData) {
  wxWindow* const cells = m_grid->GetGridWindow();
  wxWindow* const captions = m_grid->GetGridColLabelWindow();
  const auto middleOf = [this](std::int32_t line) { return m_grid->CellToRect(line - 1, 0).y + 10; };
  using Case = std::tuple<GridArea, wxWindow*, int, int, int>;
  for (const auto& [area, window, x, y, chosen] :
       {Case{GridArea::Cell, cells, 60, middleOf(4), 1}, Case{GridArea::ColumnHeader, captions, 20, 5, 0},
        Case{GridArea::ColumnSeparator, captions, m_grid->GetColSize(0), 5, 0},
        Case{GridArea::Nowhere, cells, 20, 350, 0}, Case{GridArea::GroupRow, cells, 200, middleOf(3), 0}}) {
    Mouse(wxEVT_LEFT_DOWN, window, x, y);
    EXPECT_EQ(m_grid->HitTest(m_wrapper.X(), m_wrapper.Y()), area);
    Mouse(wxEVT_LEFT_DCLICK, window, x, y);
    EXPECT_EQ(Chosen(), chosen) << static_cast<int>(area);
  }
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0)) << "the double-click on a heading closed its group";
  EXPECT_EQ(m_grid->HitTest(-1, 50), GridArea::Nowhere);
  EXPECT_EQ(m_grid->HitTest(20, -1), GridArea::Nowhere);
}

TEST_F(GridEXWrapperTest, KeepsTheLastMousePress) {
  wxMouseEvent right(wxEVT_RIGHT_DOWN);
  right.SetEventObject(m_grid->GetGridWindow());
  right.SetPosition({7, 9});
  right.SetShiftDown(true);
  right.SetAltDown(true);
  m_grid->GetGridWindow()->ProcessWindowEvent(right);
  EXPECT_EQ(m_wrapper.Button(), 2);
  EXPECT_EQ(m_wrapper.Shift(), 5);
  EXPECT_EQ(m_wrapper.X(), 7);
  EXPECT_EQ(m_wrapper.Y(), m_grid->GetColLabelSize() + 9);
  ClickLine(4);
  EXPECT_EQ(m_wrapper.Button(), 1);
}

TEST_F(GridEXWrapperTest, BoundRecordsetFollowsTheCurrentRow) {
  EXPECT_EQ(m_grid->BoundRecordset(), nullptr);
  EXPECT_EQ(Caught([this] { static_cast<void>(m_grid->Bookmark(1)); }).Number(), ErrorNumber::ObjectNotSet);
  EXPECT_EQ(m_wrapper.Value("Memo"), Value()) << "nothing is bound";
  ado::RowSet rows(
      {{"Memo", ado::DataType::VarChar}, {"TYPE", ado::DataType::VarChar}, {"Key", ado::DataType::Integer}});
  for (const int key : {1, 2, 3, 4}) {
    rows.AppendText("text " + std::to_string(key));
    rows.AppendText(key % 2 == 0 ? "even" : "odd");
    rows.AppendInteger(key);
  }
  const auto recordset = std::make_shared<ado::Recordset>(nullptr, std::move(rows));
  recordset->SetFilter("Key > 1");
  recordset->MoveLast();
  m_grid->Bind(recordset);
  m_grid->Refetch();
  EXPECT_THAT(Rows(), ElementsAre(0, 3, 1, 0, 2));
  EXPECT_EQ(m_grid->GetCellValue(1, 1), "text 4");
  EXPECT_EQ(m_grid->Bookmark(3), 4);
  EXPECT_EQ(Caught([this] { static_cast<void>(m_grid->Bookmark(4)); }).Number(), ErrorNumber::InvalidCall);
  EXPECT_EQ(m_wrapper.Value("Memo"), Value()) << "a heading is current";
  EXPECT_EQ(recordset->Bookmark(), 4) << "drawing does not move it";

  m_grid->SelectLine(5);
  EXPECT_EQ(m_wrapper.RowIndex(), 2);
  EXPECT_EQ(m_wrapper.Value("MEMO"), Value(std::string("text 3")));
  EXPECT_EQ(recordset->Bookmark(), 3);
  EXPECT_EQ(m_wrapper.Value("Nobody"), Value());
  recordset->SetFilter("Key = 1");  // and the grid does not know it yet
  m_wrapper.SyncRecordset();
  EXPECT_EQ(recordset->Bookmark(), 1) << "nothing moved";
  m_grid->SetSource(nullptr);
  m_grid->Refetch();
  EXPECT_EQ(m_grid->GetNumberRows(), 0);
}

TEST_F(GridEXWrapperTest, ErrorsPassThroughTheGridWithTheirSource) {
  m_grid->SelectLine(4);
  m_wrapper.RowChosen = [] { ThrowOverflow(); };
  Press(WXK_RETURN);
  ClickLine(4);
  ClickLine(4, 60, wxEVT_LEFT_DCLICK);
  ASSERT_EQ(m_failures.size(), 2U);
  EXPECT_EQ(m_failures[0].Number(), ErrorNumber::Overflow);
  EXPECT_THAT(m_failures[0].Source(), HasSubstr("Quorvel.GridEXWrapper.m_oGrid_KeyDown@"));
  EXPECT_THAT(m_failures[1].Source(), HasSubstr("Quorvel.GridEXWrapper.m_oGrid_DblClick@"));
}

TEST_F(GridEXWrapperTest, WatchesOneGridAndNoneAfterNull) {
  auto* const other = new DataGrid(m_window, {{"Key", "Key", 50}}, {1});
  m_wrapper.SetGrid(other);
  m_grid->SelectLine(4);
  Press(WXK_RETURN);
  EXPECT_EQ(Chosen(), 0);
  EXPECT_EQ(m_wrapper.RowIndex(), 0) << "of the other, which is empty";
  m_wrapper.SetGrid(nullptr);
  EXPECT_THAT(Caught([this] { static_cast<void>(m_wrapper.RowIndex()); }),
              IsError(ErrorNumber::ObjectNotSet, HasSubstr("Quorvel.GridEXWrapper.RowIndex@"), _));
  EXPECT_EQ(m_wrapper.Value("Key"), Value());
}

}  // namespace
}  // namespace quorvel::test
