#pragma once

#include <sqlite3.h>

namespace quorvel::ado::embedded {

/// Keeps inside the file what its own views, triggers and rules do, and what a batch can name: other software may have
/// put anything into a file, and nothing in it may reach another file or a setting of the connection. The translators
/// have no statement for either; this holds also where a table's name, or SQLite itself, leads there.
void Restrict(sqlite3* database) noexcept;

}  // namespace quorvel::ado::embedded
