#include "platform/wx/NativeControls.h"

#include <windows.h>

#include <wx/access.h>
#include <wx/bookctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/window.h>

#include "platform/wx/Text.h"

namespace quorvel::ui {
namespace {

/// Gives the control itself a name; the system supplies the rest.
class NamedControl : public wxAccessible {
 public:
  NamedControl(wxWindow& window, const wxString& name) : wxAccessible(&window), m_name(name) {}

  wxAccStatus GetName(int child, wxString* name) override {
    if (child != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *name = m_name;
    return wxACC_OK;
  }

 private:
  wxString m_name;
};

}  // namespace

void SetAccessibleName(wxWindow& window, std::string_view name) {
  // The window owns the object.
  window.SetAccessible(new NamedControl(window, ToWx(name)));
}

// The system's buttons act at once, its scroll bars are always visible, its text boxes have margins, its fields have
// outlines and show the focus, and a label leads to the next control that takes keys.

void ActAtOnce(wxButton& /*button*/) {}

void KeepScrollBars(wxWindow& /*window*/) {}

void ShowFocus(wxWindow& /*window*/) {}

void ShowOutline(wxWindow& /*window*/) {}

void HoldScrollBar(wxTextCtrl& /*box*/) {}

void HideCaret(wxTextCtrl& box) {
  box.Bind(wxEVT_SET_FOCUS, [&box](wxFocusEvent& event) {
    event.Skip();
    box.CallAfter([&box] { ::HideCaret(box.GetHWND()); });
  });
}

void SetTextMargins(wxTextCtrl& /*box*/) {}

int FirstLineTop(wxTextCtrl& box) {
  RECT text{};
  ::SendMessageW(box.GetHandle(), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
  return static_cast<int>(text.top) + (box.GetSize().y - box.GetClientSize().y) / 2;
}

void CentreText(wxStaticText& label) {
  const HWND window = label.GetHandle();
  ::SetWindowLongPtrW(window, GWL_STYLE, ::GetWindowLongPtrW(window, GWL_STYLE) | SS_CENTERIMAGE);
}

void LeadAccessKeyTo(wxWindow& /*part*/, wxWindow& /*window*/) {}

void ExpectManyItems(wxListBox& /*list*/) {}

void PutCursorOn(wxListBox& /*list*/, int /*item*/) {}

bool IsCausedByKey() { return false; }

void ClickTab(wxBookCtrlBase& notebook, std::size_t tab) { notebook.SetSelection(tab); }

// The system underlines the access key itself.
void DressTab(wxBookCtrlBase& notebook, std::size_t tab, std::string_view /*caption*/, std::string_view tip) {
  notebook.Bind(wxEVT_MOTION, [&notebook, tab, text = ToWx(tip)](wxMouseEvent& event) {
    event.Skip();
    if (notebook.HitTest(event.GetPosition()) != static_cast<int>(tab) || notebook.GetToolTipText() == text) return;
    notebook.SetToolTip(text);
  });
  notebook.Bind(wxEVT_LEAVE_WINDOW, [&notebook](wxMouseEvent& event) {
    event.Skip();
    notebook.UnsetToolTip();
  });
}

}  // namespace quorvel::ui
