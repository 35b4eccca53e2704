#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "ado/engine/RowSet.h"

namespace quorvel::ado {

/// The 0-based rows that meet ADO filter criteria, in order.
///
/// Criteria: `Field op value` joined by AND and OR (AND binds tighter), with brackets. Operators: = <> < > <=
/// >= LIKE. A value is a text between single quotes (a quote inside is doubled), a date between #, a number or
/// NULL. A field name may be in square brackets. Texts compare without regard to letter case and
/// trailing blanks; a text given for a number column is read as a number. LIKE takes * or % at the
/// beginning, the end or both. NULL meets no comparison, except `= NULL` and `<> NULL`.
/// Throws Error adErrInvalidArgument for criteria that cannot be read or that compare a field with a value it
/// cannot hold, adErrItemNotFound for an unknown field.
[[nodiscard]] std::vector<std::uint32_t> SelectRows(const RowSet& rows, std::string_view criteria);

}  // namespace quorvel::ado
