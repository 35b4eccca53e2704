#include "platform/wx/TextUndo.h"

#include <wx/textctrl.h>

namespace quorvel::ui {

// The system's text boxes undo their last change.
struct TextUndo::State {
  explicit State(wxTextCtrl& watched) : box(watched) {}

  wxTextCtrl& box;
};

TextUndo::TextUndo(wxTextCtrl& box) : m_state(std::make_unique<State>(box)) {}

TextUndo::~TextUndo() = default;

void TextUndo::Forget() { m_state->box.EmptyUndoBuffer(); }

}  // namespace quorvel::ui
