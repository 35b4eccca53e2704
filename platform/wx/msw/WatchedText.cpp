// The system's text boxes do not say what has changed in them, and they undo their last change only. This file looks at
// the text after each message that the box has handled, and answers the message of the box's own Undo.
#include "platform/wx/WatchedText.h"

#include <windows.h>

#include <string>

#include <wx/msw/winundef.h>
#include <wx/textctrl.h>

#include "platform/RaisedFlag.h"

namespace quorvel::ui {
namespace {

constexpr const wchar_t* kState = L"QuorvelWatchedText";

WNDPROC SetHandler(HWND box, WNDPROC handler) {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the system keeps the function as a number.
  return reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(box, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(handler)));
}

LRESULT Send(HWND box, UINT message, WPARAM first = 0, LPARAM second = 0) {
  return ::SendMessageW(box, message, first, second);
}

}  // namespace

struct WatchedText::State {
  State(wxTextCtrl& watched, EditHistory& changes) : box(watched.GetHWND()), history(changes) {
    ::SetPropW(box, kState, this);
    toolkit = SetHandler(box, Handle);
  }
  ~State() {
    SetHandler(box, toolkit);
    ::RemovePropW(box, kState);
  }
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  /// With the box's own line breaks, of two characters each, so that its offsets fit.
  [[nodiscard]] std::wstring Text() const {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(box)), L'\0');
    text.resize(static_cast<std::size_t>(::GetWindowTextW(box, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
  }

  void Renew() {
    Send(box, EM_SETMODIFY, FALSE);
    known = Text();
  }

  void Record() {
    if (Send(box, EM_GETMODIFY) == FALSE) return;
    DWORD caret = 0;
    Send(box, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    const std::wstring before = known;
    Renew();
    history.Add(Difference(before, known, caret), EditHistory::Clock::now());
  }

  void Make(const EditHistory::Changes& changes) {
    const RaisedFlag handling(isHandling);  // so that nothing is recorded
    for (const TextChange& change : changes) {
      Send(box, EM_SETSEL, change.offset, static_cast<LPARAM>(change.isInsertion ? change.offset : change.End()));
      const wchar_t* const text = change.isInsertion ? change.text.c_str() : L"";
      Send(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
    }
    Send(box, EM_SCROLLCARET);
    Renew();
  }

  static LRESULT CALLBACK Handle(HWND box, UINT message, WPARAM first, LPARAM second) noexcept {
    auto* const self = static_cast<State*>(::GetPropW(box, kState));
    if (message == EM_UNDO || message == WM_UNDO) {
      const bool isLocked = (::GetWindowLongPtrW(box, GWL_STYLE) & ES_READONLY) != 0;
      if (!isLocked) self->history.Guard([self] { self->Make(self->history.Undo()); });
      return TRUE;
    }
    // One key may change the text twice: a selection is deleted before a character takes its place.
    const bool isPartOfOther = self->isHandling;
    const RaisedFlag handling(self->isHandling);
    const LRESULT result = ::CallWindowProcW(self->toolkit, box, message, first, second);
    if (!isPartOfOther) self->history.Guard([self] { self->Record(); });
    return result;
  }

  HWND box;
  EditHistory& history;
  WNDPROC toolkit = nullptr;
  std::wstring known;  ///< the text that the history leads to
  bool isHandling = false;
};

WatchedText::WatchedText(wxTextCtrl& box, EditHistory& history) : m_state(std::make_unique<State>(box, history)) {
  // Otherwise the system would cut a long text that comes back.
  Send(m_state->box, EM_SETLIMITTEXT, 0);
}

WatchedText::~WatchedText() = default;

void WatchedText::Make(const EditHistory::Changes& changes) { m_state->Make(changes); }

void WatchedText::Renew() { m_state->Renew(); }

}  // namespace quorvel::ui
