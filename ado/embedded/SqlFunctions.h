#pragma once

#include "ado/embedded/Sqlite.h"

namespace quorvel::ado::embedded {

/// Gives a database connection what translated statements rely on: the functions tsql_..., and a NOCASE collation
/// that compares texts as a server does, without regard to letter case in any script and to trailing blanks. It
/// takes the place of SQLite's own, which knows ASCII only, so that other programs can still open the file.
void RegisterFunctions(sqlite3* database);

/// The table that keeps the procedures' definitions inside the database file.
inline constexpr const char* kProcedureTable = "quorvel_procedure";

}  // namespace quorvel::ado::embedded
