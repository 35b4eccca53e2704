#include "grid/DataGrid.h"

#include <gmock/gmock.h>
#include <gtk/gtk.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/dialog.h>
#include <wx/image.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include "ado/Recordset.h"
#include "grid/GridColours.h"
#include "grid/GridEXWrapper.h"
#include "platform/wx/SendKeys.h"
#include "platform/wx/Text.h"
#include "tests/grid/TableSource.h"
#include "tests/support/Caught.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel {
namespace {

using test::Caught;
using test::HandleEvents;
using test::TableSource;
using test::WaitFor;
using testing::ElementsAre;
using testing::Lt;
using namespace std::string_literals;

Value Text(const char* text) { return std::string(text); }

/// A window with a text box above and below a grid of types and texts.
class DataGridTest : public testing::Test {
 protected:
  DataGridTest() {
    m_window = new wxDialog(nullptr, wxID_ANY, "Grid", wxDefaultPosition, wxSize(600, 400));
    m_before = new wxTextCtrl(m_window, wxID_ANY);
    m_grid =
        new DataGrid(m_window, {{"Type", "Type", 100, false}, {"Key", "Key", 50}, {"Memo", "Remark", 150}}, {2, 1, 3});
    m_after = new wxTextCtrl(m_window, wxID_ANY);
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_before, 0, wxEXPAND);
    sizer->Add(m_grid, 1, wxEXPAND);
    sizer->Add(m_after, 0, wxEXPAND);
    m_window->SetSizer(sizer);
    m_grid->GroupBy(SortKey{1, true});
    m_grid->SortBy({{2, false}});
    m_grid->SetSource(&m_source);
    m_grid->Refetch();
    m_grid->RowChanged = [this] { m_changes.push_back(m_grid->CurrentRow()); };
    m_grid->Failed = [this](const std::exception_ptr& failure) {
      m_failures.push_back(Caught([&] { std::rethrow_exception(failure); }).Description());
    };
    m_window->Show();
    HandleEvents();
  }
  ~DataGridTest() override { delete m_window; }

  void Press(int key, int modifiers = wxMOD_NONE) {
    wxKeyEvent event(wxEVT_KEY_DOWN);
    event.m_keyCode = key;
    event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
    event.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
    m_grid->GetGridWindow()->ProcessWindowEvent(event);
  }
  /// As the user does it, seen from the window that is pressed on.
  void Mouse(wxEventType type, wxWindow* window, int x, int y) {
    for (const wxEventType each : {type, wxEventType{wxEVT_LEFT_UP}}) {
      wxMouseEvent event(each);
      event.SetEventObject(window);
      event.SetPosition({x, y});
      event.m_leftDown = each != wxEVT_LEFT_UP;
      window->ProcessWindowEvent(event);
    }
  }
  void ClickLine(std::int32_t line, int x = 60, wxEventType type = wxEVT_LEFT_DOWN) {
    const wxRect rect = m_grid->CellToRect(line - 1, 0);
    Mouse(type, m_grid->GetGridWindow(), x, rect.y + rect.height / 2);
  }
  void ClickCaption(int place) {
    int x = 20;
    for (int each = 0; each < place; ++each) x += m_grid->GetColSize(each);
    Mouse(wxEVT_LEFT_DOWN, m_grid->GetGridColLabelWindow(), x, 5);
  }
  [[nodiscard]] std::vector<std::int32_t> Rows() const {
    std::vector<std::int32_t> rows;
    for (std::int32_t line = 1; line <= m_grid->GetNumberRows(); ++line) rows.push_back(m_grid->RowIndex(line));
    return rows;
  }
  [[nodiscard]] std::int32_t Row() const { return m_grid->RowIndex(m_grid->CurrentRow()); }
  std::vector<std::int32_t> Changes() { return std::exchange(m_changes, {}); }
  /// Draws all lines, and gives the picture.
  wxImage Picture() {
    const wxSize size(600, m_grid->GetColLabelSize() + m_grid->GetGridWindow()->GetVirtualSize().y);
    wxBitmap bitmap;
    bitmap.Create(size);
    wxMemoryDC dc(bitmap);
    m_grid->Render(dc, {0, 0}, size, {-1, -1}, {-1, -1}, wxGRID_DRAW_COLS_HEADER);
    dc.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage();
  }

  TableSource m_source{{{Text("General"), std::int64_t{1}, Text("one")},
                        {Text("Billing"), std::int64_t{2}, Text("two")},
                        {Text("General"), std::int64_t{3}, Text("three")},
                        {Text("General"), std::int64_t{4}, Text("four")}}};
  wxDialog* m_window;
  wxTextCtrl* m_before;
  DataGrid* m_grid;
  wxTextCtrl* m_after;
  std::vector<std::string> m_failures;

