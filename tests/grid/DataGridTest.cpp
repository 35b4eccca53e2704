// The grid in a real window: keys, clicks, drawn colours, sizes, and what assistive technology gets.
#include "grid/DataGrid.h"

#include <gtk/gtk.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <wx/bitmap.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/settings.h>
#include <wx/uiaction.h>

#include "grid/GridColours.h"
#include "grid/GridEXWrapper.h"
#include "platform/wx/SendKeys.h"
#include "platform/wx/Text.h"
#include "tests/grid/GridWindow.h"

namespace quorvel::test {
namespace {

using testing::Lt;
using namespace std::string_literals;

class DataGridTest : public GridWindow {};

/// All lines of a grid as they are drawn.
wxImage Picture(DataGrid& grid) {
  const wxSize size(600, grid.GetColLabelSize() + grid.GetGridWindow()->GetVirtualSize().y);
  wxBitmap bitmap;
  bitmap.Create(size);
  wxMemoryDC dc(bitmap);
  grid.Render(dc, {0, 0}, size, {-1, -1}, {-1, -1}, wxGRID_DRAW_COLS_HEADER);
  dc.SelectObject(wxNullBitmap);
  return bitmap.ConvertToImage();
}

Colour ColourAt(const wxImage& picture, int x, int y) {
  return {picture.GetRed(x, y), picture.GetGreen(x, y), picture.GetBlue(x, y)};
}

/// The window as it is on the screen.
wxImage OnScreen(wxWindow& window) {
  WaitUntilDrawn(window);
  HandleEvents();
  const wxSize size = window.GetClientSize();
  return wxBitmap(gdk_pixbuf_get_from_window(window.GTKGetDrawingWindow(), 0, 0, size.x, size.y)).ConvertToImage();
}

/// How many pixels differ from the one in the corner.
int InkOf(const wxImage& picture) {
  int ink = 0;
  for (int y = 0; y < picture.GetHeight(); ++y) {
    for (int x = 0; x < picture.GetWidth(); ++x) ink += ColourAt(picture, x, y) == ColourAt(picture, 0, 0) ? 0 : 1;
  }
  return ink;
}

TEST_F(DataGridTest, KeysMoveAndGroupsOpenAndClose) {
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0, 4, 3, 1));
  EXPECT_EQ(m_grid->CurrentLine(), 1);
  using Move = std::pair<int, std::int32_t>;
  for (const auto& [key, line] :
       {Move{WXK_UP, 1}, Move{WXK_DOWN, 2}, Move{WXK_END, 6}, Move{WXK_DOWN, 6}, Move{WXK_HOME, 1},
        Move{WXK_PAGEDOWN, 6}, Move{WXK_PAGEUP, 1}, Move{WXK_NUMPAD_END, 6}, Move{WXK_UP, 5}, Move{WXK_LEFT, 3}}) {
    Press(key);
    EXPECT_EQ(m_grid->CurrentLine(), line) << key;
  }
  EXPECT_THAT(Changes(), ElementsAre(2, 6, 1, 6, 1, 6, 5, 3));
  for (const auto& [close, open] : {std::pair<int, int>{WXK_LEFT, WXK_RIGHT}, {'-', '+'}, {WXK_RETURN, WXK_SPACE}}) {
    Press(close);
    EXPECT_THAT(Rows(), ElementsAre(0, 2, 0)) << close;
    Press(open);
    EXPECT_THAT(Rows(), ElementsAre(0, 2, 0, 4, 3, 1)) << open;
  }
  EXPECT_THAT(Changes(), ElementsAre()) << "the heading stays current";
  ClickLine(4);
  EXPECT_EQ(Row(), 4);
  for (const int x : {8, 200}) {
    ClickLine(3, x);
    EXPECT_THAT(Rows(), ElementsAre(0, 2, 0)) << "the triangle opens and closes, the text of the heading does not";
  }
}

TEST_F(DataGridTest, PageKeysMoveByTheLinesInView) {
  m_grid->GroupBy(std::nullopt);
  m_source.rows.resize(100, m_source.rows.front());
  m_grid->Refetch();
  const int inView = m_grid->GetGridWindow()->GetClientSize().y / m_grid->GetDefaultRowSize();
  Press(WXK_PAGEDOWN);
  EXPECT_EQ(m_grid->CurrentLine(), inView);
  Press(WXK_PAGEDOWN);
  EXPECT_EQ(m_grid->CurrentLine(), 2 * inView - 1) << "the last line of a page is the first of the next";
  for (const int key : {WXK_PAGEUP, WXK_PAGEUP}) Press(key);
  EXPECT_EQ(m_grid->CurrentLine(), 1);
}

