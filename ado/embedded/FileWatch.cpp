#include "ado/embedded/FileWatch.h"

#include <fmt/format.h>

#include <string>
#include <system_error>
#include <utility>

#include "ado/engine/DriverError.h"

namespace quorvel::ado::embedded {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kValid{100};

/// A host may change its current folder.
std::filesystem::path Absolute(const std::filesystem::path& path) {
  std::error_code failure;
  std::filesystem::path absolute = std::filesystem::absolute(path, failure);
  return failure ? path : absolute;
}

}  // namespace

// A link may lead to another file since the database was opened.
FileWatch::FileWatch(sqlite3* database, const std::filesystem::path& path) : m_database(database) {
  const std::filesystem::path resolved = os::PathOf(sqlite3_db_filename(database, "main"));
  const auto identity = os::IdentityOf(resolved);
  m_files.push_back({resolved, identity});
  if (Absolute(path).lexically_normal() != resolved) m_files.push_back({Absolute(path), identity});
  const auto beforeCommit = [](void* self) {
    auto* const watch = static_cast<FileWatch*>(self);
    watch->m_hasCommitted = true;
    return watch->IsInPlace() ? 0 : 1;
  };
  sqlite3_commit_hook(database, beforeCommit, this);
}

// SQLite answers for the file that it has opened, and so shows that this is the one that the constructor has seen. The
// log and its index stand beside the file to which a link leads. Another program may delete them as long as SQLite has
// not opened them.
void FileWatch::RequireOpened() {
  int hasMoved = 0;
  // A file system that cannot tell leaves the answer alone.
  sqlite3_file_control(m_database, "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
  if (hasMoved != 0) {
    m_moved = &m_files[0];
    ThrowMoved();
  }
  const std::string resolved = sqlite3_db_filename(m_database, "main");
  for (const char* suffix : {"-wal", "-shm"}) m_files.push_back({os::PathOf(resolved + suffix), {}});
  RequireNow();
}

void FileWatch::Require() {
  if (Clock::now() >= m_validUntil) RequireNow();
}

void FileWatch::RequireAfterCommit() {
  if (std::exchange(m_hasCommitted, false)) RequireNow();
}

void FileWatch::RequireWasInPlace() const {
  if (m_moved != nullptr) ThrowMoved();
}

void FileWatch::RequireNow() {
  if (!IsInPlace()) ThrowMoved();
}

// SQLite keeps the log and the index open from the first access to the last, so they are still those that were seen
// first.
bool FileWatch::IsInPlace() noexcept {
  m_validUntil = {};
  m_moved = nullptr;
  for (File& file : m_files) {
    const auto identity = os::IdentityOf(file.path);
    if (file.seen && identity != file.seen) {
      m_moved = &file;
      return false;
    }
    file.seen = identity;
  }
  m_validUntil = Clock::now() + kValid;
  return true;
}

void FileWatch::ThrowMoved() const {
  throw DriverError("08S01", 0,
                    fmt::format("The database file {} was deleted or replaced while it was in use, so nothing more is "
                                "read from it or written to it. The next use opens the file that is there then.",
                                m_moved->path.string()));
}

}  // namespace quorvel::ado::embedded
