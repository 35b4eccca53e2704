#include "grid/DataGrid.h"

#include <algorithm>
#include <array>
#include <string>
#include <type_traits>
#include <utility>

#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dcclient.h>

#include "grid/GridRenderer.h"
#include "grid/WrappedText.h"
#include "platform/wx/SendKeys.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

/// A tool tip is a window: one for a text of megabytes would be larger than any screen.
constexpr std::size_t kToolTipCharacters = 4000;
constexpr std::size_t kCopiedBytes = 16U << 20U;

std::int16_t ShiftState(const wxKeyboardState& state) {
  return static_cast<std::int16_t>((state.ShiftDown() ? 1 : 0) + (state.ControlDown() ? 2 : 0) +
                                   (state.AltDown() ? 4 : 0));
}

/// The classic code of a key of the toolkit's; 0 for keys that have none.
std::int16_t KeyCodeOf(int key) {
  constexpr std::array<std::pair<int, std::int16_t>, 11> classic = {{{WXK_NUMPAD_ENTER, 13},
                                                                     {WXK_PAGEUP, 33},
                                                                     {WXK_PAGEDOWN, 34},
                                                                     {WXK_END, 35},
                                                                     {WXK_HOME, 36},
                                                                     {WXK_LEFT, 37},
                                                                     {WXK_UP, 38},
                                                                     {WXK_RIGHT, 39},
                                                                     {WXK_DOWN, 40},
                                                                     {WXK_INSERT, 45},
                                                                     {WXK_DELETE, 46}}};
  for (const auto& [ours, code] : classic) {
    if (ours == key) return code;
  }
  if (key >= WXK_F1 && key <= WXK_F12) return static_cast<std::int16_t>(112 + key - WXK_F1);
  return key > 0 && key < WXK_DELETE ? static_cast<std::int16_t>(key) : std::int16_t{0};
}

std::int16_t ButtonOf(const wxMouseEvent& event) {
  if (event.GetButton() == wxMOUSE_BTN_RIGHT) return 2;
  return event.GetButton() == wxMOUSE_BTN_MIDDLE ? 4 : 1;
}

}  // namespace

template <typename Handler>
auto DataGrid::Guarded(Handler handler) {
  return [this, handler](auto& event) {
    try {
      if constexpr (std::is_member_function_pointer_v<Handler>) {
        (this->*handler)(event);
      } else {
        handler(event);
      }
    } catch (...) {
      Report(std::current_exception());
    }
  };
}

void DataGrid::BindEvents() {
  wxWindow* const cells = GetGridWindow();
  for (wxWindow* const window : {cells, GetGridColLabelWindow()}) {
    for (const auto& button : {wxEVT_LEFT_DOWN, wxEVT_RIGHT_DOWN, wxEVT_MIDDLE_DOWN}) {
      window->Bind(button, Guarded(&DataGrid::OnMouseDown));
    }
    window->Bind(wxEVT_LEFT_DCLICK, Guarded(&DataGrid::OnDoubleClick));
  }
  cells->Bind(wxEVT_MOTION, Guarded(&DataGrid::OnMotion));
  cells->Bind(wxEVT_SIZE, Guarded([this](wxSizeEvent& event) {
                event.Skip();
                ShareColumns(std::nullopt);
              }));
  const auto onFocus = Guarded([this](wxFocusEvent& event) {
    event.Skip();
    m_renderer->SetFocused(event.GetEventType() == wxEVT_SET_FOCUS);
    RefreshLine(m_state.currentLine);
  });
  cells->Bind(wxEVT_SET_FOCUS, onFocus);
  cells->Bind(wxEVT_KILL_FOCUS, onFocus);
  Bind(wxEVT_KEY_DOWN, Guarded(&DataGrid::OnKeyDown));
  Bind(wxEVT_GRID_CELL_LEFT_CLICK, Guarded(&DataGrid::OnCellClick));
  Bind(wxEVT_GRID_CELL_RIGHT_CLICK, Guarded(&DataGrid::OnCellClick));
  Bind(wxEVT_GRID_LABEL_LEFT_CLICK, Guarded([this](wxGridEvent& event) { SortByCaption(event.GetCol()); }));
  Bind(wxEVT_GRID_COL_SIZE, Guarded([this](wxGridSizeEvent& event) { ShareColumns(event.GetRowOrCol()); }));
  Bind(wxEVT_GRID_ROW_SIZE, Guarded(&DataGrid::OnRowSized));
  Bind(wxEVT_IDLE, Guarded([this](wxIdleEvent& event) {
         event.Skip();
         if (m_isToBeBroughtIntoView) BringIntoView();
       }));
  Bind(wxEVT_SYS_COLOUR_CHANGED, Guarded([this](wxSysColourChangedEvent& event) {
         event.Skip();
         Restyle();
       }));
}