 private:
  std::vector<std::int32_t> m_changes;
};

TEST_F(DataGridTest, KeysMoveAndCloseGroups) {
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0, 4, 3, 1));
  EXPECT_EQ(m_grid->CurrentRow(), 1);
  Press(WXK_DOWN);
  Press(WXK_END);
  Press(WXK_DOWN);
  Press(WXK_UP);
  EXPECT_THAT(Changes(), ElementsAre(2, 6, 5));
  Press(WXK_LEFT);
  EXPECT_EQ(m_grid->CurrentRow(), 3) << "the row's heading";
  for (const auto& [close, open] : {std::pair<int, int>{WXK_LEFT, WXK_RIGHT}, {'-', '+'}, {WXK_RETURN, WXK_SPACE}}) {
    Press(close);
    EXPECT_THAT(Rows(), ElementsAre(0, 2, 0)) << close;
    Press(open);
    EXPECT_THAT(Rows(), ElementsAre(0, 2, 0, 4, 3, 1)) << open;
  }
  EXPECT_THAT(Changes(), ElementsAre(3));
  Press(WXK_PAGEDOWN);
  EXPECT_EQ(m_grid->CurrentRow(), 6);
  Press(WXK_PAGEUP);
  EXPECT_EQ(m_grid->CurrentRow(), 1);
}

TEST_F(DataGridTest, ACurrentRowSurvivesSortingAndGroupsOfOthers) {
  m_grid->SelectRowIndex(3);
  Changes();
  m_grid->SetGroupOpen(1, false);
  EXPECT_EQ(Row(), 3);
  ClickCaption(0);
  EXPECT_THAT(Rows(), ElementsAre(0, 0, 1, 3, 4));
  ClickCaption(1);
  EXPECT_THAT(Rows(), ElementsAre(0, 0, 4, 1, 3)) << "by text, within its group";
  EXPECT_EQ(m_grid->GetSortingColumn(), 1);
  ClickCaption(1);
  EXPECT_THAT(Rows(), ElementsAre(0, 0, 3, 1, 4));
  EXPECT_FALSE(m_grid->IsSortOrderAscending());
  EXPECT_EQ(Row(), 3);
  EXPECT_THAT(Changes(), ElementsAre()) << "the same row all the time";
  m_grid->SetGroupOpen(2, false);
  EXPECT_EQ(m_grid->CurrentRow(), 2);
  EXPECT_EQ(Row(), 0);
  EXPECT_THAT(Changes(), ElementsAre(2));
  m_grid->Refetch();
  EXPECT_THAT(Rows(), ElementsAre(0, 0)) << "what the user arranged is held";
  m_grid->SelectRowIndex(4);
  EXPECT_THAT(Rows(), ElementsAre(0, 0, 3, 1, 4));
  EXPECT_EQ(m_grid->CurrentRow(), 5);
  m_grid->GroupBy(SortKey{1, true});
  m_grid->Refetch();
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0, 3, 1, 4)) << "laid out anew, for other rows perhaps";
}

TEST_F(DataGridTest, TheMouseSelectsOpensAndChooses) {
  GridEXWrapper wrapper([](std::string_view) {});
  wrapper.SetGrid(m_grid);
  int chosen = 0;
  wrapper.RowChosen = [&chosen] { ++chosen; };
  ClickLine(4);
  EXPECT_EQ(Row(), 4);
  EXPECT_EQ(wrapper.Button(), 1);
  EXPECT_EQ(m_grid->HitTest(wrapper.X(), wrapper.Y()), GridArea::Cell);
  ClickLine(4, 60, wxEVT_LEFT_DCLICK);
  EXPECT_EQ(chosen, 1);
  ClickLine(3, 8);
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0)) << "the triangle";
  ClickLine(3, 200);
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0)) << "a heading's text";
  EXPECT_EQ(m_grid->HitTest(wrapper.X(), wrapper.Y()), GridArea::GroupRow);
  ClickLine(3, 200, wxEVT_LEFT_DCLICK);
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0, 4, 3, 1));
  Mouse(wxEVT_LEFT_DOWN, m_grid->GetGridColLabelWindow(), m_grid->GetColSize(0), 5);
  EXPECT_EQ(m_grid->HitTest(wrapper.X(), wrapper.Y()), GridArea::ColumnSeparator);
  EXPECT_EQ(m_grid->HitTest(20, 5), GridArea::ColumnHeader);
  EXPECT_EQ(m_grid->HitTest(20, 390), GridArea::Nowhere);
  EXPECT_EQ(m_grid->HitTest(-1, 50), GridArea::Nowhere);
  EXPECT_EQ(chosen, 1);
  wrapper.SetGrid(nullptr);
}

