#pragma once

#include <cstdint>
#include <string_view>

#include "data/Controls.h"

/// Fills list and combo boxes and selects their items; modDatabase::FillList fills either kind of box from its start.
namespace quorvel::modControls {

/// Makes the first item with that datum current. Without one, the first item when `selectFirst`, else the item that
/// was current before is made current again.
void SelectByKey(ItemList& list, std::int32_t key, bool selectFirst);

/// Makes the first item with that text current, as SelectByKey does. Letter case and blanks around the item's text do
/// not count. Does nothing when the combo box shows the text already.
void SelectByText(Choice& combo, std::string_view text, bool selectFirst);

/// Makes the first item with exactly that text current. Without one nothing changes.
void SelectListText(ItemList& list, std::string_view text);

/// Checks or unchecks a check box.
void SetCheck(CheckField& checkBox, bool on);

/// Adds `count` rows of `rs` from its current row on: the trimmed text of one column, and the number in another as the
/// item's datum, or 0 with an empty `keyField`. Moves `rs` back to its first row, if it has rows. Error 91 for null,
/// the recordset of a failed load; 94 for a text that is NULL; 13 or 6 for a key that is no 32-bit number; the
/// recordset's own errors for an unknown field and for fewer rows than `count`. After an error `rs` stays where it was
/// read.
void AddRows(ItemList& list, std::int32_t count, std::string_view displayField, std::string_view keyField,
             const std::shared_ptr<ado::Recordset>& rs);

/// Clears the combo box, adds the item "<none>" when `withNone`, and then the rows as AddRows does. That item
/// means no selection: its datum is 0.
void FillCombo(ItemList& combo, std::int32_t count, std::string_view displayField, std::string_view keyField,
               const std::shared_ptr<ado::Recordset>& rs, bool withNone = true);

}  // namespace quorvel::modControls