void DataGrid::Report(std::exception_ptr failure) noexcept {
  if (Failed) Failed(std::move(failure));
}

void DataGrid::ReadFailed() noexcept {
  if (std::exchange(m_readFailed, true)) return;
  // Not now: the toolkit draws, and whoever is told may open a window.
  CallAfter([this, failure = std::current_exception()] { Report(failure); });
}

void DataGrid::OnKeyDown(wxKeyEvent& event) {
  if (TellKeyDown(event)) return;
  const int key = event.GetKeyCode();
  if (key == WXK_TAB) {
    OnTab(event);
  } else if (event.ControlDown() && key == 'C') {
    CopyRow();
  } else if (event.AltDown() || (!MoveByKey(key) && !ToggleByKey(key))) {
    event.Skip();
  }
}

/// True when the watcher has taken the key.
bool DataGrid::TellKeyDown(const wxKeyEvent& event) {
  std::int16_t code = KeyCodeOf(event.GetKeyCode());
  if (m_events == nullptr || code == 0) return false;
  std::int16_t shift = ShiftState(event);
  m_events->KeyDown(code, shift);
  return code == 0;
}

/// The toolkit's grid would walk from cell to cell, which nobody sees here.
void DataGrid::OnTab(const wxKeyEvent& event) {
  if (event.ShiftDown()) {
    ui::SendKeys("+^{TAB}");
  } else if (event.ControlDown() || m_events == nullptr) {
    ui::SendKeys("^{TAB}");
  }
}

bool DataGrid::MoveByKey(int key) {
  const std::int32_t line = m_state.currentLine;
  const std::int32_t last = m_state.content.Rows().LineCount();
  switch (key) {
    case WXK_UP:
    case WXK_NUMPAD_UP:
      SelectRow(line - 1);
      return true;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN:
      SelectRow(line + 1);
      return true;
    case WXK_HOME:
    case WXK_NUMPAD_HOME:
      SelectRow(1);
      return true;
    case WXK_END:
    case WXK_NUMPAD_END:
      SelectRow(last);
      return true;
    case WXK_PAGEUP:
    case WXK_NUMPAD_PAGEUP:
      MoveByPage(-1);
      return true;
    case WXK_PAGEDOWN:
    case WXK_NUMPAD_PAGEDOWN:
      MoveByPage(1);
      return true;
    default:
      return false;
  }
}

void DataGrid::MoveByPage(int direction) {
  if (m_state.currentLine == 0) return SelectRow(1);
  const wxRect current = CellToRect(m_state.currentLine - 1, 0);
  const int page = std::max(GetGridWindow()->GetClientSize().y - current.height, current.height);
  SelectRow(YToRow(std::max(current.y + direction * page, 0), true) + 1);
}

/// Enter and the blank on a data row are the grid's too: it does nothing with them.
bool DataGrid::ToggleByKey(int key) {
  const std::int32_t line = m_state.currentLine;
  const GridRows::Group* const group = m_state.content.Rows().GroupAt(line);
  switch (key) {
    case WXK_LEFT:
    case WXK_NUMPAD_LEFT:
      // As in a tree: from a row to its heading, from there the group closes.
      if (group == nullptr) SelectRow(m_state.content.Rows().HeadingOf(RowIndex(line)));
      SetGroupOpen(group != nullptr ? line : 0, false);
      return true;
    case '-':
    case WXK_NUMPAD_SUBTRACT:
      SetGroupOpen(line, false);
      return true;
    case WXK_RIGHT:
    case WXK_NUMPAD_RIGHT:
    case '+':
    case WXK_NUMPAD_ADD:
      SetGroupOpen(line, true);
      return true;
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
    case WXK_SPACE:
      if (group != nullptr) SetGroupOpen(line, !group->open);
      return true;
    default:
      return false;
  }
}

