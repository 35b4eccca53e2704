#pragma once

#include "ado/engine/Session.h"
#include "ado/odbc/Statement.h"

namespace quorvel::ado::odbc {

/// Reads the open result set of a statement to its end. DriverError when a row cannot be read: a part of a result is
/// never returned as the whole.
[[nodiscard]] RowSet ReadRows(Statement& statement);

/// Reads all results of an executed statement: keeps the first result set and skips the others and the row counts. A
/// failure does not stop it: the DriverError at the end holds the records of all failures. (When the first statement of
/// the batch fails, Execute has thrown already: driver managers give no access to later results.)
[[nodiscard]] Result ReadResults(Statement& statement);

}  // namespace quorvel::ado::odbc
