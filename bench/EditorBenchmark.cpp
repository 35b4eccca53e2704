#include <benchmark/benchmark.h>

#include <memory>

#include <wx/modalhook.h>

#include "bench/BareGrid.h"
#include "bench/LoadedRemarks.h"
#include "platform/Error.h"
#include "platform/wx/WindowSystem.h"
#include "remark_ui/frmEdit.h"

namespace quorvel::bench {
namespace {

/// Closes every modal window as soon as the rows of its grid have been drawn once.
class CloseWhenDrawn : public wxModalDialogHook {
 public:
  CloseWhenDrawn() { Register(); }
  ~CloseWhenDrawn() override { Unregister(); }
  CloseWhenDrawn(const CloseWhenDrawn&) = delete;
  CloseWhenDrawn& operator=(const CloseWhenDrawn&) = delete;

 protected:
  int Enter(wxDialog* dialog) override {
    m_dialog = dialog;
    for (wxWindow* child : dialog->GetChildren()) {
      auto* const grid = dynamic_cast<wxGrid*>(child);
      if (grid != nullptr) m_cells = grid->GetGridWindow();
    }
    m_cells->Bind(wxEVT_PAINT, &CloseWhenDrawn::Drawn, this);
    return wxID_NONE;
  }

 private:
  void Drawn(wxPaintEvent& event) {
    event.Skip();
    m_cells->Unbind(wxEVT_PAINT, &CloseWhenDrawn::Drawn, this);
    m_dialog->CallAfter([dialog = m_dialog] { dialog->Close(); });
  }

  wxDialog* m_dialog = nullptr;
  wxWindow* m_cells = nullptr;
};

/// Hand-written code for the same: a window that is kept, with the toolkit's grid, which gets a new table each time.
class BareEditor : public wxDialog {
 public:
  BareEditor()
      : wxDialog(nullptr, wxID_ANY, "Bare", wxDefaultPosition, wxSize(800, 600),
                 wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxDIALOG_NO_PARENT),
        m_grid(new wxGrid(this, wxID_ANY, wxPoint(), GetClientSize())) {}

  void View(const LoadedRemarks& remarks) {
    auto table = std::make_unique<BareTable>(remarks.structs);
    table->Arrange(true, false);
    ShowTable(*m_grid, *table.release());
    ShowModal();
  }

 private:
  wxGrid* m_grid;
};

void Show(frmEdit& editor, const LoadedRemarks& remarks) { editor.View(*remarks.context); }
void Show(BareEditor& editor, const LoadedRemarks& remarks) { editor.View(remarks); }

/// From the call to rows on the screen and back. The display needs as long for either window.
template <typename Editor>
void Open(benchmark::State& state) {
  try {
    ui::RequireWindowSystem();
  } catch (const Error& error) {
    state.SkipWithError(error.Description().c_str());
    return;
  }
  const LoadedRemarks& remarks = Remarks(state.range(0));
  auto* const editor = new Editor;
  const CloseWhenDrawn close;
  for ([[maybe_unused]] auto _ : state) Show(*editor, remarks);
  editor->Destroy();
}

void EditorOpen(benchmark::State& state) { Open<frmEdit>(state); }
void BareEditorOpen(benchmark::State& state) { Open<BareEditor>(state); }

BENCHMARK(EditorOpen)->Arg(10)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BareEditorOpen)->Arg(10)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorvel::bench
