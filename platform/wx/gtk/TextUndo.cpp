// The desktop's text boxes cannot undo, but they report each change before they make it. EditHistory keeps the changes;
// this file listens, and makes the changes of a step backwards or again.

#include "platform/wx/TextUndo.h"

#include <gtk/gtk.h>

#include <algorithm>
#include <utility>

#include <wx/textctrl.h>

#include "platform/RaisedFlag.h"
#include "platform/wx/GuardedHandler.h"
#include "platform/wx/gtk/EditHistory.h"
#include "platform/wx/gtk/TextView.h"

namespace quorvel::ui {
namespace {

using Clock = EditHistory::Clock;

GtkTextIter At(GtkTextBuffer* buffer, int offset) {
  GtkTextIter place;
  gtk_text_buffer_get_iter_at_offset(buffer, &place, offset);
  return place;
}

/// Leaves the insertion point where the text has changed.
void Make(GtkTextBuffer* buffer, const TextChange& change, bool isInsertion) {
  GtkTextIter from = At(buffer, change.offset);
  if (isInsertion) {
    gtk_text_buffer_insert(buffer, &from, change.text.data(), static_cast<int>(change.text.size()));
  } else {
    GtkTextIter to = At(buffer, change.offset + change.length);
    gtk_text_buffer_delete(buffer, &from, &to);
  }
  gtk_text_buffer_place_cursor(buffer, &from);
}

}  // namespace

struct TextUndo::State {
  explicit State(wxTextCtrl& watched) : box(watched), view(TextViewOf(box)), buffer(gtk_text_view_get_buffer(view)) {}

  wxTextCtrl& box;
  GtkTextView* view;
  GtkTextBuffer* buffer;
  EditHistory history{};
  bool isReplaying = false;

  // A lost history does no harm; an exception would end the host.
  template <typename Action>
  void Guard(const Action& action) noexcept {
    RunGuarded(action, [this](const std::exception_ptr& /*noMemory*/) { history.Forget(); });
  }

  void Undo() {
    EditHistory::Changes changes = history.Undo();
    std::ranges::reverse(changes);
    Replay(changes, true);
  }
  void Redo() { Replay(history.Redo(), false); }

  template <typename Action>
  void Record(const Action& action) noexcept {
    if (!isReplaying) Guard(action);
  }

  void Replay(const EditHistory::Changes& changes, bool isBackwards) {
    const RaisedFlag replaying(isReplaying);
    for (const TextChange& change : changes) Make(buffer, change, change.isInsertion != isBackwards);
    gtk_text_view_scroll_mark_onscreen(view, gtk_text_buffer_get_insert(buffer));
  }

  void KeyDown(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const int modifiers = event.GetModifiers();
    const bool isRedo =
        (key == 'Y' && modifiers == wxMOD_CONTROL) || (key == 'Z' && modifiers == (wxMOD_CONTROL | wxMOD_SHIFT));
    const bool isUndo = key == 'Z' && modifiers == wxMOD_CONTROL;
    if (!box.IsEditable() || !(isUndo || isRedo)) return event.Skip();
    Guard([&] { isUndo ? Undo() : Redo(); });
  }

  static void Inserting(GtkTextBuffer* /*buffer*/, GtkTextIter* at, char* text, int bytes, State* self) {
    self->Record([&] {
      const auto length = static_cast<int>(g_utf8_strlen(text, bytes));
      self->history.Add({true, gtk_text_iter_get_offset(at), length, {text, static_cast<std::size_t>(bytes)}},
                        Clock::now());
    });
  }
  static void Deleting(GtkTextBuffer* buffer, GtkTextIter* from, GtkTextIter* to, State* self) {
    self->Record([&] {
      const int offset = gtk_text_iter_get_offset(from);
      char* const text = gtk_text_buffer_get_slice(buffer, from, to, TRUE);
      const std::string copy(text);
      g_free(text);
      self->history.Add({false, offset, gtk_text_iter_get_offset(to) - offset, copy}, Clock::now());
    });
  }
  static void Beginning(GtkTextBuffer* /*buffer*/, State* self) {
    self->Record([self] { self->history.Begin(); });
  }
  static void Ending(GtkTextBuffer* /*buffer*/, State* self) {
    self->Record([self] { self->history.End(Clock::now()); });
  }
};

TextUndo::TextUndo(wxTextCtrl& box) : m_state(std::make_unique<State>(box)) {
  const auto listen = [this](const char* signal, GCallback handler) {
    g_signal_connect(m_state->buffer, signal, handler, m_state.get());
  };
  listen("insert-text", G_CALLBACK(&State::Inserting));
  listen("delete-range", G_CALLBACK(&State::Deleting));
  listen("begin-user-action", G_CALLBACK(&State::Beginning));
  listen("end-user-action", G_CALLBACK(&State::Ending));
  box.Bind(wxEVT_KEY_DOWN, &State::KeyDown, m_state.get());
}

TextUndo::~TextUndo() {
  m_state->box.Unbind(wxEVT_KEY_DOWN, &State::KeyDown, m_state.get());
  g_signal_handlers_disconnect_by_data(m_state->buffer, m_state.get());
}

void TextUndo::Forget() { m_state->history.Forget(); }

}  // namespace quorvel::ui
