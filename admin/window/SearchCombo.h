#pragma once

#include <string>
#include <string_view>

#include <wx/odcombo.h>

namespace quorvel {

/// A combo box that is not typed into; typing in it searches the beginnings of its items. Its list is drawn by itself,
/// because a menu of thousands of items opens slowly on some desktops.
class SearchCombo : public wxOwnerDrawnComboBox {
 public:
  /// Names are UTF-8; `spokenName` is for assistive technology.
  SearchCombo(wxWindow& parent, std::string_view name, std::string_view spokenName);

  /// Removes all items; then none is selected. Much faster than Clear when thousands are added next.
  void RemoveAll();

 protected:
  void OnDrawItem(wxDC& dc, const wxRect& rectangle, int item, int flags) const override;
  [[nodiscard]] wxCoord OnMeasureItem(std::size_t item) const override;

 private:
  void KeepKeysOfOpenList(wxKeyEvent& event);
  void Speak(wxIdleEvent& event);

  int m_itemHeight;
  std::string m_spokenName;
  wxString m_spoken;
};

}  // namespace quorvel
