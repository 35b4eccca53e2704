#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <wx/simplebook.h>

class wxKeyEvent;
class wxNotebook;
class wxPanel;

namespace quorvel {

/// tabPanels: one set of tabs for each view, of which one set is shown. Ctrl+Page Up, Ctrl+Page Down and the access
/// key of a tab select a tab.
class TabPanels : public wxSimplebook {
 public:
  explicit TabPanels(wxWindow& parent);

  /// Adds a tab to a view and returns its panel. `caption` marks its access key with &.
  wxPanel& AddTab(std::string_view view, std::string_view caption, std::string_view tip);

  /// Shows the tabs of the view with the first one selected. This is no click, and neither is the next.
  void ShowView(std::string_view view);
  /// Selects the tab with that key: its view's name, ":" and its caption without the mark.
  void SelectTab(std::string_view key);
  /// The caption of the selected tab, without the mark.
  [[nodiscard]] std::string SelectedTab() const;

  /// Selects a tab, as a click does. Returns false for keys that select none.
  bool TakeKey(const wxKeyEvent& event);

  /// The user is about to leave a tab; false keeps it.
  std::function<bool()> Leaving;
  /// The user has selected another tab.
  std::function<void()> Clicked;

 private:
  struct Tab {
    std::string caption;
    int accessKey;
  };
  struct View {
    std::string name;
    wxNotebook* notebook;
    std::vector<Tab> tabs;
  };
  View& ViewNamed(std::string_view name);
  [[nodiscard]] const View& ShownView() const { return m_views.at(static_cast<std::size_t>(GetSelection())); }
  wxNotebook* MakeNotebook();

  std::vector<View> m_views;
};

}  // namespace quorvel
