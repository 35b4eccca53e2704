#include "admin/window/SearchCombo.h"

#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

constexpr int kSmallestCharacters = 34;

class List : public wxVListBoxComboPopup {
 public:
  // The toolkit's list would search for the letter of an access key, and the window would not get the key.
  void OnComboCharEvent(wxKeyEvent& event) override {
    if (event.AltDown() || event.ControlDown()) {
      event.Skip();
    } else {
      wxVListBoxComboPopup::OnComboCharEvent(event);
    }
  }
};

}  // namespace

SearchCombo::SearchCombo(wxWindow& parent, std::string_view name, std::string_view spokenName)
    : wxOwnerDrawnComboBox(&parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, 0, nullptr, wxCB_READONLY,
                           wxDefaultValidator, ui::ToWx(name)) {
  SetPopupControl(new List);  // the combo box owns it
  SetMinSize({kSmallestCharacters * GetCharWidth(), -1});
  ui::SetAccessibleName(*this, spokenName);
  Bind(wxEVT_CHAR_HOOK, &SearchCombo::KeepKeysOfOpenList, this);
}

// The window would take some of the keys: Esc would close it.
void SearchCombo::KeepKeysOfOpenList(wxKeyEvent& event) {
  if (!IsPopupShown()) {
    event.Skip();
  } else if (event.GetKeyCode() == WXK_ESCAPE) {
    Dismiss();
  } else {
    event.DoAllowNextEvent();
  }
}

}  // namespace quorvel
