#pragma once

#include "ado/Recordset.h"

namespace quorvel::cli {

/// Prints the rows from the current one to the end as a table with a heading and a count; numbers are aligned to the
/// right.
void PrintTable(ado::Recordset& rows);

}  // namespace quorvel::cli
