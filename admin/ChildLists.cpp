#include "admin/ChildLists.h"

#include <cstdint>
#include <unordered_set>

#include "admin/Query.h"
#include "data/modDatabase.h"
#include "platform/Error.h"
#include "platform/Text.h"

namespace quorvel {

void ChildLists::Fill(std::string_view allSql, std::string_view linkedSql, std::string_view displayField,
                      std::string_view keyField) const {
  lstCurrent->Clear();
  lstRemaining->Clear();
  const auto all = Query(allSql);
  const auto linked = Query(linkedSql);
  modDatabase::FillList(*lstCurrent, linked->RecordCount(), displayField, keyField, linked);

  std::unordered_set<std::int32_t> keys;
  for (; !linked->EndOfFile(); linked->MoveNext()) keys.insert(ToInt32(linked->Fields(keyField).Value()));
  const ado::Field text = all->Fields(displayField);
  const ado::Field key = all->Fields(keyField);
  for (; !all->EndOfFile(); all->MoveNext()) {
    const std::int32_t datum = ToInt32(key.Value());
    if (!keys.contains(datum)) lstRemaining->Add(TrimBlanks(ToText(text.Value())), datum);
  }
}

std::int32_t SelectedKey(const ItemList& list) {
  if (list.ListIndex() < 0) ThrowObjectNotSet();
  return list.Datum(list.ListIndex());
}

}  // namespace quorvel
