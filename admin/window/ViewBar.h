#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <wx/bmpbndl.h>
#include <wx/panel.h>

class wxKeyEvent;
class wxToggleButton;

namespace quorvel {

/// bbViews, the button bar of the six views: buttons with pictures in one group, of which one is selected. The arrow
/// keys, Home and End move from button to button and choose it, Ctrl+1 to Ctrl+6 work in the whole window.
class ViewBar : public wxPanel {
 public:
  explicit ViewBar(wxWindow& parent);

  /// Selects the button of the view. This is no click.
  void Select(std::string_view view);
  /// The picture of the view's button; empty for a name that is no view's.
  [[nodiscard]] static wxBitmapBundle Picture(std::string_view view);
  /// Handles Ctrl and a digit. Returns false for other keys.
  bool TakeKey(const wxKeyEvent& event);

  /// The user chose a view, which may be the selected one.
  std::function<void(std::string_view view)> Chosen;

 private:
  struct Button {
    std::string view;
    wxToggleButton* button;
  };
  void AddButton(std::string_view view);
  void MoveByKey(std::size_t from, wxKeyEvent& event);

  std::vector<Button> m_buttons;
};

}  // namespace quorvel
