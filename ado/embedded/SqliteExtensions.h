#pragma once

#include <sqlite3.h>

namespace quorvel::ado::embedded {

/// Gives a database connection what translated statements use: the functions tsql_..., and a NOCASE collation that
/// compares texts as a server does, without regard to trailing blanks and, in any script, to letter case. It has
/// the name of SQLite's own NOCASE (ASCII only), so other programs can still open the file.
void RegisterExtensions(sqlite3* database);

}  // namespace quorvel::ado::embedded
