#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace quorvel::test {

/// Lets calls of the system for files (open, read, write, truncate, sync, rename, link, unlink, lock and map) fail in
/// this program, its libraries included, as long as the object lives. One at a time.
class FailingSystemCall {
 public:
  enum class Fault {
    Once,     ///< one call fails as on a broken disk
    DiskFull  ///< it and all later ones that need space fail
  };
  /// The call with that number fails, counted from 1; of a full disk only those that need space count.
  FailingSystemCall(Fault fault, int number);
  ~FailingSystemCall() { Disarm(); }
  FailingSystemCall(const FailingSystemCall&) = delete;
  FailingSystemCall& operator=(const FailingSystemCall&) = delete;

  /// No call fails any more.
  static void Disarm();
  /// The first call that failed; empty when none did.
  [[nodiscard]] static std::string Failed();
};

/// The environment variable that lets the call with that number fail, once, in a program with LD_PRELOAD of the library
/// of these calls. Its last line of errors is then this name, how many calls were left, and the call that failed.
constexpr const char* kFailingCall = "QUORVEL_TEST_FAILING_CALL";

/// A call that has opened or changed a file.
struct FileChange {
  enum class Kind { Open, Write, Truncate, Sync, Name, Unlink };
  Kind kind;
  int file;                 ///< descriptor; -1 for Name and Unlink
  std::string path{};       ///< of Open; of Name the new one, of Unlink the removed one
  std::string_view data{};  ///< of Write
  off_t at = 0;             ///< of Write; of Truncate the new size
};

/// From now on `given` is called after each such change of this program; null ends that.
void ObserveFileChanges(void (*given)(const FileChange& change));

}  // namespace quorvel::test
