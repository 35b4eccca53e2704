#include "admin/window/EntryListBox.h"

namespace quorvel {

// After each change by the program, the selection counts as reported.

void EntryListBox::DoSetSelection(int item, bool select) {
  wxListBox::DoSetSelection(item, select);
  DoChangeSingleSelection(GetSelection());
}

void EntryListBox::DoDeleteOneItem(unsigned item) {
  wxListBox::DoDeleteOneItem(item);
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
