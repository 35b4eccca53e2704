#pragma once

#include <string>
#include <string_view>

namespace quorvel {

/// The administration window apart from its single controls. Texts are UTF-8. A view is named
/// "Users", "Groups", "Rights", "Remarks", "Contexts" or "Entities"; a tab's key is its view's name, ":" and its
/// caption.
class ManageView {
 public:
  virtual ~ManageView() = default;

  virtual void SetTitle(std::string_view title) = 0;
  /// Stops and resumes the drawing of the window.
  virtual void FreezeDrawing() = 0;
  virtual void ThawDrawing() = 0;

  /// Selects the button of the view in bbViews.
  virtual void SelectButton(std::string_view view) = 0;
  /// Sets lblView and picView, shows the tabs of the view, selects its General tab and hides the tabs of the other
  /// views.
  virtual void ShowPanels(std::string_view view, std::string_view caption) = 0;
  /// Selects the tab with that key in tabPanels. This is no click.
  virtual void SelectTab(std::string_view key) = 0;
  /// The caption of the selected tab, without its access key mark.
  [[nodiscard]] virtual std::string SelectedTab() const = 0;
};

}  // namespace quorvel
