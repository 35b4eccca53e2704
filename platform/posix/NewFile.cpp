#include "platform/posix/NewFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace quorvel {
namespace {

constexpr mode_t kWidestMode = S_IRUSR | S_IWUSR | S_IRGRP;
/// The names of open files, through which a file without a name gets one.
constexpr const char* kOpenFiles = "/proc/self/fd/";

std::filesystem::path TemporaryName(const std::filesystem::path& target) {
  return target.parent_path() / ("." + target.filename().string() + ".new");
}

}  // namespace

void DescriptorTraits::Close(int descriptor) { ::close(descriptor); }

NewFile::NewFile(std::filesystem::path target) : m_target(std::move(target)), m_temporary(TemporaryName(m_target)) {
  RemoveLeftover(m_target);
  if (::access(kOpenFiles, X_OK) == 0) {
    m_file.Reset(::open(m_target.parent_path().c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, kWidestMode));
  }
  if (m_file) return;
  m_file.Reset(::open(m_temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kWidestMode));
  m_isNamed = static_cast<bool>(m_file);
}

NewFile::~NewFile() {
  const int reason = errno;
  if (m_isNamed) ::unlink(m_temporary.c_str());
  errno = reason;
}

bool NewFile::HasLeftover(const std::filesystem::path& target) {
  struct stat status {};
  return ::lstat(TemporaryName(target).c_str(), &status) == 0;
}

void NewFile::RemoveLeftover(const std::filesystem::path& target) { ::unlink(TemporaryName(target).c_str()); }

bool NewFile::TakeAccess(const struct stat& replaced) {
  if (!m_file) return false;
  // Only a privileged writer can keep a foreign owner; the group is what readers depend on.
  if (::fchown(m_file.Get(), replaced.st_uid, replaced.st_gid) != 0 &&
      ::fchown(m_file.Get(), static_cast<uid_t>(-1), replaced.st_gid) != 0) {
    return false;
  }
  return ::fchmod(m_file.Get(), replaced.st_mode & kWidestMode) == 0;
}

bool NewFile::Fill(std::string_view content) {
  if (!m_file) return false;
  while (!content.empty()) {
    const auto count = ::write(m_file.Get(), content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  return ::fsync(m_file.Get()) == 0;
}

bool NewFile::Link(const std::filesystem::path& name) const {
  if (m_isNamed) return ::link(m_temporary.c_str(), name.c_str()) == 0;
  const std::string open = kOpenFiles + std::to_string(m_file.Get());
  return ::linkat(AT_FDCWD, open.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool NewFile::Create() { return Link(m_target); }

// No call of the system replaces a name by a file without one, so the file has the temporary name between two calls.
bool NewFile::Replace() {
  if (!m_isNamed) m_isNamed = Link(m_temporary);
  if (!m_isNamed || std::rename(m_temporary.c_str(), m_target.c_str()) != 0) return false;
  m_isNamed = false;
  return true;
}

}  // namespace quorvel
