// The editor's grid against the toolkit's own grid with the same rows: opening, sorting, grouping, paging.

#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include <wx/frame.h>

#include "bench/BareGrid.h"
#include "bench/LoadedRemarks.h"
#include "grid/DataGrid.h"
#include "platform/Error.h"
#include "platform/wx/WindowSystem.h"
#include "remark_ui/RemarkRows.h"
#include "runtime/RemarkContext.h"

namespace quorvel::bench {
namespace {

constexpr SortKey kByType{RemarkRows::kTypeColumn, true};
constexpr SortKey kNewestFirst{RemarkRows::kDateColumn, false};
// Among the visible columns, from left to right.
constexpr int kDatePosition = 0;
constexpr int kTextPosition = 2;

/// The window that grids are opened in; it stays on the screen.
wxFrame& Frame() {
  static wxFrame* const frame = [] {
    ui::RequireWindowSystem();
    auto* const made = new wxFrame(nullptr, wxID_ANY, "Benchmark", wxDefaultPosition, wxSize(800, 600));
    made->Show();
    return made;
  }();
  return *frame;
}

/// Counts how often the cells of a grid are drawn.
class Painted {
 public:
  explicit Painted(wxGrid& grid) : m_cells(*grid.GetGridWindow()) {
    m_cells.Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
      event.Skip();
      ++m_count;
    });
  }
  /// Returns when the cells have been drawn as they are now.
  void Wait() {
    const int before = m_count;
    m_cells.Refresh();
    while (m_count == before) {
      m_cells.Update();
      if (m_count == before) wxYield();
    }
  }

 private:
  wxWindow& m_cells;
  int m_count = 0;
};

/// The editor's grid.
class OurGrid {
 public:
  explicit OurGrid(const LoadedRemarks& loaded) {
    m_rows.SetContext(loaded.context);
    m_grid = new DataGrid(&Frame(), RemarkRows::Columns(), RemarkRows::ColumnOrder());
    m_grid->SetSize(Frame().GetClientSize());
    m_grid->GroupBy(kByType);
    m_grid->SortBy({kNewestFirst});
    m_grid->SetSource(&m_rows);
    m_grid->Refetch();
    m_grid->SelectLine(2);
  }
  [[nodiscard]] wxGrid& Grid() const { return *m_grid; }
  void Sort(bool isByText) { m_grid->SortByCaption(isByText ? kTextPosition : kDatePosition); }
  void Group(bool isGrouped) {
    m_grid->GroupBy(isGrouped ? std::optional(kByType) : std::nullopt);
    m_grid->Refetch();
  }
  void Page() {
    wxKeyEvent key(wxEVT_KEY_DOWN);
    key.m_keyCode = WXK_PAGEDOWN;
    m_grid->GetGridWindow()->ProcessWindowEvent(key);
  }

 private:
  RemarkRows m_rows;
  DataGrid* m_grid;
};

/// The same with hand-written code.
class BareGrid {
 public:
  explicit BareGrid(const LoadedRemarks& loaded) : m_table(new BareTable(loaded.structs)) {
    m_grid = new wxGrid(&Frame(), wxID_ANY);
    m_grid->SetSize(Frame().GetClientSize());
    m_table->Arrange(true, false);
    ShowTable(*m_grid, *m_table);
  }
  [[nodiscard]] wxGrid& Grid() const { return *m_grid; }
  void Sort(bool isByText) {
    m_table->Arrange(true, isByText);
    m_grid->ForceRefresh();
  }
  void Group(bool isGrouped) {
    const int before = m_table->GetNumberRows();
    m_table->Arrange(isGrouped, false);
    const int more = m_table->GetNumberRows() - before;
    wxGridTableMessage message = more > 0 ? wxGridTableMessage(m_table, wxGRIDTABLE_NOTIFY_ROWS_APPENDED, more)
                                          : wxGridTableMessage(m_table, wxGRIDTABLE_NOTIFY_ROWS_DELETED, 0, -more);
    m_grid->ProcessTableMessage(message);
    m_grid->ForceRefresh();
  }
  void Page() { m_grid->MovePageDown(); }

 private:
  BareTable* m_table;
  wxGrid* m_grid;
};

bool HasWindows(benchmark::State& state) {
  try {
    ui::RequireWindowSystem();
    return true;
  } catch (const Error& error) {
    state.SkipWithError(error.Description().c_str());
    return false;
  }
}

/// From nothing to rows that are drawn. The display's time to show a new window is left out: it is the same for both
/// and many times the rest.
template <typename Grid>
void Open(benchmark::State& state) {
  if (!HasWindows(state)) return;
  const LoadedRemarks& loaded = Remarks(state.range(0));
  for ([[maybe_unused]] auto _ : state) {
    auto opened = std::make_unique<Grid>(loaded);
    state.PauseTiming();
    Painted painted(opened->Grid());
    painted.Wait();
    state.ResumeTiming();
    painted.Wait();
    state.PauseTiming();
    opened->Grid().Destroy();
    opened.reset();
    wxYield();
    state.ResumeTiming();
  }
}

/// Measures `change` on an open grid until the result is on the screen.
template <typename Grid, typename Change>
void ChangeOpen(benchmark::State& state, Change change) {
  if (!HasWindows(state)) return;
  Grid opened(Remarks(state.range(0)));
  Painted painted(opened.Grid());
  painted.Wait();
  bool isOdd = false;
  for ([[maybe_unused]] auto _ : state) {
    change(opened, isOdd = !isOdd);
    painted.Wait();
  }
  opened.Grid().Destroy();
  wxYield();
}

template <typename Grid>
void Sort(benchmark::State& state) {
  ChangeOpen<Grid>(state, [](Grid& grid, bool isByText) { grid.Sort(isByText); });
}
template <typename Grid>
void Regroup(benchmark::State& state) {
  ChangeOpen<Grid>(state, [](Grid& grid, bool isOdd) { grid.Group(!isOdd); });
}
template <typename Grid>
void Page(benchmark::State& state) {
  ChangeOpen<Grid>(state, [](Grid& grid, bool /*isOdd*/) { grid.Page(); });
}

void GridOpen(benchmark::State& state) { Open<OurGrid>(state); }
void BareGridOpen(benchmark::State& state) { Open<BareGrid>(state); }
void GridSort(benchmark::State& state) { Sort<OurGrid>(state); }
void BareGridSort(benchmark::State& state) { Sort<BareGrid>(state); }
void GridRegroup(benchmark::State& state) { Regroup<OurGrid>(state); }
void BareGridRegroup(benchmark::State& state) { Regroup<BareGrid>(state); }
void GridPage(benchmark::State& state) { Page<OurGrid>(state); }
void BareGridPage(benchmark::State& state) { Page<BareGrid>(state); }

BENCHMARK(GridOpen)->Arg(10)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareGridOpen)->Arg(10)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(GridSort)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareGridSort)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(GridRegroup)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareGridRegroup)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(GridPage)->Arg(100'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareGridPage)->Arg(100'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quorvel::bench
