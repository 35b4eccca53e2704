// A file is replaced by writing a temporary file beside it, fsync and rename, while a lock on the folder keeps other
// writers out. Readers need no lock: the name leads to the old file or the new one.

#include "platform/FileUpdate.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <string_view>
#include <system_error>

#include "platform/UniqueHandle.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kWidestMode = S_IRUSR | S_IWUSR | S_IRGRP;
constexpr mode_t kFolderMode = 0755;

struct DescriptorTraits {
  using Type = int;
  static constexpr int Invalid() { return -1; }
  static void Close(int descriptor) { ::close(descriptor); }
};
using Descriptor = UniqueHandle<DescriptorTraits>;

bool WriteAll(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const auto count = ::write(descriptor, content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

/// Gives a new file the owner, group and mode of the one that it will replace.
bool CopyAccess(const fs::path& from, int descriptor) {
  struct stat before {};
  if (::stat(from.c_str(), &before) != 0) return errno == ENOENT && ::fchmod(descriptor, kWidestMode) == 0;
  // Only a privileged writer can keep a foreign owner; the group is what readers depend on.
  if (::fchown(descriptor, before.st_uid, before.st_gid) != 0 &&
      ::fchown(descriptor, static_cast<uid_t>(-1), before.st_gid) != 0) {
    return false;
  }
  return ::fchmod(descriptor, before.st_mode & kWidestMode) == 0;
}

bool WriteNew(const fs::path& temporary, const fs::path& replaced, std::string_view content) {
  const Descriptor file(
      ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
  return file && WriteAll(file.Get(), content) && CopyAccess(replaced, file.Get()) && ::fsync(file.Get()) == 0;
}

/// Replaces `file` with a new one. The caller holds the folder's lock, so one temporary name is enough; a file that a
/// killed process left under it is deleted first.
bool Replace(const fs::path& file, const Descriptor& folder, std::string_view content) {
  const fs::path temporary = file.parent_path() / ("." + file.filename().string() + ".new");
  ::unlink(temporary.c_str());
  if (!WriteNew(temporary, file, content) || std::rename(temporary.c_str(), file.c_str()) != 0) {
    ::unlink(temporary.c_str());
    return false;
  }
  ::fsync(folder.Get());
  return true;
}

/// The file that a path names. A symbolic link is followed, so that the new file does not replace the link.
fs::path Resolve(const fs::path& path) {
  std::error_code failure;
  fs::path absolute = fs::absolute(path, failure);
  fs::path resolved = fs::weakly_canonical(path, failure);
  return failure ? absolute : resolved;
}

bool MakeFolders(const fs::path& folder) {
  std::error_code failure;
  if (folder == folder.parent_path() || fs::is_directory(folder, failure)) return true;
  return MakeFolders(folder.parent_path()) && (::mkdir(folder.c_str(), kFolderMode) == 0 || errno == EEXIST);
}

Descriptor LockFolder(const fs::path& folder) {
  Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor) return descriptor;
  while (::flock(descriptor.Get(), LOCK_EX) != 0) {
    if (errno != EINTR) return {};
  }
  return descriptor;
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::filesystem::path& file) {
  // Not blocking: a pipe under that name is then an error and not an endless wait.
  const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!descriptor) return errno == ENOENT ? std::optional(std::string()) : std::nullopt;
  struct stat status {};
  if (::fstat(descriptor.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  std::string content;
  std::array<char, 4096> buffer{};
  while (true) {
    const auto count = ::read(descriptor.Get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) return content;
    content.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

bool UpdateFile(const std::filesystem::path& file, const ContentChange& change) {
  const fs::path target = Resolve(file);
  if (!MakeFolders(target.parent_path())) return false;
  const Descriptor folder = LockFolder(target.parent_path());
  if (!folder) return false;
  const auto before = ReadWholeFile(target);
  if (!before) return false;
  const auto after = change(*before);
  if (!after) return false;
  return *after == *before || Replace(target, folder, *after);
}

}  // namespace quorvel
