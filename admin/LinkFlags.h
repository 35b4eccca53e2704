#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "ado/Recordset.h"
#include "data/Controls.h"

namespace quorvel {

/// One row of a table that links records, by its two keys in the order in which statements name them.
struct LinkRow {
  std::string_view table;
  std::string_view keyField;
  std::int32_t key = 0;
  std::string_view otherKeyField;
  std::int32_t otherKey = 0;
};

/// The row of a link that `sql` selects. Error -1 when there is none, because another administrator has removed the
/// link; error 91 when the statement fails, which the user has then seen.
[[nodiscard]] std::shared_ptr<ado::Recordset> QueryLink(std::string_view sql);

/// Writes a number into a column of the link's row.
void WriteLink(const LinkRow& row, std::string_view column, std::int32_t value);

/// A check box, its name for IMgr::Update, and the column of the link's row that it shows and writes.
struct LinkFlag {
  std::string_view field;
  std::string_view column;
  CheckField* checkBox = nullptr;
};

using LinkFlags = std::span<const LinkFlag>;

/// The flag with that name, in any letter case; null when there is none.
[[nodiscard]] const LinkFlag* FindFlag(LinkFlags flags, std::string_view field) noexcept;
void EnableFlags(LinkFlags flags, bool enabled);
/// Sets the check boxes from the current row of `link`.
void ShowFlags(LinkFlags flags, const ado::Recordset& link);
/// Writes the check box, which the user has clicked, into the link's row. When the database refuses the value, the
/// check box goes back to the one before the click, and the error goes to the caller.
void WriteFlag(const LinkFlag& flag, const LinkRow& row);

}  // namespace quorvel