TEST_F(DataGridTest, CurrentRowSurvivesSortingAndOtherGroups) {
  m_grid->SelectRowIndex(3);
  Changes();
  m_grid->SetGroupOpen(1, false);
  EXPECT_EQ(Row(), 3);
  ClickCaption(0);
  EXPECT_THAT(Rows(), ElementsAre(0, 0, 1, 3, 4));
  ClickCaption(1);
  EXPECT_THAT(Rows(), ElementsAre(0, 0, 4, 1, 3)) << "by text, within its group";
  EXPECT_EQ(m_grid->GetColLabelValue(1), L"Remark \u25B2");
  ClickCaption(1);
  EXPECT_THAT(Rows(), ElementsAre(0, 0, 3, 1, 4));
  EXPECT_EQ(m_grid->GetColLabelValue(1), L"Remark \u25BC");
  EXPECT_EQ(Row(), 3);
  EXPECT_THAT(Changes(), ElementsAre()) << "the same row stays current";
  m_grid->SetGroupOpen(2, false);
  EXPECT_EQ(m_grid->CurrentLine(), 2);
  EXPECT_EQ(Row(), 0);
  EXPECT_THAT(Changes(), ElementsAre(2));
  m_grid->Refetch();
  EXPECT_THAT(Rows(), ElementsAre(0, 0)) << "the user's groups and order stay";
  m_grid->SelectRowIndex(4);
  EXPECT_THAT(Rows(), ElementsAre(0, 0, 3, 1, 4));
  EXPECT_EQ(m_grid->CurrentLine(), 5);
  m_grid->GroupBy(SortKey{1, true});
  m_grid->Refetch();
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0, 3, 1, 4)) << "GroupBy opens all groups";
}

TEST_F(DataGridTest, ToolTipShowsWhatACellCuts) {
  m_source.rows[3][2] = "four " + std::string(500, 'x');
  const auto tipAt = [this](std::int32_t line, int x) {
    wxMouseEvent event(wxEVT_MOTION);
    event.SetPosition({x, m_grid->CellToRect(line - 1, 0).y + 5});
    m_grid->GetGridWindow()->ProcessWindowEvent(event);
    return ui::FromWx(m_grid->GetGridWindow()->GetToolTipText());
  };
  const int inText = m_grid->GetColSize(0) + 20;
  EXPECT_THAT(tipAt(4, inText), StartsWith("four xxx"));
  m_source.markedRow = 3;
  EXPECT_EQ(tipAt(5, 20), "marked");
  m_source.markedRow = 0;
  EXPECT_EQ(tipAt(4, 20), "");
  EXPECT_EQ(tipAt(5, inText), "");
  EXPECT_EQ(tipAt(3, inText), "") << "a heading";
  m_source.rows[3][2] = std::string(500, '\n') + "end";
  EXPECT_THAT(tipAt(4, inText), SizeIs(testing::Lt(30U))) << "the screen is not so high";
}

TEST_F(DataGridTest, TabLeavesTheGridInBothDirections) {
  // Without a window manager keys go where the pointer is.
  wxUIActionSimulator().MouseMove(m_grid->GetScreenPosition() + wxPoint(100, 100));
  GridEXWrapper wrapper(ui::SendKeys);
  for (const bool isWatched : {true, false}) {
    wrapper.SetGrid(isWatched ? m_grid : nullptr);
    for (const auto& [modifiers, next] : {std::pair(wxMOD_NONE, m_after), {wxMOD_SHIFT, m_before}}) {
      m_grid->SetFocus();
      ASSERT_TRUE(WaitFor([this] { return m_grid->GetGridWindow()->HasFocus(); }));
      Press(WXK_TAB, modifiers);
      EXPECT_TRUE(WaitFor([target = next] { return target->HasFocus(); })) << modifiers;
    }
  }
  EXPECT_EQ(Caught([] { ui::SendKeys("{F1}"); }).Number(), ErrorNumber::InvalidCall);
}

TEST_F(DataGridTest, CurrentLineIsSpokenAndCopied) {
  m_source.rows[3][2] = "four\0\xFF lines\n"s;
  const auto spoken = [this] {
    return std::string(atk_object_get_name(gtk_widget_get_accessible(m_grid->GetGridWindow()->GetHandle())));
  };
  m_grid->SelectLine(4);
  EXPECT_EQ(spoken(), "4, four \xEF\xBF\xBD lines\n");
  m_grid->SelectLine(3);
  EXPECT_EQ(spoken(), "Type: General (3)");
  m_grid->SelectLine(5);
  Press('C', wxMOD_CONTROL);
  {
    const wxClipboardLocker open;
    wxTextDataObject copied;
    EXPECT_TRUE(wxTheClipboard->GetData(copied));
    EXPECT_EQ(copied.GetText(), "3\tthree");
  }
  m_source.rows.clear();
  m_grid->Refetch();
  EXPECT_EQ(spoken(), "Rows");
  m_grid->SetEmptyText("There are none.");
  EXPECT_EQ(spoken(), "Rows. There are none.");
  const auto inEmptySpace = [this] { return InkOf(OnScreen(*m_grid->GetGridWindow())); };
  EXPECT_GT(inEmptySpace(), 20) << "the words";
  m_grid->SetEmptyText("");
  EXPECT_EQ(inEmptySpace(), 0);
}

