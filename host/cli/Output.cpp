#include "host/cli/Output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <system_error>

#include <fmt/format.h>

namespace quorvel::cli {
namespace {

constexpr const char* kCannotWrite = "The standard output cannot be written";

}  // namespace

void PrepareStreams() {
  // A reader that is gone and a file at its size limit are then failed writes, and end no command that has saved.
  for (const int signal : {SIGPIPE, SIGXFSZ}) (void)std::signal(signal, SIG_IGN);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) != -1) continue;
    // The system takes the lowest free number. The wrong direction keeps reading or writing an error.
    (void)::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

void FinishOutput() {
  errno = 0;
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return;
  throw std::system_error(errno != 0 ? errno : EIO, std::generic_category(), kCannotWrite);
}

void PrintDone(const std::string& done, const std::string& details) {
  try {
    fmt::print("{}{}\n", done, details);
    FinishOutput();
  } catch (const std::system_error& error) {
    throw DoneButNotPrinted(fmt::format("{}. {}: {}", done, kCannotWrite, error.code().message()));
  }
}

std::string CauseOf(const Error& error) {
  try {
    std::rethrow_if_nested(error);
  } catch (const std::exception& cause) {
    return fmt::format(" ({})", cause.what());
  }
  return {};
}

void PrintToErrors(const std::string& text) noexcept { (void)std::fputs(text.c_str(), stderr); }

}  // namespace quorvel::cli
