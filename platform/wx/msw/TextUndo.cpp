#include "platform/wx/TextUndo.h"

#include <wx/textctrl.h>

namespace quorvel::ui {

// The system's text boxes undo.
struct TextUndo::State {
  wxTextCtrl& box;
};

TextUndo::TextUndo(wxTextCtrl& box) : m_state(new State{box}) {}

TextUndo::~TextUndo() = default;

void TextUndo::Forget() { m_state->box.EmptyUndoBuffer(); }

}  // namespace quorvel::ui
