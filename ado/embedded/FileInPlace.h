#pragma once

#include <sqlite3.h>

namespace quorvel::ado::embedded {

/// Throws DriverError 08S01, a lost connection, when the file at the database's path is no longer the one that is open:
/// a deleted or replaced file takes its content with it when it is closed. Windows lets no program remove an open
/// file.
void RequireFileInPlace(sqlite3* database);

}  // namespace quorvel::ado::embedded