TEST_F(DataGridTest, TabLeavesForwardsAndBackwards) {
  // Without a window manager keys go where the pointer is.
  wxUIActionSimulator().MouseMove(m_grid->GetScreenPosition() + wxPoint(100, 100));
  GridEXWrapper wrapper(ui::SendKeys);
  for (GridEXWrapper* const watcher : {&wrapper, static_cast<GridEXWrapper*>(nullptr)}) {
    if (watcher != nullptr) watcher->SetGrid(m_grid);
    m_grid->SetFocus();
    ASSERT_TRUE(WaitFor([this] { return m_grid->GetGridWindow()->HasFocus(); }));
    Press(WXK_TAB);
    EXPECT_TRUE(WaitFor([this] { return m_after->HasFocus(); }));
    m_grid->SetFocus();
    ASSERT_TRUE(WaitFor([this] { return m_grid->GetGridWindow()->HasFocus(); }));
    Press(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(WaitFor([this] { return m_before->HasFocus(); }));
    wrapper.SetGrid(nullptr);
  }
  EXPECT_EQ(Caught([] { ui::SendKeys("{F1}"); }).Number(), ErrorNumber::InvalidCall);
}

TEST_F(DataGridTest, TheCurrentRowIsReadOut) {
  m_source.rows[3][2] = "four\0\xFF lines\n"s;
  const auto spoken = [this] {
    return std::string(atk_object_get_name(gtk_widget_get_accessible(m_grid->GetGridWindow()->GetHandle())));
  };
  m_grid->SelectRow(4);
  EXPECT_EQ(spoken(), "4, four \xEF\xBF\xBD lines\n");
  m_grid->SelectRow(3);
  EXPECT_EQ(spoken(), "Type: General (3)");
  m_source.rows.clear();
  m_grid->Refetch();
  EXPECT_EQ(spoken(), "Remarks");
}

TEST_F(DataGridTest, RowsAreColouredByTurns) {
  m_grid->SelectRow(2);
  const wxImage picture = Picture();
  const auto colourOf = [&](std::int32_t line) {
    const int x = m_grid->GetColSize(0) - 6;
    const int y = m_grid->GetColLabelSize() + m_grid->CellToRect(line - 1, 0).y + 3;
    return Colour{picture.GetRed(x, y), picture.GetGreen(x, y), picture.GetBlue(x, y)};
  };
  const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  const Colour odd = ReadableBackground(kOddRow, {text.Red(), text.Green(), text.Blue()});
  const Colour even = ReadableBackground(kEvenRow, {text.Red(), text.Green(), text.Blue()});
  EXPECT_EQ(colourOf(4), odd);
  EXPECT_EQ(colourOf(5), even);
  EXPECT_EQ(colourOf(6), odd);
  EXPECT_NE(colourOf(2), odd) << "the current row";
  EXPECT_NE(colourOf(3), odd) << "a heading";
}

TEST_F(DataGridTest, ColumnsShareTheWindowAndComeAndGo) {
  const auto total = [this] {
    int sum = 0;
    for (int place = 0; place < m_grid->GetNumberCols(); ++place) sum += m_grid->GetColSize(place);
    return sum;
  };
  const auto inside = [this] { return m_grid->GetGridWindow()->GetClientSize().x; };
  EXPECT_EQ(total(), inside());
  EXPECT_EQ(m_grid->GetColSize(0), inside() / 4);
  m_window->SetSize(800, 400);
  ASSERT_TRUE(WaitFor([&] { return inside() > 700; }));
  EXPECT_EQ(total(), inside());
  m_grid->ShowColumn(1, true);
  m_grid->GroupBy(std::nullopt);
  m_grid->Refetch();
  EXPECT_EQ(m_grid->GetNumberCols(), 3);
  EXPECT_EQ(total(), inside());
  EXPECT_EQ(m_grid->GetColLabelValue(1), "Type");
  EXPECT_EQ(m_grid->GetCellValue(0, 1), "General");
  EXPECT_EQ(Row(), 4);
}

TEST_F(DataGridTest, RowHeightIsGivenInTextLines) {
  m_grid->SetRowHeight(190);
  const int line = m_grid->GetRowSize(1);
  m_grid->SetRowHeight(10 * 190 + 90);
  EXPECT_NEAR(m_grid->GetRowSize(1), line * 10.5, line / 2.0);
  EXPECT_LT(m_grid->GetRowSize(0), 2 * line) << "headings stay low";
  m_grid->AllowRowSizing(true);
  m_grid->SetRowSize(1, 77);
  wxGridSizeEvent sized(m_grid->GetId(), wxEVT_GRID_ROW_SIZE, m_grid, 1);
  m_grid->ProcessWindowEvent(sized);
  m_grid->GroupBy(std::nullopt);
  m_grid->Refetch();
  EXPECT_THAT(Rows(), ElementsAre(4, 3, 2, 1));
  EXPECT_EQ(m_grid->GetRowSize(2), 77) << "the row that was dragged, wherever it is";
}

TEST_F(DataGridTest, ErrorsOfTheSourceAreToldOnceAndShowNothing) {
  m_source.fails = true;
  Picture();
  Picture();
  HandleEvents();
  EXPECT_THAT(m_failures, ElementsAre("the connection is gone"));
  EXPECT_EQ(m_grid->GetCellValue(1, 0), "");
  ClickCaption(0);
  EXPECT_EQ(m_failures.size(), 2U);
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0, 4, 3, 1));
  EXPECT_EQ(Caught([this] { m_grid->Refetch(); }).Description(), "the connection is gone");
  m_source.fails = false;
  m_grid->Refetch();
  EXPECT_EQ(m_grid->GetCellValue(1, 0), "2") << "sorted as before";
  m_grid->RowChanged = [] { ThrowOverflow(); };
  Press(WXK_DOWN);
  EXPECT_EQ(m_failures.size(), 3U);
}

