#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include "grid/DataGrid.h"
#include "tests/grid/TableSource.h"
#include "tests/support/Caught.h"
#include "tests/support/Matchers.h"
#include "tests/support/wx/WaitFor.h"

namespace quorvel::test {

/// A window with a text box above and below a grid of four rows, grouped by type, the newest first.
class GridWindow : public testing::Test {
 protected:
  GridWindow() {
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
    m_grid->SetSpokenName("Rows");
    m_grid->GroupBy(SortKey{1, true});
    m_grid->SortBy({{2, false}});
    m_grid->SetSource(&m_source);
    m_grid->Refetch();
    m_grid->CurrentLineChanged = [this] { m_changes.push_back(m_grid->CurrentLine()); };
    m_grid->Failed = [this](const std::exception_ptr& failure) {
      m_failures.push_back(Caught([&] { std::rethrow_exception(failure); }));
    };
    m_window->Show();
    HandleEvents();
  }
  ~GridWindow() override { delete m_window; }

  void Press(int key, int modifiers = wxMOD_NONE) {
    wxKeyEvent event(wxEVT_KEY_DOWN);
    event.m_keyCode = key;
    event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
    event.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
    m_grid->GetGridWindow()->ProcessWindowEvent(event);
  }
  /// Presses and releases a button at a point of `window`.
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
  void ClickCaption(int position, wxEventType type = wxEVT_LEFT_DOWN) {
    int x = 20;
    for (int each = 0; each < position; ++each) x += m_grid->GetColSize(each);
    Mouse(type, m_grid->GetGridColLabelWindow(), x, 5);
  }
  /// The row indexes on all lines, 0 on headings.
  [[nodiscard]] std::vector<std::int32_t> Rows() const {
    std::vector<std::int32_t> rows;
    for (std::int32_t line = 1; line <= m_grid->GetNumberRows(); ++line) rows.push_back(m_grid->RowIndex(line));
    return rows;
  }
  [[nodiscard]] std::int32_t Row() const { return m_grid->RowIndex(m_grid->CurrentLine()); }
  /// The lines that have become current since the last call.
  std::vector<std::int32_t> Changes() { return std::exchange(m_changes, {}); }

  TableSource m_source{{{"General", std::int64_t{1}, "one"},
                        {"Billing", std::int64_t{2}, "two"},
                        {"General", std::int64_t{3}, "three"},
                        {"General", std::int64_t{4}, "four"}}};
  wxDialog* m_window;
  wxTextCtrl* m_before;
  DataGrid* m_grid;
  wxTextCtrl* m_after;
  std::vector<Error> m_failures;

 private:
  std::vector<std::int32_t> m_changes;
};

}  // namespace quorvel::test
