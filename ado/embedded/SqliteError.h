#pragma once

#include <sqlite3.h>

namespace quorvel::ado::embedded {

/// Throws the database's last failure as the error that a SQL Server would give for it. `database` may be null when
/// there is no database yet.
[[noreturn]] void ThrowDriverError(sqlite3* database, int resultCode);

}  // namespace quorvel::ado::embedded
