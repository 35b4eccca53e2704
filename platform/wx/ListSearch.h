#pragma once

#include <wx/stopwatch.h>
#include <wx/string.h>

class wxKeyEvent;
class wxListBox;

namespace quorvel::ui {

/// Searches a list box by typing: selects, as a click does, the first item that begins with the characters typed, in
/// any letter case. A pause of a second begins a new search.
class ListSearch {
 public:
  /// `list` must not outlive the object.
  void Attach(wxListBox& list);

 private:
  void KeyTyped(wxKeyEvent& event);
  void Select(int item);

  wxListBox* m_list = nullptr;
  wxString m_typed;
  wxStopWatch m_sinceKey;
};

}  // namespace quorvel::ui
