#pragma once

#include "ado/engine/Session.h"
#include "ado/odbc/Statement.h"

namespace quorvel::ado::odbc {

/// Reads the open result set of a statement to its end. DriverError when a row cannot be had: a part of a result is
/// never given for the whole.
[[nodiscard]] RowSet ReadRows(Statement& statement);

/// Goes through everything that an executed statement gave, up to the end: keeps the first result set, passes over
/// the others and over row counts. A failure on the way does not end it: the DriverError at the end holds the records
/// of all. (Where the very first statement failed there is nothing to go through: Execute has thrown already, and a
/// driver manager lets nobody ask for what came behind.)
[[nodiscard]] Result ReadResults(Statement& statement);

}  // namespace quorvel::ado::odbc
