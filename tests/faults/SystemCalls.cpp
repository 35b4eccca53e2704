// Each function stands in the place of the C library's, also for SQLite, and passes the call on to the kernel unless it
// is to fail.

// With checks, the C library's headers define some of these functions themselves.
#undef _FORTIFY_SOURCE

#include "tests/faults/SystemCalls.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>

namespace {

using Fault = quorvel::test::FailingSystemCall::Fault;

std::atomic<bool> isArmed = false;
Fault armedFault = Fault::Once;
std::atomic<int> callsLeft = 0;
std::atomic<const char*> failedCall = nullptr;

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

int Open(const char* path, int flags, mode_t mode) {
  return static_cast<int>(Pass("open", (flags & O_CREAT) != 0, SYS_openat, AT_FDCWD, path, flags, mode));
}

mode_t ModeOf(int flags, std::va_list& rest) {
  const bool hasMode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
  return hasMode ? va_arg(rest, mode_t) : 0;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  std::va_list rest;
  va_start(rest, flags);
  const mode_t mode = ModeOf(flags, rest);
  va_end(rest);
  return Open(path, flags, mode);
}
int open64(const char* path, int flags, ...) {
  std::va_list rest;
  va_start(rest, flags);
  const mode_t mode = ModeOf(flags, rest);
  va_end(rest);
  return Open(path, flags, mode);
}
ssize_t read(int file, void* buffer, size_t size) { return Pass("read", false, SYS_read, file, buffer, size); }
ssize_t pread(int file, void* buffer, size_t size, off_t at) {
  return Pass("pread", false, SYS_pread64, file, buffer, size, at);
}
ssize_t pread64(int file, void* buffer, size_t size, off64_t at) { return pread(file, buffer, size, at); }
ssize_t write(int file, const void* buffer, size_t size) { return Pass("write", true, SYS_write, file, buffer, size); }
ssize_t pwrite(int file, const void* buffer, size_t size, off_t at) {
  return Pass("pwrite", true, SYS_pwrite64, file, buffer, size, at);
}
ssize_t pwrite64(int file, const void* buffer, size_t size, off64_t at) { return pwrite(file, buffer, size, at); }
int ftruncate(int file, off_t size) noexcept {
  return static_cast<int>(Pass("ftruncate", true, SYS_ftruncate, file, size));
}
int ftruncate64(int file, off64_t size) noexcept { return ftruncate(file, size); }
int fsync(int file) { return static_cast<int>(Pass("fsync", true, SYS_fsync, file)); }
int fdatasync(int file) { return static_cast<int>(Pass("fdatasync", true, SYS_fdatasync, file)); }
int rename(const char* from, const char* to) noexcept {
  return static_cast<int>(Pass("rename", true, SYS_rename, from, to));
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
  return static_cast<int>(Pass("linkat", true, SYS_linkat, fromFolder, from, toFolder, to, flags));
}
int unlink(const char* path) noexcept { return static_cast<int>(Pass("unlink", false, SYS_unlink, path)); }

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

}  // namespace quorvel::test
