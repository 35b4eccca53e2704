#pragma once

#include <cstdlib>
#include <string>

#include "platform/windows/WideText.h"

namespace quorvel::test {

/// A variable that ctest sets for a test; empty when it is not set.
inline std::string Setting(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

/// The file under test.
inline std::wstring LibraryFile() { return os::ToWide(Setting("QUORVEL_TEST_LIBRARY")).value(); }

}  // namespace quorvel::test
