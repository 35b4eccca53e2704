#include "admin/window/SearchCombo.h"

#include <wx/dc.h>

#include "platform/wx/NativeControls.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

constexpr int kSmallestCharacters = 26;
constexpr int kPadding = 4;

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
                           wxDefaultValidator, ui::ToWx(name)),
      m_itemHeight(GetCharHeight() + FromDIP(2 * kPadding)),
      m_spokenName(spokenName) {
  RemoveAll();
  SetMinSize({kSmallestCharacters * GetCharWidth(), -1});
  ui::SetAccessibleName(*this, spokenName);
  Bind(wxEVT_CHAR_HOOK, &SearchCombo::KeepKeysOfOpenList, this);
  // The toolkit would choose another item, and the choice would be written, while the user only scrolls past.
  Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) { event.Skip(IsPopupShown()); });
  Bind(wxEVT_IDLE, &SearchCombo::Speak, this);
}

// A list that was open once measures itself again for each item that is added.
void SearchCombo::RemoveAll() {
  SetPopupControl(new List);  // the combo box owns it
  SetSelection(wxNOT_FOUND);
}

void SearchCombo::OnDrawItem(wxDC& dc, const wxRect& rectangle, int item, int flags) const {
  if ((flags & wxODCB_PAINTING_CONTROL) != 0) return wxOwnerDrawnComboBox::OnDrawItem(dc, rectangle, item, flags);
  const int above = (rectangle.height - dc.GetCharHeight()) / 2;
  dc.DrawText(GetString(static_cast<unsigned>(item)), rectangle.x + FromDIP(kPadding), rectangle.y + above);
}

wxCoord SearchCombo::OnMeasureItem(std::size_t /*item*/) const { return m_itemHeight; }

// The window would take some of the keys: Esc would close it, and others show another view while the list is open.
void SearchCombo::KeepKeysOfOpenList(wxKeyEvent& event) {
  const bool isEscape = event.GetKeyCode() == WXK_ESCAPE;
  const bool isOfWindow = event.HasModifiers() && event.GetKeyCode() < WXK_START;
  const bool closesList = IsPopupShown() && (isEscape || isOfWindow);
  if (closesList) Dismiss();
  if (!closesList || !isEscape) event.Skip();
}

// Assistive technology cannot read a text that is drawn.
void SearchCombo::Speak(wxIdleEvent& event) {
  event.Skip();
  if (GetValue() == m_spoken) return;
  m_spoken = GetValue();
  ui::SetAccessibleName(*this, m_spokenName + ": " + ui::FromWx(m_spoken));
}

}  // namespace quorvel
