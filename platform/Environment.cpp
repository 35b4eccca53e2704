#include "platform/Environment.h"

#include <mutex>
#include <utility>

#include "Version.h"
#include "platform/OperatingSystem.h"
#include "platform/Text.h"

namespace quorvel {
namespace {

struct WarningSink {
  std::mutex mutex;
  std::function<void(std::string_view)> receive;
};

WarningSink& Sink() {
  // Never destroyed: a host's own static objects may still use the component while the process ends.
  static auto& sink = *new WarningSink();
  return sink;
}

}  // namespace

std::string EnvironmentVariable(const char* name) { return os::Variable(name).value_or(""); }

void LogWarning(std::string_view message) noexcept {
  try {
    const std::scoped_lock lock(Sink().mutex);
    if (Sink().receive) {
      Sink().receive(message);
    } else {
      // A log is read in a terminal too, and a driver's message may quote a user's text.
      os::WriteWarning(Printable(message));
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
