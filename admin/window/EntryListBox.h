#pragma once

#include <wx/listbox.h>

namespace quorvel {

/// A list box that reports every selection of the user. The toolkit's list box compares the index with that of the last
/// reported selection, even when the program has deselected or removed that item since, or has added one above it.
class EntryListBox : public wxListBox {
 public:
  using wxListBox::wxListBox;

 protected:
  void DoSetSelection(int item, bool select) override;
  void DoDeleteOneItem(unsigned item) override;
  int DoInsertItems(const wxArrayStringsAdapter& items, unsigned first, void** clientData,
                    wxClientDataType type) override;
  void DoClear() override;
};

}  // namespace quorvel
