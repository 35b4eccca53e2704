#include "host/cli/FileAccess.h"

#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>

#include <fmt/format.h>

namespace quorvel::cli {

std::string ReadersOf(const std::string& file) {
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0) return {};
  if ((status.st_mode & S_IROTH) != 0) return "every user";
  // The command line has one thread.
  const passwd* user = ::getpwuid(status.st_uid);    // NOLINT(concurrency-mt-unsafe)
  const group* members = ::getgrgid(status.st_gid);  // NOLINT(concurrency-mt-unsafe)
  std::string readers = fmt::format("user {}", user != nullptr ? user->pw_name : std::to_string(status.st_uid));
  if ((status.st_mode & S_IRGRP) != 0) {
    readers += fmt::format(" and group {}", members != nullptr ? members->gr_name : std::to_string(status.st_gid));
  }
  return readers;
}

std::string WhichMayRead(const std::string& file) {
  const std::string readers = ReadersOf(file);
  return readers.empty() ? readers : fmt::format(", which {} may read", readers);
}

}  // namespace quorvel::cli
