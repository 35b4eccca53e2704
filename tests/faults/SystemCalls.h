#pragma once

#include <string>

namespace quorvel::test {

/// Lets calls of the system for files (open, read, write, truncate, sync, rename, link and unlink) fail in this
/// program, its libraries included, as long as the object lives. One at a time.
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

}  // namespace quorvel::test
