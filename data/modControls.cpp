#include "data/modControls.h"

#include <string>

#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Value.h"

namespace quorvel::modControls {
namespace {

std::int32_t IndexOfKey(const ItemList& list, std::int32_t key) {
  for (std::int32_t index = 0; index < list.Count(); ++index) {
    if (list.Datum(index) == key) return index;
  }
  return kNoItem;
}

std::int32_t IndexOfText(const ItemList& list, std::string_view text) {
  for (std::int32_t index = 0; index < list.Count(); ++index) {
    if (EqualIgnoringCase(TrimBlanks(list.Text(index)), text)) return index;
  }
  return kNoItem;
}

/// Makes the item that was found current. The former one is set again even though it is current: the box then shows
/// its text instead of what was typed.
void Select(ItemList& list, std::int32_t found, bool selectFirst) {
  const std::int32_t otherwise = selectFirst ? 0 : list.ListIndex();
  list.SetListIndex(found != kNoItem ? found : otherwise);
}

}  // namespace

void SelectByKey(ItemList& list, std::int32_t key, bool selectFirst) {
  Select(list, IndexOfKey(list, key), selectFirst);
}

void SelectByText(Choice& combo, std::string_view text, bool selectFirst) {
  if (EqualIgnoringCase(combo.CurrentText(), text)) return;
  Select(combo, IndexOfText(combo, text), selectFirst);
}

void SelectListText(ItemList& list, std::string_view text) {
  for (std::int32_t index = 0; index < list.Count(); ++index) {
    if (list.Text(index) == text) return list.SetListIndex(index);
  }
}

void SetCheck(CheckField& checkBox, bool on) { checkBox.SetValue(on ? 1 : 0); }

void AddRows(ItemList& list, std::int32_t count, std::string_view displayField, std::string_view keyField,
             const std::shared_ptr<ado::Recordset>& rs) {
  if (!rs) ThrowObjectNotSet();
  for (std::int32_t row = 0; row < count; ++row, rs->MoveNext()) {
    const std::string text = ToText(rs->Fields(displayField).Value());
    list.Add(TrimBlanks(text), keyField.empty() ? 0 : ToInt32(rs->Fields(keyField).Value()));
  }
  if (rs->RecordCount() > 0) rs->MoveFirst();
}

void FillCombo(ItemList& combo, std::int32_t count, std::string_view displayField, std::string_view keyField,
               const std::shared_ptr<ado::Recordset>& rs, bool withNone) {
  combo.Clear();
  if (withNone) combo.Add("<none>", 0);
  AddRows(combo, count, displayField, keyField, rs);
}

}  // namespace quorvel::modControls
