#include "ado/embedded/FileWatch.h"

#include <fmt/format.h>

#include <string>
#include <system_error>

#include "ado/engine/DriverError.h"

namespace quorvel::ado::embedded {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kValidForReads{100};

/// A host may change its current folder.
std::filesystem::path Absolute(const std::filesystem::path& path) {
  std::error_code failure;
  std::filesystem::path absolute = std::filesystem::absolute(path, failure);
  return failure ? path : absolute;
}

[[noreturn]] void ThrowMoved(const std::string& file) {
  throw DriverError("08S01", 0,
                    fmt::format("The database file {} was deleted or replaced while it was in use, so nothing more is "
                                "read from it or written to it. The next use opens the file that is there then.",
                                file));
}

}  // namespace

// The log and its index stand beside the file to which a link leads.
FileWatch::FileWatch(sqlite3* database, const std::filesystem::path& path) : m_database(database) {
  const std::string resolved = sqlite3_db_filename(database, "main");
  // A link may lead to another file since the database was opened.
  m_files[0].seen = os::IdentityOf(os::PathOf(resolved));
  m_files[0].path = Absolute(path);
  m_files[1].path = os::PathOf(resolved + "-wal");
  m_files[2].path = os::PathOf(resolved + "-shm");
}

// SQLite answers for the file that it has opened. It keeps the log and the index open from the first access to the
// last, so they are still those that were seen first.
void FileWatch::RequireForWrite() {
  m_validUntil = {};
  int hasMoved = 0;
  // A file system that cannot tell leaves the answer alone.
  sqlite3_file_control(m_database, "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
  if (hasMoved != 0) ThrowMoved(sqlite3_db_filename(m_database, "main"));
  for (File& file : m_files) {
    const auto identity = os::IdentityOf(file.path);
    if (file.seen && identity != file.seen) ThrowMoved(file.path.string());
    file.seen = identity;
  }
  m_validUntil = Clock::now() + kValidForReads;
}

void FileWatch::RequireForRead() {
  if (Clock::now() >= m_validUntil) RequireForWrite();
}

}  // namespace quorvel::ado::embedded
