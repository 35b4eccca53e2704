#include "ado/embedded/FileInPlace.h"

#include <fmt/format.h>

#include "ado/engine/DriverError.h"

namespace quorvel::ado::embedded {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kValidForReads{100};

}  // namespace

void RequireFileInPlace(sqlite3* database) {
  int hasMoved = 0;
  // A file system that cannot tell leaves the answer alone.
  sqlite3_file_control(database, "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
  if (hasMoved == 0) return;
  throw DriverError("08S01", 0,
                    fmt::format("The database file {} was deleted or replaced while it was in use, so nothing more is "
                                "read from it or written to it. The next use opens the file that is there then.",
                                sqlite3_db_filename(database, "main")));
}

void FileWatch::RequireForWrite() {
  RequireFileInPlace(m_database);
  m_validUntil = Clock::now() + kValidForReads;
}

void FileWatch::RequireForRead() {
  if (Clock::now() >= m_validUntil) RequireForWrite();
}

}  // namespace quorvel::ado::embedded