TEST_F(DataGridTest, MayBeRefetchedWhileItMoves) {
  m_grid->RowChanged = [this] {
    m_grid->RowChanged = nullptr;
    m_source.rows.resize(1);
    m_grid->Refetch();
  };
  ClickLine(6);
  EXPECT_THAT(Rows(), ElementsAre(0, 1));
  EXPECT_EQ(m_grid->CurrentRow(), 1);
  m_source.rows.clear();
  m_grid->Refetch();
  EXPECT_EQ(m_grid->CurrentRow(), 0);
  for (const int key : {WXK_UP, WXK_END, WXK_PAGEDOWN, WXK_LEFT, WXK_RETURN}) Press(key);
  Press('C', wxMOD_CONTROL);
  Picture();
  EXPECT_EQ(m_grid->CurrentRow(), 0);
}

TEST_F(DataGridTest, ABoundRecordsetIsShownAsFiltered) {
  EXPECT_EQ(m_grid->BoundRecordset(), nullptr);
  EXPECT_EQ(Caught([this] { static_cast<void>(m_grid->Bookmark(1)); }).Number(), ErrorNumber::ObjectNotSet);
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
  EXPECT_EQ(recordset->Bookmark(), 4) << "drawing does not move it";

  GridEXWrapper wrapper([](std::string_view) {});
  wrapper.SetGrid(m_grid);
  m_grid->SelectRow(5);
  EXPECT_EQ(wrapper.Value("Memo"), Text("text 3"));
  EXPECT_EQ(recordset->Bookmark(), 3);
  wrapper.SetGrid(nullptr);
  m_grid->SetSource(nullptr);
  m_grid->Refetch();
  EXPECT_EQ(m_grid->GetNumberRows(), 0);
}

/// A hundred thousand rows of one megabyte each.
class EndlessSource : public RowSource {
 public:
  [[nodiscard]] std::int32_t RowCount() const override { return 100'000; }
  [[nodiscard]] Value At(std::int32_t rowIndex, std::int32_t column) const override {
    ++reads;
    return column == 3 ? Value(m_text) : Value(std::int64_t{rowIndex});
  }
  mutable int reads = 0;

 private:
  std::string m_text = [] {
    std::string text = "zero \0 \xD7\xA9\xD7\x9C \xF0\x9F\x98\x80 \xFF"s;
    text.resize(1U << 20U, '\n');
    return text;
  }();
};

TEST_F(DataGridTest, ReadsWhatCanBeSeen) {
  const EndlessSource source;
  m_grid->GroupBy(std::nullopt);
  m_grid->SortBy({});
  m_grid->SetSource(&source);
  m_grid->Refetch();
  HandleEvents();
  EXPECT_THAT(source.reads, Lt(500));
  Press(WXK_END);
  HandleEvents();
  EXPECT_EQ(Row(), 100'000);
  EXPECT_TRUE(m_grid->IsVisible(99'999, 0));
  EXPECT_THAT(source.reads, Lt(1000));
}

}  // namespace
}  // namespace quorvel
