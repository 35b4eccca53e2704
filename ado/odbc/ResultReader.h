#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "ado/engine/Session.h"
#include "ado/odbc/Statement.h"

namespace quorvel::ado::odbc {

/// Reads the open result set of a statement to its end. DriverError when a row cannot be read: a part of a result is
/// never returned as the whole.
[[nodiscard]] RowSet ReadRows(Statement& statement);

/// The one column of a result set that ends the results of a call, where a statement holds several.
inline constexpr std::string_view kEndOfCall = "QuorvelEndOfCall";

/// Reads the results of a statement that holds `count` calls with a result set of the column kEndOfCall between each
/// two. Returns the outcomes of the first calls: of fewer after a failure behind which nothing came, and where the
/// driver has carried out only a part of the statement.
[[nodiscard]] std::vector<Outcome> ReadOutcomes(Statement& statement, std::size_t count);

/// Reads all results of an executed statement: keeps the first result set and skips the others and the row counts. A
/// failure does not stop it: the DriverError at the end holds the records of all failures. (When the first statement of
/// the batch fails, Execute has thrown already: driver managers give no access to later results.)
[[nodiscard]] Result ReadResults(Statement& statement);

}  // namespace quorvel::ado::odbc