TEST_F(DataGridTest, KeysGoOnWhereNoLineIsCurrent) {
  // The lines are heading 1, row 2, heading 3, rows 4 to 6.
  for (const auto& [resumeLine, down, up] : {std::tuple(1, 2, 0), {3, 4, 2}, {5, 5, 4}, {7, 6, 6}}) {
    for (const auto& [key, line] : {std::pair<int, std::int32_t>{WXK_DOWN, down}, {WXK_UP, up}}) {
      m_grid->SelectNone(resumeLine);
      Press(key);
      EXPECT_EQ(m_grid->CurrentLine(), line) << resumeLine;
    }
  }
}

TEST_F(DataGridTest, MouseAndMenuKeyAskForAMenu) {
  std::vector<wxPoint> asked;
  m_grid->MenuAsked = [&](const wxPoint& point) { asked.push_back(point); };
  ClickLine(4, 60, wxEVT_RIGHT_DOWN);
  EXPECT_EQ(Row(), 4);
  Mouse(wxEVT_RIGHT_UP, m_grid->GetGridWindow(), 60, 70);
  wxContextMenuEvent byMouse(wxEVT_CONTEXT_MENU, wxID_ANY, {200, 200});
  m_grid->GetGridWindow()->ProcessWindowEvent(byMouse);
  wxContextMenuEvent byKey(wxEVT_CONTEXT_MENU);
  m_grid->GetGridWindow()->ProcessWindowEvent(byKey);
  const wxPoint cells = m_grid->GetGridWindow()->GetPosition();
  EXPECT_THAT(asked, ElementsAre(wxPoint(60, 70) + cells, m_grid->CellToRect(3, 0).GetBottomLeft() + cells));
}

TEST_F(DataGridTest, MarkedRowHasABarAndIsSpoken) {
  m_source.markedRow = 4;
  m_grid->Refetch();
  const wxImage picture = Picture(*m_grid);
  const auto hasBar = [&](std::int32_t line) {
    const int middle = m_grid->GetColLabelSize() + m_grid->CellToRect(line - 1, 0).y + 10;
    return !(ColourAt(picture, 1, middle) == ColourAt(picture, m_grid->GetColSize(0) - 10, middle));
  };
  EXPECT_TRUE(hasBar(4));
  EXPECT_FALSE(hasBar(5));
  m_grid->SelectRowIndex(4);
  EXPECT_EQ(m_grid->RowHint(), "marked");
}

TEST_F(DataGridTest, DrawsAlternatingColoursAndCheckMarks) {
  auto* const grid = new DataGrid(m_window, {{"Key", "Key", 50}, {"Flag", "Flag", 50, true, CellFormat::Flag}}, {1, 2});
  const TableSource flags({{Value(), std::int64_t{1}},
                           {Value(), std::int64_t{0}},
                           {Value(), Value()},
                           {Value(), std::int64_t{1}},
                           {Value(), std::int64_t{0}}});
  grid->SetSource(&flags);
  grid->SetSize(600, 300);
  grid->Refetch();
  const wxImage grouped = Picture(*m_grid);
  const wxImage picture = Picture(*grid);
  const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  const Colour odd = ReadableBackground(kOddRow, {text.Red(), text.Green(), text.Blue()});
  const Colour even = ReadableBackground(kEvenRow, {text.Red(), text.Green(), text.Blue()});
  std::vector<bool> isChecked;
  for (int row = 0; row < 5; ++row) {
    const wxRect cell = grid->CellToRect(row, 1);
    const int top = grid->GetColLabelSize() + cell.y;
    const Colour background = ColourAt(picture, 2, top + 2);
    EXPECT_EQ(background == (row % 2 == 0 ? odd : even), row > 0) << "only the current line differs: " << row;
    bool isMarked = false;
    for (int x = cell.x; x < cell.GetRight(); ++x)
      isMarked |= ColourAt(picture, x, top + cell.height / 2) != background;
    isChecked.push_back(isMarked);
  }
  EXPECT_THAT(isChecked, ElementsAre(true, false, false, true, false));
  const Colour heading = ColourAt(grouped, 500, m_grid->GetColLabelSize() + m_grid->CellToRect(2, 0).y + 3);
  EXPECT_FALSE(heading == odd || heading == even);
}

