#include "host/cli/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>

namespace quorvel::cli {
namespace {

constexpr std::size_t kUsualWidth = 80;

}  // namespace

std::size_t OutputWidth() {
  if (::isatty(STDOUT_FILENO) == 0) return 0;
  winsize size{};
  const bool known = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsualWidth;
}

bool WaitForEnter(const char* prompt) {
  if (::isatty(STDIN_FILENO) == 0 || ::isatty(STDOUT_FILENO) == 0) return true;
  std::fputs(prompt, stdout);
  std::fflush(stdout);
  int character = 0;
  do {
    character = std::getchar();
  } while (character != '\n' && character != EOF);
  return character != EOF;
}

}  // namespace quorvel::cli
