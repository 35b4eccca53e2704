// A face remembers the content of its control right after it was set. Toolkits change some texts on the way, so only a
// later difference is the user's.

#include "admin/window/BoundFields.h"

#include <charconv>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include "platform/wx/BoxText.h"
#include "platform/wx/Text.h"

namespace quorvel {
namespace {

/// The length of a text as the database counts it when the text is stored with CR LF.
std::size_t StoredLength(const wxString& text) {
  std::size_t length = 0;
  for (const wxUniChar character : text) length += character == '\n' || character.GetValue() > 0xFFFF ? 2 : 1;
  return length;
}

void EnableControl(wxWindow& control, bool enabled, wxWindow* neighbour) {
  const bool hasFocus = wxWindow::FindFocus() == &control;
  if (control.Enable(enabled) && !enabled && hasFocus && neighbour != nullptr) neighbour->SetFocus();
}

}  // namespace

void BoundText::Attach(wxTextCtrl& box, std::size_t maxLength) {
  m_box = &box;
  m_maxLength = maxLength;
  if (maxLength > 0) {
    box.Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
      event.Skip();
      RefuseTooLong();
    });
  }
}

std::string BoundText::Text() const {
  return IsChanged() ? StoredText(ui::FromWx(m_box->GetValue()), m_stored) : m_stored;
}

void BoundText::SetText(std::string_view text) {
  m_stored = text;
  const wxString shown = ui::ToWx(ShownText(text));
  // An unchanged text keeps its insertion point: the user may go on typing.
  if (m_box->GetValue() != shown) {
    m_box->ChangeValue(shown);
    m_box->SetInsertionPoint(0);
  }
  m_filled = m_box->GetValue();
  m_fitting = m_filled;
}

void BoundText::PutBack(const wxString& typed) {
  m_box->ChangeValue(typed);
  m_box->SetInsertionPointEnd();
  m_fitting = typed;
}

bool BoundText::IsChanged() const { return m_box->GetValue() != m_filled; }

// The whole input is refused. A box that cut its text would lose the end of it when the user types in the middle.
void BoundText::RefuseTooLong() {
  const wxString text = m_box->GetValue();
  if (StoredLength(text) <= m_maxLength || text.length() <= m_fitting.length()) {
    m_fitting = text;
    return;
  }
  const long added = static_cast<long>(text.length() - m_fitting.length());
  const long position = m_box->GetInsertionPoint() - added;
  m_box->ChangeValue(m_fitting);
  m_box->SetInsertionPoint(position < 0 ? 0 : position);
  wxBell();
}

void BoundNumber::Attach(wxSpinCtrl& box) {
  m_box = &box;
  Accept();
}

std::int32_t BoundNumber::Value() const { return m_box->GetValue(); }

void BoundNumber::SetValue(std::int32_t value) {
  m_box->SetValue(value);
  Accept();
}

void BoundNumber::SetText(std::string_view text) {
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc() && value != Value()) SetValue(value);
}

void BoundNumber::Undo() { SetValue(std::int32_t{m_filled}); }

void BoundCheck::Attach(wxCheckBox& box, wxWindow* neighbour) noexcept {
  m_box = &box;
  m_neighbour = neighbour;
}

void BoundCheck::SetEnabled(bool enabled) {
  EnableControl(*m_box, enabled, m_neighbour);
  if (!enabled) m_box->SetValue(false);
}

std::int32_t BoundCheck::Value() const { return m_box->IsChecked() ? 1 : 0; }

void BoundCheck::SetValue(std::int32_t value) { m_box->SetValue(value != 0); }

void BoundButton::Attach(wxButton& button, wxWindow& neighbour) noexcept {
  m_button = &button;
  m_neighbour = &neighbour;
}

void BoundButton::SetEnabled(bool enabled) { EnableControl(*m_button, enabled, m_neighbour); }

}  // namespace quorvel
