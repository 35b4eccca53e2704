#pragma once

#include <cstdint>

#include "data/Controls.h"

/// The rights that a user has through his groups. Error 91 when a statement fails, which the user has then seen; the
/// grid then shows nothing.
namespace quorvel::EffectiveRights {

/// Shows every right, with the user's key beside those that he has. A row's explanation names the groups that give it.
void ShowRights(RowsView& grid, std::int32_t userKey);

/// Shows every remark type with the highest flag of the user's groups for each kind of right. A row's explanation has a
/// line for each of these groups with its flags.
void ShowRemarkRights(RowsView& grid, std::int32_t userKey);

}  // namespace quorvel::EffectiveRights
