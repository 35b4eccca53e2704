#pragma once

#include "ado/embedded/Program.h"
#include "ado/embedded/Sqlite.h"

namespace quorvel::ado::embedded {

/// Throws DriverError 42S22 with the line of the first statement that names a column which its table does not have. As
/// on a server, a statement on a table that does not exist yet is left until it runs.
void RequireColumns(Program& program, sqlite3* database);

}  // namespace quorvel::ado::embedded
