#include "platform/OperatingSystem.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <syslog.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <vector>

#include "platform/Environment.h"
#include "platform/posix/FollowLinks.h"
#include "platform/posix/MakeFolders.h"

namespace quorvel::os {

std::optional<std::string> Variable(const char* name) {
  // A program that runs with another identity than its caller's must not obey the caller's variables.
  const char* value = ::secure_getenv(name);
  return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

std::string LogonName() {
  std::vector<char> buffer(1024);
  passwd entry{};
  passwd* found = nullptr;
  while (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) == ERANGE) {
    buffer.resize(buffer.size() * 2);
  }
  return found != nullptr ? found->pw_name : "";
}

/// The log's name for the process belongs to the host, so the source is part of the text.
void WriteWarning(std::string_view message) {
  std::string line(kApplicationName);
  line.append(": ").append(message);
  // An entry is one line; a daemon would show line breaks as octal codes.
  std::ranges::replace(line, '\n', ' ');
  ::syslog(LOG_USER | LOG_WARNING, "%s", line.c_str());
}

DateTime LocalNow() {
  const auto now = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
  const auto wholeSeconds = std::chrono::floor<std::chrono::seconds>(now);
  const std::time_t seconds = wholeSeconds.time_since_epoch().count();
  std::tm local{};
  ::localtime_r(&seconds, &local);
  const auto date = std::chrono::year(local.tm_year + 1900) / (local.tm_mon + 1) / local.tm_mday;
  return std::chrono::local_days(date) + std::chrono::hours(local.tm_hour) + std::chrono::minutes(local.tm_min) +
         std::chrono::seconds(local.tm_sec) + (now - wholeSeconds);
}

std::string Explain(const std::error_code& error) { return error.message(); }

bool IsOutOfSpace(const std::error_code& error) {
  return error.value() == ENOSPC || error.value() == EDQUOT || error.value() == EFBIG;
}

std::optional<FileIdentity> IdentityOf(const std::filesystem::path& file) {
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

std::error_code CreateSharedFolders(const std::filesystem::path& folder) {
  return MakeFolders(folder, S_IRWXU | S_IRWXG | S_IROTH | S_IXOTH);
}

std::error_code CreateSharedFile(const std::filesystem::path& file) {
  constexpr mode_t kMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP;
  // With O_EXCL the system follows no link. Without it this could open, and so unlock, a database that is in use.
  const int descriptor = ::open(FollowLinks(file).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode);
  if (descriptor < 0) return errno == EEXIST ? std::error_code() : std::error_code(errno, std::generic_category());
  ::close(descriptor);
  return {};
}

void TakeGroup(const std::filesystem::path& file, const std::filesystem::path& from) noexcept {
  struct stat own {};
  struct stat model {};
  if (::lstat(file.c_str(), &own) != 0 || ::stat(from.c_str(), &model) != 0) return;
  if (own.st_uid != ::geteuid() || own.st_gid == model.st_gid) return;
  // The system refuses a group that the user is not in.
  [[maybe_unused]] const int refused = ::lchown(file.c_str(), static_cast<uid_t>(-1), model.st_gid);
}

std::filesystem::path PathOf(std::string_view name) { return name; }

}  // namespace quorvel::os
