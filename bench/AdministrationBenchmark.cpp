// The administration window with many records against the same statements, run on SQLite's interface and shown in the
// toolkit's own list box: opening the window, and switching to each view.

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <sqlite3.h>

#include <array>
#include <string>
#include <vector>

#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/panel.h>
#include <wx/simplebook.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/tglbtn.h>

#include "admin/window/frmManage.h"
#include "bench/BenchDatabase.h"
#include "data/modDatabase.h"
#include "platform/Error.h"
#include "platform/wx/Text.h"
#include "platform/wx/WindowSystem.h"

namespace quorvel::bench {
namespace {

constexpr std::array<const char*, 6> kViews = {"Users", "Groups", "Rights", "Remarks", "Contexts", "Entities"};
constexpr std::size_t kRights = 2;  // a view with few records

/// The statements of the seven lists, with the ID first and the column of the text box second. The last one has no
/// view.
constexpr std::array<const char*, 7> kLists = {
    "SELECT UserID, LastName, UserKey, FirstName, BranchID, IsActive FROM ttwUser ORDER BY UserID",
    "SELECT GroupID, Caption, GroupKey, Comments FROM ttwGroup ORDER BY GroupID",
    "SELECT RightID, Caption, RightKey, Comments FROM ttwRight ORDER BY RightID",
    "SELECT RemarkTypeID, Caption, RemarkTypeKey, RemarkEntityKey, Comments FROM ttwRemarkType ORDER BY RemarkTypeID",
    "SELECT ContextID, Caption, ContextKey, RemarkEntityKey, Comments, GroupByType, RowHeight, AllowRowSizing, "
    "EditBehavior FROM ttwContext ORDER BY ContextID",
    "SELECT RemarkEntityID, Caption, RemarkEntityKey, spGetOwnerName, AcuityEntityKey, Comments FROM ttwRemarkEntity "
    "ORDER BY RemarkEntityID",
    "SELECT BranchID, BranchName, WhseKey, ShipMethKey, SalesTerritoryKey, SalesAcctKey FROM ttwBranch "
    "ORDER BY BranchID"};

/// Adds 10,000 users, 2,000 groups and 5,000 remark types to the benchmarks' database, once.
void AddManyRecords() {
  static const bool isAdded = [] {
    DatabaseFile();
    modDatabase::EnsureConnection();
    const auto add = [](const char* into, const char* values, int count) {
      modDatabase::SharedConnection()->Execute(
          fmt::format("INSERT INTO {} SELECT {} FROM (SELECT TOP ({}) ROW_NUMBER() OVER (ORDER BY MemoKey) AS n "
                      "FROM tciMemo) d",
                      into, values, count),
          -1);
    };
    add("ttwUser (UserID, LastName)", "'user' + CAST(d.n AS varchar(10)), N'Name ' + CAST(d.n AS nvarchar(10))",
        10'000);
    add("ttwGroup (GroupID, Caption)", "'group' + CAST(d.n AS varchar(10)), N'Group ' + CAST(d.n AS nvarchar(10))",
        2'000);
    add("ttwRemarkType (RemarkTypeID, Caption, RemarkEntityKey)",
        "'type' + CAST(d.n AS varchar(10)), N'Type ' + CAST(d.n AS nvarchar(10)), 1", 5'000);
    return true;
  }();
  benchmark::DoNotOptimize(isAdded);
}

/// Returns when what the window shows has been drawn.
void WaitUntilDrawn(wxWindow& window) {
  bool isDrawn = false;
  const auto drawn = [&isDrawn](wxPaintEvent& event) {
    event.Skip();
    isDrawn = true;
  };
  window.Bind(wxEVT_PAINT, drawn);
  window.Refresh();
  while (!isDrawn) {
    window.Update();
    wxYield();
  }
  window.Unbind(wxEVT_PAINT, drawn);
}

class OurWindow {
 public:
  OurWindow() : m_window(new frmManage) {
    m_window->Load();
    m_window->Show();
    WaitUntilDrawn(*m_window);
  }
  ~OurWindow() { m_window->Destroy(); }
  OurWindow(const OurWindow&) = delete;
  OurWindow& operator=(const OurWindow&) = delete;

  void Switch(std::size_t view) {
    auto* const button = wxWindow::FindWindowByName(kViews.at(view), m_window);
    wxCommandEvent click(wxEVT_TOGGLEBUTTON, button->GetId());
    click.SetEventObject(button);
    button->ProcessWindowEvent(click);
    WaitUntilDrawn(*m_window);
  }

 private:
  frmManage* m_window;
};

/// A window with a list box for the IDs and, for each view, a page with a text box for each column.
class BareWindow {
 public:
  BareWindow() {
    sqlite3_open(DatabaseFile().c_str(), &m_database);
    m_window = new wxFrame(nullptr, wxID_ANY, "Bare", wxDefaultPosition, wxSize(860, 600));
    m_list = new wxListBox(m_window, wxID_ANY);
    m_pages = new wxSimplebook(m_window, wxID_ANY);
    auto* const content = new wxBoxSizer(wxVERTICAL);
    content->Add(m_list, wxSizerFlags(1).Expand());
    content->Add(m_pages, wxSizerFlags(1).Expand());
    m_window->SetSizer(content);
    for (std::size_t i = 0; i < kLists.size(); ++i) Read(i);
    for (std::size_t i = 0; i < kViews.size(); ++i) AddPage(i);
    Fill(0);
    m_window->Show();
    WaitUntilDrawn(*m_window);
  }
  ~BareWindow() {
    m_window->Destroy();
    sqlite3_close(m_database);
  }
  BareWindow(const BareWindow&) = delete;
  BareWindow& operator=(const BareWindow&) = delete;

  void Switch(std::size_t view) {
    Fill(view);
    WaitUntilDrawn(*m_window);
  }

 private:
  using Row = std::vector<std::string>;

  void Read(std::size_t list) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(m_database, kLists.at(list), -1, &statement, nullptr);
    const int columns = sqlite3_column_count(statement);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      Row& row = m_rows.at(list).emplace_back();
      for (int column = 0; column < columns; ++column) {
        const void* const text = sqlite3_column_text(statement, column);
        row.emplace_back(text == nullptr ? "" : static_cast<const char*>(text));
      }
    }
    sqlite3_finalize(statement);
  }

  void AddPage(std::size_t list) {
    auto* const page = new wxPanel(m_pages);
    auto* const boxes = new wxFlexGridSizer(2);
    boxes->AddGrowableCol(1);
    for (const std::string& text : m_rows.at(list).front()) {
      boxes->Add(new wxStaticText(page, wxID_ANY, ui::ToWx(text)));
      boxes->Add(m_boxes.at(list).emplace_back(new wxTextCtrl(page, wxID_ANY)), wxSizerFlags().Expand());
    }
    page->SetSizer(boxes);
    m_pages->AddPage(page, kViews.at(list));
  }

  void Fill(std::size_t list) {
    wxArrayString ids;
    for (const Row& row : m_rows.at(list)) ids.push_back(ui::ToWx(row[0]));
    m_list->Set(ids);
    m_list->SetSelection(0);
    const Row& first = m_rows.at(list).front();
    for (std::size_t i = 0; i < first.size(); ++i) m_boxes.at(list).at(i)->ChangeValue(ui::ToWx(first[i]));
    m_pages->ChangeSelection(list);
  }

  sqlite3* m_database = nullptr;
  std::array<std::vector<Row>, kLists.size()> m_rows;
  wxFrame* m_window = nullptr;
  wxListBox* m_list = nullptr;
  wxSimplebook* m_pages = nullptr;
  std::array<std::vector<wxTextCtrl*>, kViews.size()> m_boxes;
};

bool HasWindows(benchmark::State& state) {
  try {
    ui::RequireWindowSystem();
    AddManyRecords();
    return true;
  } catch (const Error& error) {
    state.SkipWithError(error.Description().c_str());
    return false;
  }
}

template <typename Window>
void Open(benchmark::State& state) {
  if (!HasWindows(state)) return;
  for ([[maybe_unused]] auto _ : state) {
    { const Window window; }
    wxYield();
  }
}

template <typename Window>
void Switch(benchmark::State& state) {
  if (!HasWindows(state)) return;
  const auto view = static_cast<std::size_t>(state.range(0));
  const std::size_t other = view == kRights ? kRights + 1 : kRights;
  state.SetLabel(kViews.at(view));
  Window window;
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    window.Switch(other);
    state.ResumeTiming();
    window.Switch(view);
  }
}

void AdministrationOpen(benchmark::State& state) { Open<OurWindow>(state); }
void BareAdministrationOpen(benchmark::State& state) { Open<BareWindow>(state); }
void AdministrationSwitch(benchmark::State& state) { Switch<OurWindow>(state); }
void BareAdministrationSwitch(benchmark::State& state) { Switch<BareWindow>(state); }

BENCHMARK(AdministrationOpen)->Unit(benchmark::kMillisecond);
BENCHMARK(BareAdministrationOpen)->Unit(benchmark::kMillisecond);
BENCHMARK(AdministrationSwitch)->DenseRange(0, 5)->Unit(benchmark::kMillisecond);
BENCHMARK(BareAdministrationSwitch)->DenseRange(0, 5)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorvel::bench
