#include "ado/embedded/FileInPlace.h"

#include <fmt/format.h>

#include <string>

#include "ado/engine/DriverError.h"

namespace quorvel::ado::embedded {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kValidForReads{100};
constexpr std::array kBeside = {"-wal", "-shm"};

[[noreturn]] void ThrowMoved(const std::string& file) {
  throw DriverError("08S01", 0,
                    fmt::format("The database file {} was deleted or replaced while it was in use, so nothing more is "
                                "read from it or written to it. The next use opens the file that is there then.",
                                file));
}

}  // namespace

void FileWatch::RequireDatabase() const {
  int hasMoved = 0;
  // A file system that cannot tell leaves the answer alone.
  sqlite3_file_control(m_database, "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
  if (hasMoved != 0) ThrowMoved(sqlite3_db_filename(m_database, "main"));
}

// SQLite answers for the database file only. It keeps the two others open from the first access to the last, so they
// are still those that were seen first.
void FileWatch::RequireFilesBeside() {
  const std::string database = sqlite3_db_filename(m_database, "main");
  for (std::size_t i = 0; i < kBeside.size(); ++i) {
    const std::string file = database + kBeside.at(i);
    const auto identity = os::IdentityOf(os::PathOf(file));
    if (m_beside.at(i) && identity != m_beside.at(i)) ThrowMoved(file);
    m_beside.at(i) = identity;
  }
}

void FileWatch::RequireForWrite() {
  m_validUntil = {};
  RequireDatabase();
  RequireFilesBeside();
  m_validUntil = Clock::now() + kValidForReads;
}

void FileWatch::RequireForRead() {
  if (Clock::now() >= m_validUntil) RequireForWrite();
}

}  // namespace quorvel::ado::embedded
