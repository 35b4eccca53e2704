// A file is replaced as a whole by a new one, under a lock that keeps other writers out. Readers need no lock: the name
// leads to the old file or the new one. Programs that know no lock (cp, an editor) write into the file itself, so a
// content that looks unfinished is read again, and a file that changed since it was read is not replaced.

#include "platform/FileUpdate.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <thread>
#include <utility>

#include "platform/posix/FollowLinks.h"
#include "platform/posix/MakeFolders.h"
#include "platform/posix/NewFile.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr mode_t kFolderMode = 0755;
constexpr std::chrono::milliseconds kPause{20};
/// The time that a content stays the same before it counts as settled.
constexpr std::chrono::milliseconds kSettling{200};
/// The same for an empty file: a program that writes a file begins by emptying it.
constexpr std::chrono::milliseconds kSettlingEmpty{1000};
constexpr std::chrono::seconds kLongestWait{5};

std::error_code LastError() { return {errno, std::generic_category()}; }

struct Reading {
  bool exists = false;
  struct stat status {};
  std::string content;
};

/// Reads the file; a missing file is no error. False after a failure, and errno then says why.
bool Read(const fs::path& file, Reading& reading) {
  // Not blocking: a pipe under that name is then an error and not an endless wait.
  const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!descriptor) return errno == ENOENT;
  reading.exists = true;
  if (::fstat(descriptor.Get(), &reading.status) != 0) return false;
  if (!S_ISREG(reading.status.st_mode)) {
    errno = EINVAL;
    return false;
  }
  std::array<char, 4096> buffer{};
  while (true) {
    const auto count = ::read(descriptor.Get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count == 0;
    reading.content.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

/// Finds out whether a file stays the same from one look to the next.
class Settling {
 public:
  [[nodiscard]] bool Look(const Reading& reading) {
    if (!m_seen || m_seen->exists != reading.exists || m_seen->content != reading.content) {
      m_seen = reading;
      m_since = Clock::now();
    }
    return Clock::now() - m_since >= (reading.content.empty() ? kSettlingEmpty : kSettling);
  }

 private:
  std::optional<Reading> m_seen;
  Clock::time_point m_since;
};

/// Whether the file is on another machine. The kernel then answers for that machine, and refuses leases mostly.
bool IsRemote(const Descriptor& descriptor) {
  struct statfs system {};
  if (::fstatfs(descriptor.Get(), &system) != 0) return true;
  const auto type = static_cast<std::uint32_t>(system.f_type);
  return type == NFS_SUPER_MAGIC || type == SMB_SUPER_MAGIC || type == CIFS_SUPER_MAGIC || type == SMB2_SUPER_MAGIC;
}

/// Whether a program of this machine has the file open for writing. It may have stopped for any time in the middle of a
/// line. The kernel gives a lease for reading only while no program has the file open for writing, and only to the
/// file's owner. The answer is false for other users and for a file on another machine.
bool IsOpenForWriting(const fs::path& file) {
  const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!descriptor || IsRemote(descriptor)) return false;
  // A program that opens the file meanwhile makes the kernel send this signal, which programs ignore by default, and
  // waits for the end of the lease.
  ::fcntl(descriptor.Get(), F_SETSIG, SIGURG);
  if (::fcntl(descriptor.Get(), F_SETLEASE, F_RDLCK) != 0) return errno == EAGAIN;
  ::fcntl(descriptor.Get(), F_SETLEASE, F_UNLCK);
  return false;
}

bool IsSameFile(const struct stat& left, const struct stat& right) {
  return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

bool IsUnchanged(const fs::path& file, const struct stat& before) {
  struct stat now {};
  return ::stat(file.c_str(), &now) == 0 && IsSameFile(now, before) && now.st_size == before.st_size &&
         now.st_mtim.tv_sec == before.st_mtim.tv_sec && now.st_mtim.tv_nsec == before.st_mtim.tv_nsec;
}

/// Opens what writers lock: the file, which only its owner and group can open and so lock, or the folder while there
/// is no file.
Descriptor OpenForLock(const fs::path& file) {
  Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!descriptor && errno == ENOENT) {
    descriptor.Reset(::open(file.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  }
  return descriptor;
}

/// Whether `locked` is still what OpenForLock opens: another writer may have replaced the file.
bool IsStillTheLock(const fs::path& file, const Descriptor& locked) {
  struct stat now {};
  struct stat held {};
  if (::fstat(locked.Get(), &held) != 0) return false;
  if (::stat(file.c_str(), &now) != 0) return errno == ENOENT && S_ISDIR(held.st_mode);
  return IsSameFile(now, held);
}

/// An invalid descriptor after a failure, and errno then says why; EWOULDBLOCK when another writer has the lock.
Descriptor TryLock(const fs::path& file) {
  Descriptor descriptor = OpenForLock(file);
  if (!descriptor || ::flock(descriptor.Get(), LOCK_EX | LOCK_NB) != 0) return {};
  if (IsStillTheLock(file, descriptor)) return descriptor;
  errno = EWOULDBLOCK;
  return {};
}

/// Waits for the lock; EBUSY at the deadline.
Descriptor Lock(const fs::path& file, Clock::time_point deadline) {
  do {
    Descriptor locked = TryLock(file);
    if (locked || (errno != EWOULDBLOCK && errno != EINTR)) return locked;
    std::this_thread::sleep_for(kPause);
  } while (Clock::now() < deadline);
  errno = EBUSY;
  return {};
}

/// A writer that was killed may have left a copy. Without waiting, because the lock may be that of a writer at work.
void RemoveLeftover(const fs::path& target) {
  if (!NewFile::HasLeftover(target)) return;
  if (const Descriptor lock = TryLock(target)) NewFile::RemoveLeftover(target);
}

/// Writes the new content in place of what was read; the caller holds the lock. An error of EAGAIN means that the file
/// is no longer what was read.
std::error_code Write(const fs::path& target, const Reading& before, std::string_view content) {
  constexpr auto kReadAgain = std::errc::resource_unavailable_try_again;
  NewFile file(target);
  if ((before.exists && !file.TakeAccess(before.status)) || !file.Fill(content)) return LastError();
  if (before.exists) {
    if (!IsUnchanged(target, before.status)) return std::make_error_code(kReadAgain);
    if (!file.Replace()) return LastError();
  } else if (!file.Create()) {
    return errno == EEXIST ? std::make_error_code(kReadAgain) : LastError();
  }
  const Descriptor folder(::open(target.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder) ::fsync(folder.Get());
  return {};
}

/// One look at the file, under the lock. EAGAIN when another look is needed.
std::error_code Attempt(const fs::path& target, const ContentChange& change, Settling& settling,
                        Clock::time_point deadline) {
  const Descriptor lock = Lock(target, deadline);
  Reading before;
  if (!lock || !Read(target, before)) return LastError();
  const bool settled = settling.Look(before) && !IsOpenForWriting(target);
  const bool isUnfinished = before.exists && before.content.empty() && !settled;
  const auto after = isUnfinished ? std::nullopt : change(before.content, settled);
  if (!after) {
    return std::make_error_code(settled ? std::errc::operation_canceled : std::errc::resource_unavailable_try_again);
  }
  return *after == before.content ? std::error_code() : Write(target, before, *after);
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::filesystem::path& file) {
  RemoveLeftover(FollowLinks(file));
  Reading reading;
  return Read(file, reading) ? std::optional(std::move(reading.content)) : std::nullopt;
}

std::error_code UpdateFile(const std::filesystem::path& file, const ContentChange& change) {
  // A link is followed, so that the new file does not replace it.
  const fs::path target = FollowLinks(file);
  if (const auto failure = MakeFolders(target.parent_path(), kFolderMode)) return failure;
  Settling settling;
  const auto deadline = Clock::now() + kLongestWait;
  while (true) {
    const std::error_code result = Attempt(target, change, settling, deadline);
    if (result != std::errc::resource_unavailable_try_again) return result;
    if (Clock::now() >= deadline) return std::make_error_code(std::errc::device_or_resource_busy);
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace quorvel