void DataGrid::CopyRow() const {
  const wxClipboardLocker clipboard;
  if (!clipboard || m_state.currentLine == 0) return;
  wxTheClipboard->SetData(new wxTextDataObject(ui::ToWx(m_state.LineText(m_state.currentLine, "\t", kCopiedBytes))));
}

wxPoint DataGrid::GridPoint(const wxMouseEvent& event) const {
  const auto* const window = dynamic_cast<const wxWindow*>(event.GetEventObject());
  return window != nullptr ? event.GetPosition() + window->GetPosition() : event.GetPosition();
}

void DataGrid::OnMouseDown(wxMouseEvent& event) {
  event.Skip();
  const wxPoint point = GridPoint(event);
  if (m_events != nullptr) m_events->MouseDown(ButtonOf(event), ShiftState(event), point.x, point.y);
}

void DataGrid::OnDoubleClick(wxMouseEvent& event) {
  const wxPoint point = GridPoint(event);
  if (m_events != nullptr) m_events->DoubleClick();
  if (HitTest(point.x, point.y) != GridArea::GroupRow) {
    event.Skip();
    return;
  }
  const GridRows::Group* const group = m_state.content.Rows().GroupAt(m_state.currentLine);
  if (group != nullptr) SetGroupOpen(m_state.currentLine, !group->open);
}

void DataGrid::OnCellClick(wxGridEvent& event) {
  // A press on a border that can be dragged begins to drag it.
  int y = 0;
  CalcUnscrolledPosition(0, event.GetPosition().y - GetColLabelSize(), nullptr, &y);
  const bool isLeft = event.GetEventType() == wxEVT_GRID_CELL_LEFT_CLICK;
  if (isLeft && CanDragGridRowEdges() && YToEdgeOfRow(y) != wxNOT_FOUND) {
    event.Skip();
    return;
  }
  const std::int32_t line = event.GetRow() + 1;
  const GridRows::Group* const group = m_state.content.Rows().GroupAt(line);
  const bool isOnTriangle = group != nullptr && GridRenderer::IsOnTriangle(*this, event.GetPosition().x);
  const bool open = group != nullptr && !group->open;
  SelectRow(line);
  if (isLeft && isOnTriangle) SetGroupOpen(line, open);
}

void DataGrid::OnRowSized(wxGridSizeEvent& event) {
  const std::int32_t row = RowIndex(event.GetRowOrCol() + 1);
  if (row > 0) m_draggedHeights[row] = GetRowSize(event.GetRowOrCol());
}

void DataGrid::OnMotion(wxMouseEvent& event) {
  event.Skip();
  wxPoint place;
  CalcUnscrolledPosition(event.GetX(), event.GetY(), &place.x, &place.y);
  const std::int32_t line = YToRow(place.y) + 1;
  const int column = XToCol(place.x);
  if (line == m_toolTipLine && column == m_toolTipColumn) return;
  m_toolTipLine = line;
  m_toolTipColumn = column;
  GetGridWindow()->UnsetToolTip();
  if (column == wxNOT_FOUND || RowIndex(line) < 1) return;
  const std::string text = m_state.CellText(line, static_cast<std::size_t>(column));
  wxClientDC dc(GetGridWindow());
  dc.SetFont(GetDefaultCellFont());
  if (GridRenderer::ShowsWhole(dc, text, {GetColSize(column), GetRowSize(line - 1)})) return;
  GetGridWindow()->SetToolTip(ui::ToWx(BeginningOf(text, kToolTipCharacters).text));
}

}  // namespace quorvel
