#include "data/modUserName.h"

#include "platform/OperatingSystem.h"

namespace quorvel::modUserName {

std::string GetUserName() noexcept {
  constexpr std::size_t kLongestName = 255;
  try {
    std::string name = os::LogonName();
    return name.size() <= kLongestName ? name : "";
  } catch (...) {
    return "";
  }
}

}  // namespace quorvel::modUserName
