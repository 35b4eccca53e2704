#pragma once

#include <functional>

#include "grid/RowSearch.h"

class wxKeyEvent;
class wxPanel;
class wxStaticText;
class wxString;
class wxTextCtrl;
class wxWindow;

namespace quorvel {

class DataGrid;

/// A field that opens at the lower edge of a grid and makes the next row with the typed text current. The controls
/// belong to the window, which passes the keys and the changes of the text on.
class FindField {
 public:
  /// `grid` outlives the object.
  FindField(wxWindow& parent, DataGrid& grid);
  FindField(const FindField&) = delete;
  FindField& operator=(const FindField&) = delete;

  /// Opens the field with that text, or with its former one, and gives it the focus.
  void Open(const wxString& typed);
  /// Closes the field; the grid gets the focus if the field had it.
  void Close();
  /// Closes the field and forgets its text.
  void Reset();
  [[nodiscard]] bool IsOpen() const;

  /// Handles a key of the window: Ctrl+F opens the field, F3 goes on, with Shift upwards, and so does Enter in the
  /// field; Esc closes it. Returns false for other keys.
  bool TakesKey(const wxKeyEvent& event);
  /// Opens the field with a character that was typed in the grid. Returns false for other keys.
  bool TakesCharacter(const wxKeyEvent& event);
  /// To be called when the text has changed.
  void TextChanged() { Find(SearchFrom::Here); }

  /// The field has opened or closed.
  std::function<void()> Toggled;

  wxPanel* pnlFind;
  wxTextCtrl* txtFind;

 private:
  bool Find(SearchFrom from);
  void GoOn(bool upwards);
  void SayFound(bool isFound);

  DataGrid& m_grid;
  wxStaticText* m_result;
};

}  // namespace quorvel
