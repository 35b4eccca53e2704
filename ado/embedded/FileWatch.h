#pragma once

#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <vector>

#include "platform/OperatingSystem.h"

namespace quorvel::ado::embedded {

/// Watches that the files at a database's path stay those that are open: the database itself, also when the path is a
/// link that is pointed to another file, its log (-wal) and the index of that (-shm). A deleted or replaced file takes
/// its content with it when it is closed. Windows lets no program remove an open file.
///
/// Looks before each commit, when the commit has the file's lock, and rolls it back when a file was deleted or
/// replaced. Each Require throws DriverError 08S01, a lost connection, for such a file.
class FileWatch {
 public:
  /// `path` is the path by which the database was opened. The watch must outlive the open database.
  FileWatch(sqlite3* database, const std::filesystem::path& path);
  FileWatch(const FileWatch&) = delete;
  FileWatch& operator=(const FileWatch&) = delete;

  /// Once, after the first access to the database: its files are still those that it has opened.
  void RequireOpened();
  /// For the beginning of a batch or call. Believes a look that is younger than a tenth of a second, because a look
  /// takes a good part of a small query. What is read meanwhile stood in the file when it was replaced.
  void Require();
  /// For the end of a batch or call. Looks again when it has committed: writing to the disk takes a while.
  void RequireAfterCommit();
  /// Looks; false when a file was deleted or replaced.
  [[nodiscard]] bool IsInPlace() noexcept;
  /// Throws as Require does when the last look has found that. For a batch or call that has failed: the watch rolls
  /// back a commit, and ends a wait, without a word to SQLite.
  void RequireWasInPlace() const;

 private:
  struct File {
    std::filesystem::path path;
    std::optional<os::FileIdentity> seen;
  };

  void RequireNow();
  [[noreturn]] void ThrowMoved() const;

  sqlite3* m_database;
  std::vector<File> m_files;
  const File* m_moved = nullptr;  ///< the first that the last look did not find in place
  bool m_hasCommitted = false;    ///< since the last look of RequireAfterCommit
  std::chrono::steady_clock::time_point m_validUntil;
};

}  // namespace quorvel::ado::embedded