TEST_F(DataGridTest, ColumnsShareTheWindow) {
  const auto total = [this] {
    int sum = 0;
    for (int position = 0; position < m_grid->GetNumberCols(); ++position) sum += m_grid->GetColSize(position);
    return sum;
  };
  const auto inside = [this] { return m_grid->GetGridWindow()->GetClientSize().x; };
  EXPECT_EQ(total(), inside());
  EXPECT_EQ(m_grid->GetColSize(0), inside() / 4);
  m_window->SetSize(800, 400);
  ASSERT_TRUE(WaitFor([&] { return inside() > 700; }));
  EXPECT_EQ(total(), inside());
  wxGridSizeEvent doubleClick(m_grid->GetId(), wxEVT_GRID_COL_AUTO_SIZE, m_grid, 0);
  m_grid->HandleWindowEvent(doubleClick);
  EXPECT_THAT(m_grid->GetColSize(0), AllOf(testing::Gt(m_grid->GetTextExtent("100").x), Lt(inside() / 8)));
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

TEST_F(DataGridTest, RowHeightIsInUnitsOfATextLine) {
  m_grid->SetRowHeight(190);
  const int line = m_grid->GetRowSize(1);
  m_grid->SetRowHeight(10 * 190 + 90);
  EXPECT_NEAR(m_grid->GetRowSize(1), line * 10.5, line / 2.0);
  EXPECT_LT(m_grid->GetRowSize(0), 2 * line) << "headings are one text line high";
  m_grid->AllowRowSizing(true);
  m_grid->SetRowSize(1, 77);
  wxGridSizeEvent sized(m_grid->GetId(), wxEVT_GRID_ROW_SIZE, m_grid, 1);
  m_grid->ProcessWindowEvent(sized);
  m_grid->GroupBy(std::nullopt);
  m_grid->Refetch();
  EXPECT_THAT(Rows(), ElementsAre(4, 3, 2, 1));
  EXPECT_EQ(m_grid->GetRowSize(2), 77) << "the dragged row keeps its height on its new line";
}

TEST_F(DataGridTest, ErrorOfTheSourceIsReportedOnce) {
  m_source.fails = true;
  Picture(*m_grid);
  Picture(*m_grid);
  HandleEvents();
  ASSERT_EQ(m_failures.size(), 1U);
  EXPECT_EQ(m_failures[0].Description(), "the connection is gone");
  EXPECT_EQ(m_grid->GetCellValue(1, 0), "");
  ClickCaption(0);
  EXPECT_EQ(m_failures.size(), 2U);
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0, 4, 3, 1));
  m_source.rows.pop_back();
  EXPECT_EQ(Caught([this] { m_grid->Refetch(); }).Description(), "the connection is gone");
  EXPECT_THAT(Rows(), ElementsAre(0, 2, 0, 4, 3, 1));
  m_source.fails = false;
  m_grid->Refetch();
  EXPECT_EQ(m_grid->GetCellValue(1, 0), "2") << "sorted as before";
  m_grid->CurrentLineChanged = [] { ThrowOverflow(); };
  Press(WXK_DOWN);
  EXPECT_EQ(m_failures.size(), 3U);
}

TEST_F(DataGridTest, CanBeRefetchedWhileItMoves) {
  m_grid->CurrentLineChanged = [this] {
    m_grid->CurrentLineChanged = nullptr;
    m_source.rows.resize(1);
    m_grid->Refetch();
  };
  ClickLine(6);
  EXPECT_THAT(Rows(), ElementsAre(0, 1));
  EXPECT_EQ(m_grid->CurrentLine(), 1);
  m_source.rows.clear();
  m_grid->Refetch();
  EXPECT_EQ(m_grid->CurrentLine(), 0);
  for (const int key : {WXK_UP, WXK_END, WXK_PAGEDOWN, WXK_LEFT, WXK_RETURN}) Press(key);
  Press('C', wxMOD_CONTROL);
  Picture(*m_grid);
  EXPECT_EQ(m_grid->CurrentLine(), 0);
}

TEST_F(DataGridTest, ReadsOnlyWhatIsVisible) {
  m_source.rows.assign(100'000, m_source.rows.front());
  const std::string huge = "\xD7\xA9\xD7\x9C \xF0\x9F\x98\x80 \xFF" + std::string(1U << 20U, '\n');
  for (auto* row : {&m_source.rows.front(), &m_source.rows.back()}) row->at(2) = huge;
  m_grid->GroupBy(std::nullopt);
  m_grid->SortBy({});
  m_source.reads = 0;
  m_grid->Refetch();
  HandleEvents();
  EXPECT_THAT(m_source.reads, Lt(500));
  Press(WXK_END);
  HandleEvents();
  EXPECT_EQ(Row(), 100'000);
  EXPECT_TRUE(m_grid->IsVisible(99'999, 0));
  EXPECT_THAT(m_source.reads, Lt(1000));
}

}  // namespace
}  // namespace quorvel::test
