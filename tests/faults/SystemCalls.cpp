// Each function stands in the place of the C library's, also for SQLite, and passes the call on to the kernel unless it
// is to fail. Another program gets them by LD_PRELOAD, and the environment says which call fails there.

// With checks, the C library's headers define some of these functions themselves.
#undef _FORTIFY_SOURCE

#include "tests/faults/SystemCalls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace {

using Fault = quorvel::test::FailingSystemCall::Fault;
using quorvel::test::FileChange;

std::atomic<bool> isArmed = false;
Fault armedFault = Fault::Once;
std::atomic<int> callsLeft = 0;
std::atomic<const char*> failedCall = nullptr;
void (*observer)(const FileChange& change) = nullptr;

/// Whether the call fails; errno then says why.
bool Fails(const char* name, bool needsSpace) {
  const bool isFull = armedFault == Fault::DiskFull;
  if (!isArmed || (isFull && !needsSpace)) return false;
  const int left = --callsLeft;
  if (left > 0 || (left < 0 && !isFull)) return false;
  const char* none = nullptr;
  failedCall.compare_exchange_strong(none, name);
  errno = isFull ? ENOSPC : EIO;
  return true;
}

/// The kernel's answer, unless the call fails.
template <typename... Arguments>
long Pass(const char* name, bool needsSpace, long number, Arguments... arguments) {
  return Fails(name, needsSpace) ? -1 : ::syscall(number, arguments...);
}

/// Tells the observer of a change that was made.
long Tell(long result, const FileChange& change) {
  if (result < 0 || observer == nullptr) return result;
  const int reason = errno;
  observer(change);
  errno = reason;
  return result;
}

int Open(const char* path, int flags, mode_t mode) {
  const long file = Pass("open", (flags & O_CREAT) != 0, SYS_openat, AT_FDCWD, path, flags, mode);
  return static_cast<int>(Tell(file, {FileChange::Kind::Open, static_cast<int>(file), path}));
}

ssize_t Write(const char* name, long number, int file, const void* buffer, size_t size, off_t at) {
  const long written = Pass(name, true, number, file, buffer, size, at);
  const auto count = static_cast<size_t>(written < 0 ? 0 : written);
  return Tell(written, {FileChange::Kind::Write, file, "", {static_cast<const char*>(buffer), count}, at});
}

int Sync(const char* name, long number, int file) {
  return static_cast<int>(Tell(Pass(name, true, number, file), {FileChange::Kind::Sync, file}));
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  std::va_list rest;
  va_start(rest, flags);
  const bool hasMode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_start does that, but the analyzer does not see it.
  const mode_t mode = hasMode ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return Open(path, flags, mode);
}
int open64(const char* path, int flags, ...) __attribute__((alias("open")));
ssize_t read(int file, void* buffer, size_t size) { return Pass("read", false, SYS_read, file, buffer, size); }
ssize_t pread(int file, void* buffer, size_t size, off_t at) {
  return Pass("pread", false, SYS_pread64, file, buffer, size, at);
}
ssize_t pread64(int file, void* buffer, size_t size, off64_t at) { return pread(file, buffer, size, at); }
ssize_t write(int file, const void* buffer, size_t size) {
  return Write("write", SYS_write, file, buffer, size, observer != nullptr ? ::lseek(file, 0, SEEK_CUR) : 0);
}
ssize_t pwrite(int file, const void* buffer, size_t size, off_t at) {
  return Write("pwrite", SYS_pwrite64, file, buffer, size, at);
}
ssize_t pwrite64(int file, const void* buffer, size_t size, off64_t at) { return pwrite(file, buffer, size, at); }
int ftruncate(int file, off_t size) noexcept {
  return static_cast<int>(
      Tell(Pass("ftruncate", true, SYS_ftruncate, file, size), {FileChange::Kind::Truncate, file, "", {}, size}));
}
int ftruncate64(int file, off64_t size) noexcept { return ftruncate(file, size); }
int fsync(int file) { return Sync("fsync", SYS_fsync, file); }
int fdatasync(int file) { return Sync("fdatasync", SYS_fdatasync, file); }
int rename(const char* from, const char* to) noexcept {
  const long result = Tell(Pass("rename", true, SYS_rename, from, to), {FileChange::Kind::Name, -1, to});
  return static_cast<int>(Tell(result, {FileChange::Kind::Unlink, -1, from}));
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
  return static_cast<int>(
      Tell(Pass("linkat", true, SYS_linkat, fromFolder, from, toFolder, to, flags), {FileChange::Kind::Name, -1, to}));
}
int unlink(const char* path) noexcept {
  return static_cast<int>(Tell(Pass("unlink", false, SYS_unlink, path), {FileChange::Kind::Unlink, -1, path}));
}
// Nothing but a lock fails: the kernel refuses no unlock.
int fcntl(int file, int command, ...) {
  std::va_list rest;
  va_start(rest, command);
  void* const argument = va_arg(rest, void*);
  va_end(rest);
  const bool isLock = command == F_SETLK || command == F_SETLKW;
  if (isLock && static_cast<struct flock*>(argument)->l_type != F_UNLCK && Fails("fcntl", false)) return -1;
  return static_cast<int>(::syscall(SYS_fcntl, file, command, argument));
}
int fcntl64(int file, int command, ...) __attribute__((alias("fcntl")));
int flock(int file, int operation) noexcept {
  return (operation & LOCK_UN) == 0 && Fails("flock", false) ? -1
                                                             : static_cast<int>(::syscall(SYS_flock, file, operation));
}
void* mmap(void* at, size_t size, int access, int flags, int file, off_t offset) noexcept {
  if (file >= 0 && Fails("mmap", false)) return MAP_FAILED;
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel's answer is an address.
  return reinterpret_cast<void*>(::syscall(SYS_mmap, at, size, access, flags, file, offset));
}
void* mmap64(void* at, size_t size, int access, int flags, int file, off64_t offset) noexcept {
  return mmap(at, size, access, flags, file, offset);
}

}  // extern "C"

namespace quorvel::test {

FailingSystemCall::FailingSystemCall(Fault fault, int number) {
  armedFault = fault;
  callsLeft = number;
  failedCall = nullptr;
  isArmed = true;
}

void FailingSystemCall::Disarm() { isArmed = false; }

std::string FailingSystemCall::Failed() {
  const char* name = failedCall;
  return name != nullptr ? name : "";
}

void ObserveFileChanges(void (*given)(const FileChange& change)) { observer = given; }

namespace {

/// In a program that has got this library by LD_PRELOAD.
const struct FailingProgram {
  FailingProgram() {
    const char* const number = std::getenv(kFailingCall);
    if (number == nullptr) return;
    callsLeft = std::atoi(number);  // NOLINT(cert-err34-c): a test has written it
    isArmed = true;
  }
  ~FailingProgram() {
    if (!isArmed) return;
    isArmed = false;
    const char* const name = failedCall;
    std::fprintf(stderr, "%s %d %s\n", kFailingCall, callsLeft.load(), name != nullptr ? name : "none");
  }
} failingProgram;

}  // namespace
}  // namespace quorvel::test
