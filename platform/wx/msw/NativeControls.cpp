#include "platform/wx/NativeControls.h"

#include <wx/access.h>
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

// The system's buttons act at once, its scroll bars are always visible, and its text boxes have margins.

void ActAtOnce(wxButton& /*button*/) {}

void KeepScrollBars(wxWindow& /*window*/) {}

void SetTextMargins(wxTextCtrl& /*box*/) {}

}  // namespace quorvel::ui
