// A notebook for each view, one of which is shown: a notebook cannot hide single tabs.

#include "admin/window/TabPanels.h"

#include <algorithm>

#include <wx/notebook.h>
#include <wx/panel.h>

#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel {

TabPanels::TabPanels(wxWindow& parent)
    : wxSimplebook(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, "tabPanels") {}

wxPanel& TabPanels::AddTab(std::string_view view, std::string_view caption, std::string_view tip) {
  View& to = ViewNamed(view);
  auto* panel = new wxPanel(to.notebook);
  to.notebook->AddPage(panel, ui::ToWx(caption));
  ui::DressTab(*to.notebook, to.tabs.size(), caption, tip);
  wxString label;
  const int accessKey = wxControl::FindAccelIndex(ui::ToWx(caption), &label);
  to.tabs.push_back(
      {ui::FromWx(label), accessKey < 0 ? 0 : static_cast<int>(wxToupper(label[static_cast<std::size_t>(accessKey)]))});
  return *panel;
}

TabPanels::View& TabPanels::ViewNamed(std::string_view name) {
  const auto found = std::ranges::find(m_views, name, &View::name);
  if (found != m_views.end()) return *found;
  wxNotebook* notebook = MakeNotebook();
  notebook->SetName(ui::ToWx(name));
  AddPage(notebook, ui::ToWx(name));
  return m_views.emplace_back(View{std::string(name), notebook, {}});
}

wxNotebook* TabPanels::MakeNotebook() {
  auto* notebook = new wxNotebook(this, wxID_ANY);
  notebook->Bind(wxEVT_NOTEBOOK_PAGE_CHANGING, [this, notebook](wxBookCtrlEvent& event) {
    if (Leaving && !Leaving()) return event.Veto();
    // Some desktops would lead the focus from the former tab to the first control of the new one, where the next keys
    // would change a text or a link.
    notebook->SetFocus();
  });
  notebook->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent&) {
    if (Clicked) Clicked();
  });
  return notebook;
}

void TabPanels::ShowView(std::string_view view) {
  const auto found = std::ranges::find(m_views, view, &View::name);
  if (found == m_views.end()) return;
  ChangeSelection(static_cast<std::size_t>(found - m_views.begin()));
  found->notebook->ChangeSelection(0);
}

void TabPanels::SelectTab(std::string_view key) {
  for (const View& view : m_views) {
    for (std::size_t i = 0; i < view.tabs.size(); ++i) {
      if (view.name + ':' + view.tabs[i].caption == key) view.notebook->ChangeSelection(i);
    }
  }
}

std::string TabPanels::SelectedTab() const {
  const View& view = ShownView();
  return view.tabs.at(static_cast<std::size_t>(view.notebook->GetSelection())).caption;
}

bool TabPanels::TakeKey(const wxKeyEvent& event) {
  const View& view = ShownView();
  const auto current = static_cast<std::size_t>(view.notebook->GetSelection());
  const std::size_t count = view.tabs.size();
  const auto select = [&view](std::size_t tab) {
    ui::ClickTab(*view.notebook, tab);
    return true;
  };
  const int key = event.GetKeyCode();
  if (event.GetModifiers() == wxMOD_CONTROL && key == WXK_PAGEDOWN) return select((current + 1) % count);
  if (event.GetModifiers() == wxMOD_CONTROL && key == WXK_PAGEUP) return select((current + count - 1) % count);
  const auto found = std::ranges::find(view.tabs, key, &Tab::accessKey);
  if (event.GetModifiers() != wxMOD_ALT || found == view.tabs.end()) return false;
  return select(static_cast<std::size_t>(found - view.tabs.begin()));
}

}  // namespace quorvel
