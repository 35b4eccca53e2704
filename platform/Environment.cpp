#include "platform/Environment.h"

#include <pwd.h>
#include <syslog.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <utility>
#include <vector>

#include "Version.h"

namespace quorvel {
namespace {

struct WarningSink {
  std::mutex mutex;
  std::function<void(std::string_view)> receive;
};

WarningSink& Sink() {
  static WarningSink sink;
  return sink;
}

/// The log belongs to the whole process: its name for the process stays, so the source stands in the text.
void WriteSystemLog(std::string_view message) {
  std::string line(kApplicationName);
  line.append(": ").append(message);
  // An entry is one line; a daemon would show line breaks as octal codes.
  std::ranges::replace_if(
      line, [](char c) { return c == '\r' || c == '\n'; }, ' ');
  ::syslog(LOG_USER | LOG_WARNING, "%s", line.c_str());
}

std::string LogonName() {
  std::vector<char> buffer(1024);
  passwd entry{};
  passwd* found = nullptr;
  while (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) == ERANGE) {
    buffer.resize(buffer.size() * 2);
  }
  return found != nullptr ? found->pw_name : "";
}

}  // namespace

std::string EnvironmentVariable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

bool ReadLogonName(std::span<char> buffer) noexcept {
  try {
    const std::string name = LogonName();
    if (name.empty() || name.size() + 1 > buffer.size()) return false;
    std::ranges::copy_n(name.c_str(), static_cast<std::ptrdiff_t>(name.size() + 1), buffer.begin());
    return true;
  } catch (...) {
    return false;
  }
}

void LogWarning(std::string_view message) noexcept {
  try {
    const std::scoped_lock lock(Sink().mutex);
    if (Sink().receive) {
      Sink().receive(message);
    } else {
      WriteSystemLog(message);
    }
  } catch (...) {  // NOLINT(bugprone-empty-catch): a warning that cannot be logged must not become an error
  }
}

void RedirectWarnings(std::function<void(std::string_view)> sink) {
  const std::scoped_lock lock(Sink().mutex);
  Sink().receive = std::move(sink);
}

Version ComponentVersion() noexcept { return {QUORVEL_VERSION_MAJOR, QUORVEL_VERSION_MINOR, QUORVEL_VERSION_REVISION}; }

}  // namespace quorvel
