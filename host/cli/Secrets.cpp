#include "host/cli/Secrets.h"

#include <sys/resource.h>

#include <algorithm>
#include <string_view>

#include "platform/Text.h"

namespace quorvel::cli {

std::vector<std::string> TakeArguments(std::span<char*> arguments) {
  constexpr std::string_view kSecret = "Password=";
  std::vector<std::string> copies(arguments.begin(), arguments.end());
  for (char* argument : arguments) {
    const std::string_view text(argument);
    if (!EqualIgnoringCase(text.substr(0, kSecret.size()), kSecret)) continue;
    std::fill(argument + kSecret.size(), argument + text.size(), '*');
  }
  return copies;
}

void LeaveNoCoreDump() noexcept {
  rlimit limit{};
  if (::getrlimit(RLIMIT_CORE, &limit) != 0) return;
  limit.rlim_cur = 0;
  (void)::setrlimit(RLIMIT_CORE, &limit);
}

}  // namespace quorvel::cli
