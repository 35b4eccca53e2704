#include "host/cli/Terminal.h"

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>

#include "platform/AtScopeEnd.h"

namespace quorvel::cli {
namespace {

constexpr std::size_t kUsualWidth = 80;

constexpr cc_t kControlC = 3;

std::optional<std::string> ReadLine() {
  std::string line;
  for (int character = std::getchar(); character != '\n'; character = std::getchar()) {
    if (character == EOF || character == kControlC) return std::nullopt;
    line += static_cast<char>(character);
  }
  return line;
}

}  // namespace

std::size_t OutputWidth() {
  if (::isatty(STDOUT_FILENO) == 0) return 0;
  winsize size{};
  const bool known = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsualWidth;
}

bool IsInputTerminal() { return ::isatty(STDIN_FILENO) != 0; }

std::optional<std::string> AskSecret(const char* prompt) {
  termios visible{};
  ::tcgetattr(STDIN_FILENO, &visible);
  termios hidden = visible;
  // Without ISIG, Ctrl+C arrives as a character: a killed program would leave the terminal without echo. As an end of
  // line it arrives at once.
  hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO | ISIG);
  hidden.c_cc[VEOL] = kControlC;
  ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
  // Only now: a user may type as soon as the prompt is there.
  std::fputs(prompt, stderr);
  const AtScopeEnd shown([&] {
    ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &visible);
    std::fputs("\n", stderr);
  });
  return ReadLine();
}

bool WaitForEnter(const char* prompt) {
  if (!IsInputTerminal() || ::isatty(STDOUT_FILENO) == 0) return true;
  std::fputs(prompt, stdout);
  std::fflush(stdout);
  int character = 0;
  do {
    character = std::getchar();
  } while (character != '\n' && character != EOF);
  return character != EOF;
}

}  // namespace quorvel::cli
