#pragma once

#include <cstdlib>
#include <string>

#include "platform/windows/WideText.h"

namespace quorvel::test {

/// What ctest tells a test in its environment; empty when it does not.
inline std::string Setting(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

/// The file to be tested.
inline std::wstring LibraryFile() { return os::ToWide(Setting("QUORVEL_TEST_LIBRARY")).value(); }

}  // namespace quorvel::test
