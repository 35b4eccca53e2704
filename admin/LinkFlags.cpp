#include "admin/LinkFlags.h"

#include <algorithm>

#include "admin/Query.h"
#include "data/modControls.h"
#include "data/modDatabase.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Value.h"

namespace quorvel {

std::shared_ptr<ado::Recordset> QueryLink(std::string_view sql) {
  auto row = Query(sql);
  if (row->EndOfFile()) {
    throw Error(ErrorNumber::Component, "Manager",
                "This entry is no longer in the list: somebody else has removed it. The lists show the entries that "
                "there are now.");
  }
  return row;
}

void WriteLink(const LinkRow& row, std::string_view column, std::int32_t value) {
  modDatabase::UpdateField(row.table, column, std::int64_t{value}, row.keyField, std::int64_t{row.key},
                           row.otherKeyField, std::int64_t{row.otherKey});
}

const LinkFlag* FindFlag(LinkFlags flags, std::string_view field) noexcept {
  const auto found = std::find_if(flags.begin(), flags.end(),
                                  [&](const LinkFlag& flag) { return EqualIgnoringCase(flag.field, field); });
  return found == flags.end() ? nullptr : &*found;
}

void EnableFlags(LinkFlags flags, bool enabled) {
  for (const LinkFlag& flag : flags) flag.checkBox->SetEnabled(enabled);
}

void ShowFlags(LinkFlags flags, const ado::Recordset& link) {
  for (const LinkFlag& flag : flags) modControls::SetCheck(*flag.checkBox, ToBoolean(link.Fields(flag.column).Value()));
}

void WriteFlag(const LinkFlag& flag, const LinkRow& row) {
  try {
    WriteLink(row, flag.column, flag.checkBox->Value());
  } catch (...) {
    modControls::SetCheck(*flag.checkBox, flag.checkBox->Value() == 0);
    throw;
  }
}

}  // namespace quorvel
