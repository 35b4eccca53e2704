#include "platform/wx/ListSearch.h"

#include <wx/listbox.h>
#include <wx/utils.h>

#include "platform/wx/NativeControls.h"

namespace quorvel::ui {
namespace {

constexpr long kPauseMilliseconds = 1000;

int FirstWith(const wxListBox& list, const wxString& beginning) {
  for (unsigned item = 0; item < list.GetCount(); ++item) {
    if (list.GetString(item).Left(beginning.length()).CmpNoCase(beginning) == 0) return static_cast<int>(item);
  }
  return wxNOT_FOUND;
}

}  // namespace

void ListSearch::Attach(wxListBox& list) {
  m_list = &list;
  list.Bind(wxEVT_CHAR, &ListSearch::KeyTyped, this);
}

void ListSearch::KeyTyped(wxKeyEvent& event) {
  if (m_sinceKey.Time() > kPauseMilliseconds) m_typed.clear();
  const wxChar typed = event.GetUnicodeKey();
  if (typed < ' ' || typed == WXK_DELETE || event.ControlDown() || event.AltDown()) return event.Skip();
  if (typed == ' ' && m_typed.empty()) return;  // some desktops would take it for a double click
  m_sinceKey.Start();
  m_typed += typed;
  const int item = FirstWith(*m_list, m_typed);
  if (item != wxNOT_FOUND) {
    Select(item);
  } else {
    m_typed.clear();
    wxBell();
  }
}

void ListSearch::Select(int item) {
  if (item == m_list->GetSelection()) return;
  m_list->SetSelection(item);
  PutCursorOn(*m_list, item);
  m_list->EnsureVisible(item);
  wxCommandEvent selected(wxEVT_LISTBOX, m_list->GetId());
  selected.SetEventObject(m_list);
  selected.SetInt(item);
  m_list->HandleWindowEvent(selected);
}

}  // namespace quorvel::ui
