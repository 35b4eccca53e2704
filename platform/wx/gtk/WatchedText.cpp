// The desktop's text boxes report each change before they make it.
#include "platform/wx/WatchedText.h"

#include <gtk/gtk.h>

#include <string>
#include <string_view>

#include "platform/RaisedFlag.h"
#include "platform/wx/Text.h"
#include "platform/wx/gtk/TextView.h"

namespace quorvel::ui {
namespace {

using Clock = EditHistory::Clock;

std::wstring Wide(std::string_view text) { return ToWx(text).ToStdWstring(); }

std::size_t OffsetOf(const GtkTextIter* place) { return static_cast<std::size_t>(gtk_text_iter_get_offset(place)); }

GtkTextIter At(GtkTextBuffer* buffer, std::size_t offset) {
  GtkTextIter place;
  gtk_text_buffer_get_iter_at_offset(buffer, &place, static_cast<int>(offset));
  return place;
}

/// Leaves the insertion point where the text has changed.
void MakeOne(GtkTextBuffer* buffer, const TextChange& change) {
  GtkTextIter from = At(buffer, change.offset);
  if (change.isInsertion) {
    const std::string text = FromWx(change.text);
    gtk_text_buffer_insert(buffer, &from, text.data(), static_cast<int>(text.size()));
  } else {
    GtkTextIter to = At(buffer, change.End());
    gtk_text_buffer_delete(buffer, &from, &to);
  }
  gtk_text_buffer_place_cursor(buffer, &from);
}

}  // namespace

struct WatchedText::State {
  State(wxTextCtrl& box, EditHistory& changes)
      : view(TextViewOf(box)), buffer(gtk_text_view_get_buffer(view)), history(changes) {}

  GtkTextView* view;
  GtkTextBuffer* buffer;
  EditHistory& history;
  bool isMaking = false;

  template <typename Action>
  void Record(const Action& action) noexcept {
    if (!isMaking) history.Guard(action);
  }

  static void Inserting(GtkTextBuffer* /*buffer*/, GtkTextIter* at, char* text, int bytes, State* self) {
    self->Record([&] {
      self->history.Add({true, OffsetOf(at), Wide({text, static_cast<std::size_t>(bytes)})}, Clock::now());
    });
  }
  static void Deleting(GtkTextBuffer* buffer, GtkTextIter* from, GtkTextIter* to, State* self) {
    self->Record([&] {
      const std::unique_ptr<char, decltype(&g_free)> text(gtk_text_buffer_get_slice(buffer, from, to, TRUE), &g_free);
      self->history.Add({false, OffsetOf(from), Wide(text.get())}, Clock::now());
    });
  }
  static void Beginning(GtkTextBuffer* /*buffer*/, State* self) {
    self->Record([self] { self->history.Begin(); });
  }
  static void Ending(GtkTextBuffer* /*buffer*/, State* self) {
    self->Record([self] { self->history.End(Clock::now()); });
  }
};

WatchedText::WatchedText(wxTextCtrl& box, EditHistory& history) : m_state(std::make_unique<State>(box, history)) {
  const auto listen = [this](const char* signal, GCallback handler) {
    g_signal_connect(m_state->buffer, signal, handler, m_state.get());
  };
  listen("insert-text", G_CALLBACK(&State::Inserting));
  listen("delete-range", G_CALLBACK(&State::Deleting));
  listen("begin-user-action", G_CALLBACK(&State::Beginning));
  listen("end-user-action", G_CALLBACK(&State::Ending));
}

WatchedText::~WatchedText() { g_signal_handlers_disconnect_by_data(m_state->buffer, m_state.get()); }

void WatchedText::Make(const EditHistory::Changes& changes) {
  const RaisedFlag making(m_state->isMaking);
  for (const TextChange& change : changes) MakeOne(m_state->buffer, change);
  gtk_text_view_scroll_mark_onscreen(m_state->view, gtk_text_buffer_get_insert(m_state->buffer));
}

void WatchedText::Renew() {}

}  // namespace quorvel::ui
