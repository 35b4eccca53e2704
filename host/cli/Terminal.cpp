#include "host/cli/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <clocale>
#include <cstdio>
#include <ctime>
#include <string_view>

namespace quorvel::cli {
namespace {

constexpr std::size_t kUsualWidth = 80;

bool HasRegionalDates() {
  const char* name = std::setlocale(LC_TIME, nullptr);
  const std::string_view locale = name != nullptr ? name : "C";
  return locale != "POSIX" && locale != "C" && !locale.starts_with("C.");
}

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

std::string ShortDate(DateTime value) {
  const auto day = std::chrono::floor<std::chrono::days>(value);
  const std::chrono::year_month_day date(day);
  std::tm parts{};
  parts.tm_year = static_cast<int>(date.year()) - 1900;
  parts.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
  parts.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
  parts.tm_wday = static_cast<int>(std::chrono::weekday(day).c_encoding());
  if (!HasRegionalDates()) return FormatDateTime(value).substr(0, 10);
  std::array<char, 64> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%x", &parts)};
}

}  // namespace quorvel::cli
