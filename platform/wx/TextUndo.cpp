#include "platform/wx/TextUndo.h"

#include <wx/event.h>
#include <wx/textctrl.h>

namespace quorvel::ui {

TextUndo::TextUndo(wxTextCtrl& box) : m_box(box), m_text(box, m_history) {
  m_box.Bind(wxEVT_KEY_DOWN, &TextUndo::KeyDown, this);
}

TextUndo::~TextUndo() { m_box.Unbind(wxEVT_KEY_DOWN, &TextUndo::KeyDown, this); }

void TextUndo::Forget() {
  m_history.Forget();
  m_text.Renew();
}

void TextUndo::KeyDown(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  const int modifiers = event.GetModifiers();
  const bool isRedo =
      (key == 'Y' && modifiers == wxMOD_CONTROL) || (key == 'Z' && modifiers == (wxMOD_CONTROL | wxMOD_SHIFT));
  const bool isUndo = key == 'Z' && modifiers == wxMOD_CONTROL;
  if (!m_box.IsEditable() || !(isUndo || isRedo)) return event.Skip();
  m_history.Guard([&] { m_text.Make(isUndo ? m_history.Undo() : m_history.Redo()); });
}

}  // namespace quorvel::ui
