#pragma once

#include <memory>

class wxTextCtrl;

namespace quorvel::ui {

/// Undo and redo in a text box of several lines: Ctrl+Z takes typing back word by word, Ctrl+Y and Ctrl+Shift+Z bring
/// it again. On Windows the system's box undoes: it knows the last change only, and a second Ctrl+Z brings that again.
class TextUndo {
 public:
  /// `box` outlives the object.
  explicit TextUndo(wxTextCtrl& box);
  ~TextUndo();
  TextUndo(const TextUndo&) = delete;
  TextUndo& operator=(const TextUndo&) = delete;

  /// To be called when the box shows another text, which must not become the former one.
  void Forget();

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

}  // namespace quorvel::ui
