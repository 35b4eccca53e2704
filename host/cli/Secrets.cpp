#include "host/cli/Secrets.h"

#include <sys/prctl.h>
#include <sys/resource.h>

#include <algorithm>

#include "platform/Text.h"

namespace quorvel::cli {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kBlanks = " \t";

/// The position behind the equals sign of a password's key that begins at `start`.
std::size_t PositionBehindKey(std::string_view text, std::size_t start) {
  for (const std::string_view key : {"Password", "Pwd"}) {
    if (!EqualIgnoringCase(text.substr(start, key.size()), key)) continue;
    const std::size_t equals = text.find_first_not_of(kBlanks, start + key.size());
    if (equals != kNone && text[equals] == '=') return equals + 1;
  }
  return kNone;
}

/// In an argument a key may stand anywhere: hiding too much of it costs nothing.
std::size_t PositionBehindFirstKey(std::string_view argument) {
  std::size_t position = kNone;
  for (std::size_t i = 0; i < argument.size() && position == kNone; ++i) position = PositionBehindKey(argument, i);
  return position;
}

}  // namespace

std::vector<std::string> TakeArguments(std::span<char*> arguments) {
  std::vector<std::string> copies(arguments.begin(), arguments.end());
  for (char* argument : arguments) {
    const std::string_view text(argument);
    const std::size_t position = std::min(PositionBehindFirstKey(text), text.size());
    std::fill(argument + position, argument + text.size(), '*');
  }
  return copies;
}

std::string WithoutPassword(std::string_view value) {
  for (auto semicolon = value.find(';'); semicolon != kNone; semicolon = value.find(';', semicolon + 1)) {
    const std::size_t key = std::min(value.find_first_not_of(kBlanks, semicolon + 1), value.size());
    const std::size_t position = PositionBehindKey(value, key);
    if (position < value.size()) return std::string(value.substr(0, position)) + "****";
  }
  return std::string(value);
}

void LeaveNoCoreDump() noexcept {
  // The system ignores the limit when it hands core dumps to a program.
  (void)::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
  rlimit limit{};
  if (::getrlimit(RLIMIT_CORE, &limit) != 0) return;
  limit.rlim_cur = 0;
  (void)::setrlimit(RLIMIT_CORE, &limit);
}

}  // namespace quorvel::cli
