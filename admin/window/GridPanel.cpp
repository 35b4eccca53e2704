#include "admin/window/GridPanel.h"

#include <numeric>
#include <utility>

#include <wx/sizer.h>
#include <wx/stattext.h>

#include "admin/window/BoundGrid.h"
#include "grid/DataGrid.h"
#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

constexpr int kSmallestLines = 8;

std::vector<std::int32_t> AsDesigned(const std::vector<GridColumn>& columns) {
  std::vector<std::int32_t> order(columns.size());
  std::iota(order.begin(), order.end(), 1);
  return order;
}

}  // namespace

void MakeGridPanel(wxWindow& panel, const std::string& name, std::string_view caption, std::vector<GridColumn> columns,
                   BoundGrid& face) {
  auto* label = new wxStaticText(&panel, wxID_ANY, ui::ToWx(caption));
  std::vector<std::int32_t> order = AsDesigned(columns);
  auto* grid = new DataGrid(&panel, std::move(columns), std::move(order));
  grid->SetName(ui::ToWx(name));
  grid->SetSpokenName(ui::FromWx(wxControl::RemoveMnemonics(ui::ToWx(caption))));
  grid->SetMinSize({panel.FromDIP(300), kSmallestLines * grid->GetDefaultRowSize()});
  ui::LeadAccessKeyTo(*grid->GetGridWindow(), *grid);
  auto* explanation = new wxStaticText(&panel, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                       wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
  face.Attach(*grid, *explanation);

  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(label, wxSizerFlags().Border(wxBOTTOM, panel.FromDIP(4)));
  content->Add(grid, wxSizerFlags(1).Expand());
  content->Add(explanation, wxSizerFlags().Expand().Border(wxTOP, panel.FromDIP(6)));
  auto* border = new wxBoxSizer(wxVERTICAL);
  border->Add(content, wxSizerFlags(1).Expand().Border(wxALL, panel.FromDIP(12)));
  panel.SetSizer(border);
}

}  // namespace quorvel
