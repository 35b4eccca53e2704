// A manager shows the whole record after each write, so the texts that are typed in other boxes are put back then. The
// row height is a text too, but it is chosen as well, and its choice obeys the busy flag.

#include "admin/window/TypedTexts.h"

#include <string>
#include <utility>
#include <vector>

#include <wx/spinctrl.h>
#include <wx/textctrl.h>

#include "platform/AtScopeEnd.h"

namespace quorvel {

bool TypedTexts::Commit() {
  bool isWritten = CommitLastRowHeight();
  for (const TypedField& field : m_controls.typed) isWritten = Commit(field) && isWritten;
  return isWritten;
}

bool TypedTexts::Commit(const TypedField& field) {
  if (m_isCommitting || !IsShown(field) || !field.text->IsChanged()) return true;
  m_isCommitting = true;
  const AtScopeEnd committed([this] { m_isCommitting = false; });
  bool isWritten = false;
  KeepOthers([&] { isWritten = m_administration.ChangeText(field.field); }, field.text);
  if (!isWritten) {
    // Without a record no text can be written, and this one would keep the user from adding a record.
    if (m_controls.cboID.ListIndex() < 0) field.text->Undo();
    return false;
  }
  // A manager shows what is stored now; a box that it left alone shows what was written.
  if (field.text->IsChanged()) field.text->Accept();
  m_wasRefused = false;
  return true;
}

bool TypedTexts::MustWriteRowHeight() const {
  return !m_isCommitting && m_administration.CurrentView() == "Contexts" && m_controls.udRowHeight.IsChanged();
}

// A change that came while the window was busy is not written. The number must not be lost with its record.
bool TypedTexts::CommitLastRowHeight() {
  if (!MustWriteRowHeight()) return true;
  m_isCommitting = true;
  const AtScopeEnd committed([this] { m_isCommitting = false; });
  bool isWritten = false;
  KeepOthers([&] { isWritten = m_administration.ChangeText("RowHeight"); });
  return isWritten;
}

void TypedTexts::CommitRowHeight() {
  if (!MustWriteRowHeight()) return;
  m_isCommitting = true;
  const AtScopeEnd committed([this] { m_isCommitting = false; });
  const std::int32_t chosen = m_controls.udRowHeight.Value();
  // A number that was typed is written even now: the user would lose it.
  if (LeaveBusyAfterError()) m_controls.udRowHeight.SetValue(chosen);
  KeepOthers([&] { m_administration.ChangeRowHeight(); });
}

bool TypedTexts::HasUnwritten() const {
  for (const TypedField& field : m_controls.typed) {
    if (IsShown(field) && field.text->IsChanged()) return true;
  }
  return false;
}

bool TypedTexts::CommitBeforeClosing() { return Commit() || std::exchange(m_wasRefused, true); }

bool TypedTexts::UndoFocused() {
  const wxWindow* focus = wxWindow::FindFocus();
  for (const TypedField& field : m_controls.typed) {
    if (&field.text->Box() != focus || !field.text->IsChanged()) continue;
    field.text->Undo();
    return true;
  }
  return false;
}

void TypedTexts::ClickField(std::string_view field) {
  if (!LeaveBusyAfterError()) KeepOthers([&] { m_administration.ClickField(field); });
}

bool TypedTexts::LeaveBusyAfterError() {
  if (!m_administration.IsBusy()) return false;
  KeepOthers([this] { m_administration.ClickTab(); });
  return true;
}

std::int32_t TypedTexts::ShownKey() const {
  const BoundCombo& cboID = m_controls.cboID;
  return cboID.ListIndex() < 0 ? 0 : cboID.Datum(cboID.ListIndex());
}

// Some controls change without taking the focus, by the wheel or by a drop, so another text may still be unwritten.
// Texts of another record are not put back.
template <typename Write>
void TypedTexts::KeepOthers(const Write& write, const BoundText* written) {
  const std::int32_t record = ShownKey();
  std::vector<std::pair<BoundText*, wxString>> typed;
  for (const TypedField& field : m_controls.typed) {
    if (!IsShown(field) || field.text == written || !field.text->IsChanged()) continue;
    typed.emplace_back(field.text, field.text->Box().GetValue());
  }
  write();
  if (ShownKey() != record) return;
  for (const auto& [text, value] : typed) text->PutBack(value);
}

}  // namespace quorvel
