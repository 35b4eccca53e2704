#pragma once

#include "platform/wx/EditHistory.h"
#include "platform/wx/WatchedText.h"

class wxKeyEvent;
class wxTextCtrl;

namespace quorvel::ui {

/// Undo and redo in a text box of several lines: Ctrl+Z takes typing back word by word, Ctrl+Y and Ctrl+Shift+Z bring
/// it again. The box sends the same events as for typing.
class TextUndo {
 public:
  /// `box` outlives the object.
  explicit TextUndo(wxTextCtrl& box);
  ~TextUndo();
  TextUndo(const TextUndo&) = delete;
  TextUndo& operator=(const TextUndo&) = delete;

  /// To be called when the program has put another text into the box, which must not become the former one.
  void Forget();

 private:
  void KeyDown(wxKeyEvent& event);

  wxTextCtrl& m_box;
  EditHistory m_history;
  WatchedText m_text;
};

}  // namespace quorvel::ui
