#pragma once

#include <sqlite3.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <optional>

#include "platform/OperatingSystem.h"

namespace quorvel::ado::embedded {

/// Watches that the files at a database's path stay those that are open: the database itself, also when the path is a
/// link that is pointed to another file, its log (-wal) and the index of that (-shm). A deleted or replaced file takes
/// its content with it when it is closed. Windows lets no program remove an open file.
///
/// Each function throws DriverError 08S01, a lost connection, when a file was deleted or replaced.
class FileWatch {
 public:
  /// `path` is the path by which the database was opened.
  FileWatch(sqlite3* database, const std::filesystem::path& path);

  /// Asks the system; every write needs it.
  void RequireForWrite();
  /// Asks unless the last answer is younger than a tenth of a second, because asking takes a good part of a small
  /// query. What is read meanwhile stood in the file when it was replaced.
  void RequireForRead();

 private:
  struct File {
    std::filesystem::path path;
    std::optional<os::FileIdentity> seen;
  };

  sqlite3* m_database;
  std::array<File, 3> m_files;
  std::chrono::steady_clock::time_point m_validUntil;
};

}  // namespace quorvel::ado::embedded
