#include "admin/window/EntryListBox.h"

#include "platform/wx/NativeControls.h"

namespace quorvel {

// After each change by the program, the selection counts as reported.

void EntryListBox::DoSetSelection(int item, bool select) {
  wxListBox::DoSetSelection(item, select);
  if (select && item != wxNOT_FOUND) ui::PutCursorOn(*this, item);
  DoChangeSingleSelection(GetSelection());
}

void EntryListBox::DoDeleteOneItem(unsigned item) {
  wxListBox::DoDeleteOneItem(item);
  // Some desktops select another item in place of the deleted one.
  wxListBox::DoSetSelection(wxNOT_FOUND, false);
  DoChangeSingleSelection(GetSelection());
}

int EntryListBox::DoInsertItems(const wxArrayStringsAdapter& items, unsigned first, void** clientData,
                                wxClientDataType type) {
  const int last = wxListBox::DoInsertItems(items, first, clientData, type);
  DoChangeSingleSelection(GetSelection());
  return last;
}

void EntryListBox::DoClear() {
  wxListBox::DoClear();
  DoChangeSingleSelection(wxNOT_FOUND);
}

}  // namespace quorvel
